#pragma once

#include "XmlElementBase.h"

namespace KelXml {

/// A geographic position in decimal degrees:
/// `<Name version="1.0"><Longitude>12.500000</Longitude><Latitude>48.250000</Latitude></Name>`.
/// The version is checked while reading. Both defaults are out of range, so a
/// new position is invalid until filled.
/// \ingroup values
class KELXML_EXPORT XmlCoordinateType : public XmlElementBase
{
public:
    XmlCoordinateType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    /// Decimal degrees, valid from -180 to 180; -999.999 until set.
    double longitude() const { return m_longitude; }
    void setLongitude(double longitude) { m_longitude = longitude; }
    /// Decimal degrees, valid from -90 to 90; -999.999 until set.
    double latitude() const { return m_latitude; }
    void setLatitude(double latitude) { m_latitude = latitude; }
    QString version() const { return m_version; }
    void setVersion(const QString& version) { m_version = version; }

protected:
    void checkContent(XmlChecks& checks) const override;
    /// Writes the two coordinate children.
    void produceChildren(QXmlStreamWriter& writer) const;

private:
    bool supportsVersion() const;

    double m_longitude;
    double m_latitude;
    XmlText m_version;
};

} // namespace KelXml
