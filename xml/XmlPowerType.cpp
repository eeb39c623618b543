#include "XmlPowerType.h"

#include "XmlKit.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlPowerType");
const XmlText defaultUnit = QStringLiteral("W");
const double defaultPower = -9.9;
} // namespace

XmlPowerType::XmlPowerType()
    : XmlElementBase(PermanentName{&typeName})
    , m_unit(defaultUnit)
    , m_version(XmlKit::defaultVersionText)
    , m_power(defaultPower)
{}

void XmlPowerType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    XmlElementReader in(*this, reader, elementName, XmlElementReader::TextWording);
    if (!in.begin(m_version) || !in.readRequired(XmlKit::unitAttribute, m_unit))
        return;
    in.readText([&](QStringView text) { m_power = in.toDouble(text, defaultPower); });
}

void XmlPowerType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    XmlKit::writeValueElement(writer, elementName, m_version, m_unit,
                              XmlKit::numberText(m_power, 'f', 15));
}

void XmlPowerType::checkContent(XmlChecks& checks) const
{
    checks.version(supportsVersion(), m_version);
    checks.expect(!(m_power < -60.0), QStringLiteral("Illegal power."));
    checks.expect(XmlKit::sameText(m_unit, defaultUnit), QStringLiteral("Illegal unit."));
}

void XmlPowerType::reset()
{
    m_unit = defaultUnit;
    m_version = XmlKit::defaultVersionText;
    m_power = defaultPower;
    XmlElementBase::reset();
}

bool XmlPowerType::supportsVersion() const
{
    return XmlKit::isSupportedVersion(m_version);
}

} // namespace KelXml
