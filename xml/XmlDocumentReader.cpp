#include "XmlDocumentReader.h"

#include "XmlElementRegistry.h"
#include "XmlIssues.h"
#include "XmlScanDevice.h"

#include <QIODevice>
#include <QXmlStreamReader>

namespace KelXml {

namespace {

XmlReadError simpleError(XmlReadError::Kind kind, const QString& message)
{
    XmlReadError error;
    error.kind = kind;
    error.message = message;
    return error;
}

XmlReadResult unknownClass(const QString& classNameOrAlias)
{
    XmlReadResult result;
    result.error =
        simpleError(XmlReadError::UnknownClass,
                    QStringLiteral("unknown element class \"%1\"").arg(classNameOrAlias));
    return result;
}

// The error the XML reader holds. A document that ends too early is located
// at its end, where the reader itself may not say.
XmlReadError readerError(const QXmlStreamReader& reader, const XmlScanDevice& device,
                         bool afterRoot)
{
    XmlReadError error;
    error.message = reader.errorString();
    error.line = reader.lineNumber();
    error.column = reader.columnNumber();
    switch (reader.error()) {
    case QXmlStreamReader::CustomError:
        error.kind = XmlReadError::Element;
        break;
    case QXmlStreamReader::PrematureEndOfDocumentError:
        error.kind = XmlReadError::NotWellFormed;
        error.line = device.endLine();
        error.column = device.endColumn();
        break;
    default:
        error.kind = afterRoot ? XmlReadError::TrailingContent : XmlReadError::NotWellFormed;
        break;
    }
    return error;
}

// Stands a reader on the root element of what the device hands on, lets
// the root class read it and looks at what follows. A fault of the scan
// comes first, wherever the reader got to: the document is refused, and a
// root that read the bytes before the fault is let go.
XmlReadResult readThrough(const QString& className, XmlScanDevice& device, bool recordPositions)
{
    XmlReadResult result;
    const auto refused = [&result, &device]() {
        if (device.fault().isNull())
            return false;
        result.root.reset();
        result.rootName.clear();
        result.error = device.fault();
        return true;
    };
    if (refused())
        return result;

    QXmlStreamReader reader(&device);
    while (!reader.atEnd() && reader.readNext() != QXmlStreamReader::StartElement) {
    }
    if (refused())
        return result;
    if (reader.tokenType() != QXmlStreamReader::StartElement) {
        if (reader.hasError()) {
            result.error = readerError(reader, device, false);
        } else {
            result.error = simpleError(XmlReadError::NoElement, QStringLiteral("no element found"));
            result.error.line = device.endLine();
            result.error.column = device.endColumn();
        }
        return result;
    }
    result.root = XmlElementRegistry::create(className);
    result.rootName = reader.name().toString();
    if (recordPositions) {
        const XmlPositionRecorder recorder(reader);
        result.root->processXml(reader, result.rootName);
    } else {
        result.root->processXml(reader, result.rootName);
    }
    if (refused())
        return result;
    if (reader.hasError()) {
        result.error = readerError(reader, device, false);
        return result;
    }
    // After the root: only whitespace, comments and processing instructions.
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::Comment:
        case QXmlStreamReader::ProcessingInstruction:
        case QXmlStreamReader::EndDocument:
        case QXmlStreamReader::Invalid:
            break;
        case QXmlStreamReader::Characters:
            if (reader.isWhitespace())
                break;
            Q_FALLTHROUGH();
        default:
            if (refused())
                return result;
            result.error.kind = XmlReadError::TrailingContent;
            result.error.message = QStringLiteral("content after the root element");
            result.error.line = reader.lineNumber();
            result.error.column = reader.columnNumber();
            return result;
        }
    }
    if (refused())
        return result;
    if (reader.hasError())
        result.error = readerError(reader, device, true);
    return result;
}

// The root's shape, read from what the device hands on.
XmlRootShape shapeThrough(XmlScanDevice& device, XmlReadError* error)
{
    XmlRootShape shape;
    XmlReadError found;
    QXmlStreamReader reader(&device);
    while (!reader.atEnd() && reader.readNext() != QXmlStreamReader::StartElement) {
    }
    if (reader.tokenType() == QXmlStreamReader::StartElement) {
        shape.hasType = reader.attributes().hasAttribute(QLatin1String("type"));
        while (!shape.hasType && !shape.hasResponseContent && !reader.atEnd()) {
            const QXmlStreamReader::TokenType token = reader.readNext();
            if (token == QXmlStreamReader::EndElement)
                break; // the root's own end tag
            if (token != QXmlStreamReader::StartElement)
                continue;
            const QStringView name = reader.name();
            if (shape.firstChild.isEmpty())
                shape.firstChild = name.toString();
            shape.hasResponseContent =
                name == QLatin1String("Automatic") || name == QLatin1String("Interactive");
            reader.skipCurrentElement();
        }
    } else if (!reader.hasError()) {
        found = simpleError(XmlReadError::NoElement, QStringLiteral("no element found"));
        found.line = device.endLine();
        found.column = device.endColumn();
    }
    if (!device.fault().isNull())
        found = device.fault();
    else if (reader.hasError())
        found = readerError(reader, device, false);
    if (error)
        *error = found;
    return shape;
}

} // namespace

XmlRootShape XmlDocumentReader::readRootShape(const QByteArray& document, XmlReadError* error) const
{
    XmlScanDevice device(document, m_limits);
    return shapeThrough(device, error);
}

XmlRootShape XmlDocumentReader::readRootShape(QIODevice* device, XmlReadError* error) const
{
    if (!device || !device->isReadable()) {
        if (error)
            *error = simpleError(XmlReadError::Device,
                                 QStringLiteral("the device is not open for reading"));
        return XmlRootShape();
    }
    XmlScanDevice scanned(device, m_limits);
    return shapeThrough(scanned, error);
}

XmlDocumentReader::XmlDocumentReader(const XmlReadLimits& limits)
    : m_limits(limits)
{}

XmlReadError XmlDocumentReader::scan(const QByteArray& document) const
{
    // One piece: the whole array is at hand.
    XmlScanDevice device(document, m_limits, document.size());
    device.scanToEnd();
    return device.fault();
}

XmlReadResult XmlDocumentReader::read(const QString& classNameOrAlias,
                                      const QByteArray& document) const
{
    const QString className = XmlElementRegistry::resolve(classNameOrAlias);
    if (className.isEmpty())
        return unknownClass(classNameOrAlias);
    XmlScanDevice device(document, m_limits);
    return readThrough(className, device, m_recordPositions);
}

XmlReadResult XmlDocumentReader::read(const QString& classNameOrAlias, QIODevice* device) const
{
    if (!device || !device->isReadable()) {
        XmlReadResult result;
        result.error = simpleError(XmlReadError::Device, QStringLiteral("the device is not open "
                                                                        "for reading"));
        return result;
    }
    const QString className = XmlElementRegistry::resolve(classNameOrAlias);
    if (className.isEmpty())
        return unknownClass(classNameOrAlias);
    XmlScanDevice scanned(device, m_limits);
    return readThrough(className, scanned, m_recordPositions);
}

// The three documents by the names of their kinds (XmlDocumentKind).

XmlReadResult XmlDocumentReader::readCommand(const QByteArray& document) const
{
    return read(QStringLiteral("command"), document);
}

XmlReadResult XmlDocumentReader::readCommand(QIODevice* device) const
{
    return read(QStringLiteral("command"), device);
}

XmlReadResult XmlDocumentReader::readResponse(const QByteArray& document) const
{
    return read(QStringLiteral("response"), document);
}

XmlReadResult XmlDocumentReader::readResponse(QIODevice* device) const
{
    return read(QStringLiteral("response"), device);
}

XmlReadResult XmlDocumentReader::readScenario(const QByteArray& document) const
{
    return read(QStringLiteral("scenario"), document);
}

XmlReadResult XmlDocumentReader::readScenario(QIODevice* device) const
{
    return read(QStringLiteral("scenario"), device);
}

} // namespace KelXml
