#include "XmlElementReader.h"

#include "XmlEnumTexts.h"
#include "XmlIssues.h"
#include "XmlKit.h"
#include "XmlNumberText.h"

#include <QXmlStreamAttributes>

namespace KelXml {

namespace {

const QString wrongPosition = QStringLiteral("Parse error (wrong position)");
const QString missingAttribute = QStringLiteral("Missing attribute: \"%1\"");
const QString illegalAttribute = QStringLiteral("Illegal attribute value in \"%1\"");
const QString versionNotSupported = QStringLiteral("Version not supported: %1");
const QString invalidToken = QStringLiteral("Invalid token");
const QString unexpectedStartDocument = QStringLiteral("Unexpected token \"StartDocument\"");
const QString unexpectedEndDocument = QStringLiteral("Unexpected token \"EndDocument\"");
const QString unexpectedStartElement = QStringLiteral("Unexpected token \"StartElement\"");
const QString unexpectedEndElement = QStringLiteral("Unexpected token \"EndElement\"");
const QString unexpectedElement = QStringLiteral("Unexpected element \"%1\"");
const QString namedToken = QStringLiteral("%1: %2");
const QString notNumeric = QStringLiteral("Illegal value (must be numeric)");

} // namespace

void XmlElementReader::fail(const QString& message)
{
    if (!m_reader.hasError())
        m_element.setReaderError(m_reader, message);
}

bool XmlElementReader::atStartTag()
{
    if (m_reader.tokenType() == QXmlStreamReader::StartElement)
        return true;
    fail(wrongPosition);
    return false;
}

bool XmlElementReader::begin(XmlText& version)
{
    version = XmlKit::defaultVersionText;
    if (!atStartTag())
        return false;
    readVersion(version);
    return !failed();
}

QStringView XmlElementReader::attribute(const QString& name) const
{
    // As QXmlStreamAttributes::value() finds it, compared in place.
    const QXmlStreamAttributes attributes = m_reader.attributes();
    for (const QXmlStreamAttribute& each : attributes) {
        if (XmlKit::sameName(each.qualifiedName(), name))
            return each.value();
    }
    return QStringView();
}

QStringView XmlElementReader::attributeIn(const QXmlStreamAttributes& attributes, QStringView name)
{
    for (const QXmlStreamAttribute& each : attributes) {
        if (XmlKit::sameName(each.qualifiedName(), name))
            return each.value();
    }
    return QStringView();
}

QString XmlElementReader::missingAttributeMessage(const QString& name)
{
    return missingAttribute.arg(name);
}

QString XmlElementReader::illegalAttributeMessage(const QString& name)
{
    return illegalAttribute.arg(name);
}

void XmlElementReader::readVersion(XmlText& version) const
{
    takeVersion(attribute(XmlKit::versionAttribute), version);
}

void XmlElementReader::takeVersion(QStringView value, XmlText& version)
{
    // The usual version is the library's own text; others share when they repeat.
    if (XmlKit::sameName(value, XmlKit::defaultVersion))
        version = XmlKit::defaultVersionText;
    else if (!value.isEmpty())
        version.assign(value);
}

bool XmlElementReader::begin(XmlText& version, const QString& required, XmlText& value)
{
    version = XmlKit::defaultVersionText;
    if (!atStartTag())
        return false;
    // As attribute() finds each of the two: the first of the name.
    QStringView versionText;
    QStringView found;
    bool versionSeen = false;
    bool foundSeen = false;
    const QXmlStreamAttributes attributes = m_reader.attributes();
    for (const QXmlStreamAttribute& each : attributes) {
        const QStringView name = each.qualifiedName();
        if (!versionSeen && XmlKit::sameName(name, XmlKit::versionAttribute)) {
            versionText = each.value();
            versionSeen = true;
        } else if (!foundSeen && XmlKit::sameName(name, required)) {
            found = each.value();
            foundSeen = true;
        }
    }
    takeVersion(versionText, version);
    if (missing(found, required))
        return false;
    value.assign(found);
    return true;
}

bool XmlElementReader::missing(QStringView found, const QString& name)
{
    if (!found.isEmpty())
        return false;
    fail(missingAttribute.arg(name));
    return true;
}

bool XmlElementReader::readRequired(const QString& name, QString& value)
{
    const QStringView found = attribute(name);
    if (missing(found, name))
        return false;
    value = found.toString();
    return true;
}

bool XmlElementReader::readRequired(const QString& name, XmlText& value)
{
    const QStringView found = attribute(name);
    if (missing(found, name))
        return false;
    value.assign(found);
    return true;
}

void XmlElementReader::failAttribute(const QString& attribute)
{
    fail(illegalAttribute.arg(attribute));
}

int XmlElementReader::readEnumAttribute(const QString& name, const XmlEnumTexts& texts)
{
    const auto value = texts.parse(attribute(name));
    if (!value)
        failAttribute(name);
    return value.value_or(0);
}

bool XmlElementReader::checkVersion(const QString& version)
{
    if (XmlKit::isSupportedVersion(version))
        return true;
    fail(versionNotSupported.arg(version));
    return false;
}

std::optional<double> XmlElementReader::parseDouble(QStringView text)
{
    bool ok = false;
    const double value = XmlKit::toDouble(text, &ok);
    if (ok)
        return value;
    fail(notNumeric);
    return std::nullopt;
}

std::optional<int> XmlElementReader::parseInt(QStringView text)
{
    bool ok = false;
    const int value = XmlKit::toInt(text, &ok);
    if (ok)
        return value;
    fail(notNumeric);
    return std::nullopt;
}

void XmlElementReader::refuseStart()
{
    switch (m_wording) {
    case TextWording:
        fail(unexpectedStartElement);
        break;
    case ElementWording:
        fail(unexpectedElement.arg(m_reader.name().toString()));
        break;
    case NamedWording:
        fail(namedToken.arg(unexpectedStartElement, m_reader.name().toString()));
        break;
    }
}

void XmlElementReader::refuseEnd(QStringView name)
{
    fail(m_wording == NamedWording ? namedToken.arg(unexpectedEndElement, name.toString())
                                   : unexpectedEndElement);
}

void XmlElementReader::otherToken(QXmlStreamReader::TokenType type)
{
    switch (type) {
    case QXmlStreamReader::Invalid:
        if (!m_reader.hasError())
            fail(invalidToken);
        break;
    case QXmlStreamReader::StartDocument:
        fail(unexpectedStartDocument);
        break;
    case QXmlStreamReader::EndDocument:
        fail(unexpectedEndDocument);
        break;
    default: // comments, processing instructions, DTDs, entity references
        break;
    }
}

XmlPositionRecorder* XmlElementReader::recorderOf(XmlElementBase& element, QXmlStreamReader& reader,
                                                  const QString& elementName)
{
    XmlPositionRecorder* recorder = XmlPositionRecorder::of(reader);
    if (recorder)
        recorder->enter(element, elementName);
    return recorder;
}

void XmlElementReader::recorded()
{
    m_recorder->leave();
}

} // namespace KelXml
