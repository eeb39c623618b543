#include "XmlBandwidthType.h"

#include "XmlKit.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlBandwidthType");
const XmlText defaultUnit = QStringLiteral("kHz");
const double defaultBandwidth = -1.0;
} // namespace

XmlBandwidthType::XmlBandwidthType()
    : XmlElementBase(PermanentName{&typeName})
    , m_unit(defaultUnit)
    , m_version(XmlKit::defaultVersionText)
    , m_bandwidth(defaultBandwidth)
{}

void XmlBandwidthType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    XmlElementReader in(*this, reader, elementName, XmlElementReader::TextWording);
    if (!in.begin(m_version) || !in.readRequired(XmlKit::unitAttribute, m_unit))
        return;
    // Whole numbers only, widened to the double held.
    in.readText([&](QStringView text) {
        const auto value = in.parseInt(text);
        m_bandwidth = value ? double(*value) : defaultBandwidth;
    });
}

void XmlBandwidthType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    XmlKit::writeValueElement(writer, elementName, m_version, m_unit,
                              XmlKit::numberText(m_bandwidth, 'g', 6));
}

void XmlBandwidthType::checkContent(XmlChecks& checks) const
{
    checks.version(supportsVersion(), m_version);
    // Both messages carry the name of the precision class.
    checks.expect(!(m_bandwidth < 0.0), QStringLiteral("XmlDfPrecisionType: Illegal precision."));
    checks.expect(XmlKit::sameText(m_unit, defaultUnit),
                  QStringLiteral("XmlDfPrecisionType: Illegal unit."));
}

void XmlBandwidthType::reset()
{
    m_unit = defaultUnit;
    m_version = XmlKit::defaultVersionText;
    m_bandwidth = defaultBandwidth;
    XmlElementBase::reset();
}

bool XmlBandwidthType::supportsVersion() const
{
    return XmlKit::isSupportedVersion(m_version);
}

} // namespace KelXml
