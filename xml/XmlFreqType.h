#pragma once

#include "XmlElementBase.h"

namespace KelXml {

/// A frequency: `<Name version="1.0" unit="kHz">2400.000000</Name>`. The value
/// is held in MHz whatever the unit; reading converts the text from the unit
/// of the element, writing converts back into the unit held.
/// \ingroup values
class KELXML_EXPORT XmlFreqType : public XmlElementBase
{
public:
    XmlFreqType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    double frequency_MHz() const { return m_frequency; }
    /// Takes megahertz whatever the unit says.
    void setFrequency_MHz(double frequency) { m_frequency = frequency; }
    /// The unit the value is written in: "Hz", "kHz", "MHz" or "GHz".
    const QString& unit() const { return m_unit; }
    /// Changes the unit of the written text only; the value held stays in MHz.
    void setUnit(const QString& unit) { m_unit = unit; }
    QString version() const { return m_version; }
    void setVersion(const QString& version) { m_version = version; }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    bool supportsVersion() const;

    XmlText m_unit;
    XmlText m_version;
    double m_frequency;
};

} // namespace KelXml
