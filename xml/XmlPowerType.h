#pragma once

#include "XmlElementBase.h"

namespace KelXml {

/// A power in watts: `<Name version="1.0" unit="W">10.000000000000000</Name>`.
/// \ingroup values
class KELXML_EXPORT XmlPowerType : public XmlElementBase
{
public:
    XmlPowerType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    /// In watts; valid from -60.
    double power() const { return m_power; }
    void setPower(double power) { m_power = power; }
    /// The unit as read; only "W" is valid.
    const QString& unit() const { return m_unit; }
    QString version() const { return m_version; }
    void setVersion(const QString& version) { m_version = version; }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    bool supportsVersion() const;

    XmlText m_unit;
    XmlText m_version;
    double m_power;
};

} // namespace KelXml
