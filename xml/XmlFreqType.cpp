#include "XmlFreqType.h"

#include "XmlKit.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlFreqType");
const QString hz = QStringLiteral("Hz");
const QString khz = QStringLiteral("kHz");
const XmlText mhz = QStringLiteral("MHz");
const QString ghz = QStringLiteral("GHz");
const double defaultFrequency = -9.9;
} // namespace

XmlFreqType::XmlFreqType()
    : XmlElementBase(PermanentName{&typeName})
    , m_unit(mhz)
    , m_version(XmlKit::defaultVersionText)
    , m_frequency(defaultFrequency)
{}

void XmlFreqType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    XmlElementReader in(*this, reader, elementName, XmlElementReader::TextWording);
    if (!in.begin(m_version) || !in.readRequired(XmlKit::unitAttribute, m_unit))
        return;
    in.readText([&](QStringView text) {
        const auto value = in.parseDouble(text);
        if (!value)
            m_frequency = defaultFrequency;
        else if (XmlKit::sameText(m_unit, hz))
            m_frequency = *value * 1e-6;
        else if (XmlKit::sameText(m_unit, khz))
            m_frequency = *value * 0.001;
        else if (XmlKit::sameText(m_unit, mhz))
            m_frequency = *value;
        else if (XmlKit::sameText(m_unit, ghz))
            m_frequency = *value * 1000.0;
        // A value in an unknown unit is not taken; the unit check reports it.
    });
}

void XmlFreqType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    double value = m_frequency;
    if (XmlKit::sameText(m_unit, hz))
        value *= 1000000.0;
    else if (XmlKit::sameText(m_unit, khz))
        value *= 1000.0;
    else if (XmlKit::sameText(m_unit, ghz))
        value *= 0.001;
    XmlKit::writeValueElement(writer, elementName, m_version, m_unit,
                              XmlKit::numberText(value, 'f', 6));
}

void XmlFreqType::checkContent(XmlChecks& checks) const
{
    checks.version(supportsVersion(), m_version);
    checks.expect(!(m_frequency <= 0.0), QStringLiteral("Illegal frequency."));
    checks.expect(XmlKit::sameText(m_unit, hz) || XmlKit::sameText(m_unit, khz) ||
                      XmlKit::sameText(m_unit, mhz) || XmlKit::sameText(m_unit, ghz),
                  QStringLiteral("Illegal unit."));
}

void XmlFreqType::reset()
{
    m_unit = mhz;
    m_version = XmlKit::defaultVersionText;
    m_frequency = defaultFrequency;
    XmlElementBase::reset();
}

bool XmlFreqType::supportsVersion() const
{
    return XmlKit::isSupportedVersion(m_version);
}

} // namespace KelXml
