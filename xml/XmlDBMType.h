#pragma once

#include "XmlElementBase.h"

namespace KelXml {

/// A level in dBm: `<Name version="1.0" unit="dBm">-50.000000000</Name>`.
/// The unit is fixed: written always, never read.
/// \ingroup values
class KELXML_EXPORT XmlDBMType : public XmlElementBase
{
public:
    XmlDBMType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    double dBm() const { return m_dBm; }
    void setDBM(double dBm) { m_dBm = dBm; }
    /// Always "dBm": the unit is written but never read.
    const QString& unit() const { return m_unit; }
    QString version() const { return m_version; }
    void setVersion(const QString& version) { m_version = version; }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    bool supportsVersion() const;

    XmlText m_unit;
    XmlText m_version;
    double m_dBm;
};

} // namespace KelXml
