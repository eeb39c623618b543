#pragma once

#include "XmlComposite.h"

#include <initializer_list>

namespace KelXml {

class XmlField;

/// A geographic position in decimal degrees:
/// `<Name version="1.0"><Longitude>12.500000</Longitude><Latitude>48.250000</Latitude></Name>`.
/// The version is checked while reading. Both defaults are out of range, so a
/// new position is invalid until filled.
/// \ingroup values
class KELXML_EXPORT XmlCoordinateType : public XmlVersionedComposite
{
public:
    XmlCoordinateType();
    /// A coordinate, also when copied from a numbered one: its table stays its own.
    XmlCoordinateType(const XmlCoordinateType& other);
    XmlCoordinateType& operator=(const XmlCoordinateType& other);

    void reset() override;

    /// Decimal degrees, valid from -180 to 180; -999.999 until set.
    double longitude() const { return m_longitude; }
    void setLongitude(double longitude) { m_longitude = longitude; }
    /// Decimal degrees, valid from -90 to 90; -999.999 until set.
    double latitude() const { return m_latitude; }
    void setLatitude(double latitude) { m_latitude = latitude; }

protected:
    /// A coordinate read and written by another table (see layoutWith()).
    explicit XmlCoordinateType(const XmlLayout& layout);
    /// A copy of other's values with that table.
    XmlCoordinateType(const XmlCoordinateType& other, const XmlLayout& layout);
    /// The coordinate's table with attribute rows of a derived class; its
    /// messages name XmlCoordinateType.
    static XmlLayout layoutWith(std::initializer_list<XmlField> attributes);

    void checkContent(XmlChecks& checks) const override;

private:
    static const XmlLayout& layout();

    double m_longitude;
    double m_latitude;
};

} // namespace KelXml
