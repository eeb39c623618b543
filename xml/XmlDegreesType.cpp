#include "XmlDegreesType.h"

#include "XmlKit.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlDegreesType");
const XmlText unitWord = QString(QChar(0x00B0)); // the degree sign
const double defaultDegrees = -0.0;
} // namespace

XmlDegreesType::XmlDegreesType()
    : XmlElementBase(PermanentName{&typeName})
    , m_unit(unitWord)
    , m_version(XmlKit::defaultVersionText)
    , m_degrees(defaultDegrees)
{}

void XmlDegreesType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    XmlElementReader in(*this, reader, elementName, XmlElementReader::TextWording);
    if (!in.begin(m_version))
        return;
    in.readText([&](QStringView text) { m_degrees = in.toDouble(text, defaultDegrees); });
}

void XmlDegreesType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    XmlKit::writeValueElement(writer, elementName, m_version, m_unit,
                              XmlKit::numberText(m_degrees, 'f', 1));
}

void XmlDegreesType::checkContent(XmlChecks& checks) const
{
    checks.version(supportsVersion(), m_version);
    // A bad angle is reported with the decibel message.
    checks.expect(!(m_degrees < 0.0 || m_degrees > 90.0), QStringLiteral("Illegal decibel."));
}

void XmlDegreesType::reset()
{
    m_unit = unitWord;
    m_version = XmlKit::defaultVersionText;
    m_degrees = defaultDegrees;
    XmlElementBase::reset();
}

bool XmlDegreesType::supportsVersion() const
{
    return XmlKit::isSupportedVersion(m_version);
}

} // namespace KelXml
