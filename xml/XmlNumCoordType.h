#pragma once

#include "XmlCoordinateType.h"

namespace KelXml {

/// A numbered position, such as a polygon vertex:
/// `<Name version="1.0" number="3"><Longitude>..</Longitude><Latitude>..</Latitude></Name>`.
/// It keeps the class name of its base: its messages name "XmlCoordinateType".
/// \ingroup values
class KELXML_EXPORT XmlNumCoordType : public XmlCoordinateType
{
public:
    XmlNumCoordType();
    XmlNumCoordType(const XmlNumCoordType& other);
    XmlNumCoordType& operator=(const XmlNumCoordType& other) = default;

    void reset() override;

    /// The vertex or point number, valid from 0; -9999 until set.
    int number() const { return m_number; }
    void setNumber(int number) { m_number = number; }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    static const XmlLayout& layout();

    int m_number;
};

} // namespace KelXml
