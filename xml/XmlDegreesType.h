#pragma once

#include "XmlElementBase.h"

namespace KelXml {

/// An angle in degrees: `<Name version="1.0" unit="°">45.0</Name>`.
/// The unit, the degree sign, is fixed: written always, never read.
/// \ingroup values
class KELXML_EXPORT XmlDegreesType : public XmlElementBase
{
public:
    XmlDegreesType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    /// Valid from 0 to 90.
    double degrees() const { return m_degrees; }
    void setDegrees(double degrees) { m_degrees = degrees; }
    /// Always the degree sign: the unit is written but never read.
    const QString& unit() const { return m_unit; }
    QString version() const { return m_version; }
    void setVersion(const QString& version) { m_version = version; }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    bool supportsVersion() const;

    XmlText m_unit;
    XmlText m_version;
    double m_degrees;
};

} // namespace KelXml
