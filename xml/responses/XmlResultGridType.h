#pragma once

#include "XmlEnumElement.h"

namespace KelXml {

/// The size of a result grid as a text element: `<ResultGrid>100</ResultGrid>`.
/// No version and no attributes.
/// \ingroup responses
class KELXML_EXPORT XmlResultGridType : public XmlEnumElement
{
public:
    enum GridSize
    {
        SizeUndefined = 0, ///< written "UNDEFINED", never accepted
        Grid10,
        Grid50,
        Grid100,
        Grid200,
        Grid500,
        Grid1000,
    };

    XmlResultGridType();

    /// Written as its number, "10" to "1000".
    GridSize size() const { return GridSize(value()); }
    void setSize(GridSize size) { setValue(size); }
};

} // namespace KelXml
