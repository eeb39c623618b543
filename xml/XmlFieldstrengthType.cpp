#include "XmlFieldstrengthType.h"

#include "XmlKit.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlFieldstrengthType");
const XmlText defaultUnit = QStringLiteral("dBm");
const double defaultFieldstrength = -99999.999;
// Just above the default, so that a default field strength is invalid.
const double lowestFieldstrength = -99999.989;
} // namespace

XmlFieldstrengthType::XmlFieldstrengthType()
    : XmlElementBase(PermanentName{&typeName})
    , m_unit(defaultUnit)
    , m_version(XmlKit::defaultVersionText)
    , m_fieldstrength(defaultFieldstrength)
{}

void XmlFieldstrengthType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    XmlElementReader in(*this, reader, elementName, XmlElementReader::TextWording);
    if (!in.begin(m_version) || !in.readRequired(XmlKit::unitAttribute, m_unit))
        return;
    in.readText(
        [&](QStringView text) { m_fieldstrength = in.toDouble(text, defaultFieldstrength); });
}

void XmlFieldstrengthType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    XmlKit::writeValueElement(writer, elementName, m_version, m_unit,
                              XmlKit::numberText(m_fieldstrength, 'f', 15));
}

void XmlFieldstrengthType::checkContent(XmlChecks& checks) const
{
    checks.version(supportsVersion(), m_version);
    checks.expect(!(m_fieldstrength <= lowestFieldstrength),
                  QStringLiteral("Illegal fieldstrength."));
    checks.expect(XmlKit::sameText(m_unit, defaultUnit), QStringLiteral("Illegal unit."));
}

void XmlFieldstrengthType::reset()
{
    m_unit = defaultUnit;
    m_version = XmlKit::defaultVersionText;
    m_fieldstrength = defaultFieldstrength;
    XmlElementBase::reset();
}

bool XmlFieldstrengthType::supportsVersion() const
{
    return XmlKit::isSupportedVersion(m_version);
}

} // namespace KelXml
