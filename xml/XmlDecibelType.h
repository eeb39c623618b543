#pragma once

#include "XmlElementBase.h"

namespace KelXml {

/// A gain or loss in dB: `<Name version="1.0" unit="dB">3.000000</Name>`.
/// The unit is fixed: written always, never read.
/// \ingroup values
class KELXML_EXPORT XmlDecibelType : public XmlElementBase
{
public:
    XmlDecibelType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    double decibel() const { return m_decibel; }
    void setDecibel(double decibel) { m_decibel = decibel; }
    /// Always "dB": the unit is written but never read.
    const QString& unit() const { return m_unit; }
    QString version() const { return m_version; }
    void setVersion(const QString& version) { m_version = version; }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    bool supportsVersion() const;

    XmlText m_unit;
    XmlText m_version;
    double m_decibel;
};

} // namespace KelXml
