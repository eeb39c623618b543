#include "XmlCoordinateType.h"

#include "XmlElementReader.h"
#include "XmlKit.h"
#include "XmlNumberText.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlCoordinateType");
const QString longitudeElement = QStringLiteral("Longitude");
const QString latitudeElement = QStringLiteral("Latitude");
const double unset = -999.999;
} // namespace

XmlCoordinateType::XmlCoordinateType()
    : XmlElementBase(PermanentName{&typeName})
    , m_longitude(unset)
    , m_latitude(unset)
    , m_version(XmlKit::defaultVersionText)
{}

namespace {

// The value of the text, or 0 when it is not a number.
double number(const QString& text)
{
    bool ok = false;
    return XmlKit::toDouble(text, &ok);
}

} // namespace

void XmlCoordinateType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    XmlElementReader in(*this, reader, elementName, XmlElementReader::NamedWording);
    if (!in.begin(m_version) || !in.checkVersion(m_version))
        return;
    // The texts are converted unchecked: a text that is not a number gives 0.
    in.readChildren({
        XmlChild::text(longitudeElement, [this](const QString& t) { m_longitude = number(t); }),
        XmlChild::text(latitudeElement, [this](const QString& t) { m_latitude = number(t); }),
    });
}

void XmlCoordinateType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    XmlKit::writeStartElement(writer, elementName, m_version);
    produceChildren(writer);
    writer.writeEndElement();
}

void XmlCoordinateType::produceChildren(QXmlStreamWriter& writer) const
{
    writer.writeTextElement(longitudeElement, XmlKit::numberText(m_longitude, 'f', 6));
    writer.writeTextElement(latitudeElement, XmlKit::numberText(m_latitude, 'f', 6));
}

void XmlCoordinateType::checkContent(XmlChecks& checks) const
{
    checks.version(supportsVersion(), m_version);
    checks.expect(!(m_longitude < -180.0 || m_longitude > 180.0),
                  QStringLiteral("Longitude out of bounds"));
    checks.expect(!(m_latitude < -90.0 || m_latitude > 90.0),
                  QStringLiteral("Latitude out of bounds"));
}

void XmlCoordinateType::reset()
{
    m_longitude = unset;
    m_latitude = unset;
    m_version = XmlKit::defaultVersionText;
    XmlElementBase::reset();
}

bool XmlCoordinateType::supportsVersion() const
{
    return XmlKit::isSupportedVersion(m_version);
}

} // namespace KelXml
