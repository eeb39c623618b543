#include "XmlKit.h"

#include <QXmlStreamAttributes>

namespace KelXml {

namespace XmlKit {

const QString versionAttribute = QStringLiteral("version");
const QString unitAttribute = QStringLiteral("unit");
const QString defaultVersion = QStringLiteral("1.0");

QString formatDateTime(const QDateTime& dateTime)
{
    return dateTime.isValid() ? dateTime.toString(Qt::ISODate) : QString();
}

QDateTime parseDateTime(const QString& text)
{
    return QDateTime::fromString(text, Qt::ISODate);
}

void writeValueElement(QXmlStreamWriter& writer, const QString& name, const QString& version,
                       const QString& unit, const QString& text)
{
    writer.writeStartElement(name);
    QXmlStreamAttributes attributes;
    attributes.append(versionAttribute, version);
    attributes.append(unitAttribute, unit);
    writer.writeAttributes(attributes);
    writer.writeCharacters(text);
    writer.writeEndElement();
}

void writeValueElement(QXmlStreamWriter& writer, const QString& name, const QString& version,
                       const QString& text)
{
    writer.writeStartElement(name);
    writer.writeAttribute(versionAttribute, version);
    writer.writeCharacters(text);
    writer.writeEndElement();
}

void writeStartElement(QXmlStreamWriter& writer, const QString& name, const QString& version)
{
    writer.writeStartElement(name);
    writer.writeAttribute(versionAttribute, version);
}

} // namespace XmlKit

XmlEnumTexts::XmlEnumTexts(std::initializer_list<Entry> entries, const char* otherText)
    : m_otherText(QLatin1String(otherText))
{
    for (const Entry& entry : entries)
        m_entries.append(qMakePair(entry.value, QString(QLatin1String(entry.text))));
}

XmlEnumTexts XmlEnumTexts::numbered(std::initializer_list<const char*> texts)
{
    XmlEnumTexts result({}, "UNDEFINED");
    int value = 0;
    for (const char* text : texts)
        result.m_entries.append(qMakePair(++value, QString(QLatin1String(text))));
    return result;
}

std::optional<int> XmlEnumTexts::parse(const QString& text) const
{
    for (const auto& entry : m_entries) {
        if (entry.second == text)
            return entry.first;
    }
    return std::nullopt;
}

const QString& XmlEnumTexts::text(int value) const
{
    for (const auto& entry : m_entries) {
        if (entry.first == value)
            return entry.second;
    }
    return m_otherText;
}

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

XmlElementReader::XmlElementReader(XmlElementBase& element, QXmlStreamReader& reader,
                                   const QString& elementName, Wording wording)
    : m_element(element)
    , m_reader(reader)
    , m_elementName(elementName)
    , m_wording(wording)
{}

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

bool XmlElementReader::begin(QString& version)
{
    version = XmlKit::defaultVersion;
    if (!atStartTag())
        return false;
    readVersion(version);
    return !failed();
}

void XmlElementReader::readVersion(QString& version) const
{
    const auto value = m_reader.attributes().value(XmlKit::versionAttribute);
    // The usual version shares the library's one string instead of a copy.
    if (value == XmlKit::defaultVersion)
        version = XmlKit::defaultVersion;
    else if (!value.isEmpty())
        version = value.toString();
}

bool XmlElementReader::readRequired(const QString& attribute, QString& value)
{
    const auto found = m_reader.attributes().value(attribute);
    if (found.isEmpty()) {
        fail(missingAttribute.arg(attribute));
        return false;
    }
    value = found.toString();
    return true;
}

void XmlElementReader::failAttribute(const QString& attribute)
{
    fail(illegalAttribute.arg(attribute));
}

int XmlElementReader::readEnumAttribute(const QString& attribute, const XmlEnumTexts& texts)
{
    const auto value = texts.parse(m_reader.attributes().value(attribute).toString());
    if (!value)
        failAttribute(attribute);
    return value.value_or(0);
}

bool XmlElementReader::checkVersion(const QString& version)
{
    if (XmlKit::isSupportedVersion(version))
        return true;
    fail(versionNotSupported.arg(version));
    return false;
}

std::optional<double> XmlElementReader::parseDouble(const QString& text)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (ok)
        return value;
    fail(notNumeric);
    return std::nullopt;
}

std::optional<int> XmlElementReader::parseInt(const QString& text)
{
    bool ok = false;
    const int value = text.toInt(&ok, 10);
    if (ok)
        return value;
    fail(notNumeric);
    return std::nullopt;
}

void XmlElementReader::run(const Handlers& handlers)
{
    while (!m_reader.atEnd() && !m_reader.hasError()) {
        switch (m_reader.readNext()) {
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
        case QXmlStreamReader::StartElement: {
            const QString name = m_reader.name().toString();
            if (handlers.start && handlers.start(name))
                break;
            switch (m_wording) {
            case TextWording:
                fail(unexpectedStartElement);
                break;
            case ElementWording:
                fail(unexpectedElement.arg(name));
                break;
            case NamedWording:
                fail(namedToken.arg(unexpectedStartElement, name));
                break;
            }
            break;
        }
        case QXmlStreamReader::EndElement: {
            const QString name = m_reader.name().toString();
            if (name == m_elementName) {
                if (!handlers.mayEnd || handlers.mayEnd())
                    return;
            } else if (handlers.passEnd && handlers.passEnd(name)) {
                break;
            }
            fail(m_wording == NamedWording ? namedToken.arg(unexpectedEndElement, name)
                                           : unexpectedEndElement);
            break;
        }
        case QXmlStreamReader::Characters:
            if (handlers.text)
                handlers.text(m_reader.text().toString());
            break;
        default:
            break;
        }
    }
}

void XmlElementReader::readText(const std::function<void(const QString& text)>& take)
{
    Handlers handlers;
    handlers.text = take;
    run(handlers);
}

void XmlElementReader::readEnumText(const XmlEnumTexts& texts, const QString& badValue,
                                    const std::function<void(int value)>& take)
{
    readText([&](const QString& text) {
        const auto value = texts.parse(text);
        take(value.value_or(0));
        if (!value)
            fail(badValue);
    });
}

void XmlElementReader::readChildren(const std::vector<XmlChild>& children,
                                    const std::function<bool()>& complete)
{
    std::vector<bool> seen(children.size(), false);
    int last = -1;

    Handlers handlers;
    handlers.start = [&](const QString& name) {
        for (size_t i = 0; i < children.size(); ++i) {
            const XmlChild& child = children[i];
            if (child.name() != name)
                continue;
            const int index = int(i);
            if (index < last || (index == last && !child.isRepeated()))
                return false;
            child.read(m_reader);
            seen[i] = true;
            last = index;
            return true;
        }
        return false;
    };
    handlers.mayEnd = [&]() {
        for (size_t i = 0; i < children.size(); ++i) {
            if (children[i].isRequired() && !seen[i])
                return false;
        }
        return !complete || complete();
    };
    run(handlers);
}

} // namespace KelXml
