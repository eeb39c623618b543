#pragma once

#include "XmlComposite.h"
#include "XmlCoordinateType.h"

namespace KelXml {

/// An axis-aligned rectangle given by two corners:
/// `<AreaRect version="1.0"><UpperLeft/><LowerRight/></AreaRect>`.
/// Reading refuses any version but "1.0". The corners are not compared: an
/// upper-left corner south or east of the lower-right one is still valid.
/// \ingroup scenario
class KELXML_EXPORT XmlAreaRectType : public XmlVersionedComposite
{
public:
    XmlAreaRectType();

    const XmlCoordinateType* upperLeft() const { return &m_upperLeft; }
    void setUpperLeft(const XmlCoordinateType& corner) { m_upperLeft = corner; }
    const XmlCoordinateType* lowerRight() const { return &m_lowerRight; }
    void setLowerRight(const XmlCoordinateType& corner) { m_lowerRight = corner; }

private:
    static const XmlLayout& layout();

    XmlCoordinateType m_upperLeft;
    XmlCoordinateType m_lowerRight;
};

} // namespace KelXml
