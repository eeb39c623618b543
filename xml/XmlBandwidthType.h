#pragma once

#include "XmlElementBase.h"

namespace KelXml {

/// A bandwidth in kHz: `<Name version="1.0" unit="kHz">25</Name>`. Held as a
/// double, but read as a whole number: "12.5" is not numeric here.
/// \ingroup values
class KELXML_EXPORT XmlBandwidthType : public XmlElementBase
{
public:
    XmlBandwidthType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    double bandwidth_khz() const { return m_bandwidth; }
    /// Takes kilohertz, whatever the unit says.
    void setBandwidth(double bandwidth) { m_bandwidth = bandwidth; }
    /// The unit as read; only "kHz" is valid.
    const QString& unit() const { return m_unit; }
    QString version() const { return m_version; }
    void setVersion(const QString& version) { m_version = version; }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    bool supportsVersion() const;

    XmlText m_unit;
    XmlText m_version;
    double m_bandwidth;
};

} // namespace KelXml
