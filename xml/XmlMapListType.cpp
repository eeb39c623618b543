#include "XmlMapListType.h"

#include "XmlListTypeImpl.h"

namespace KelXml {

template class XmlListType<XmlMapType>;

const XmlLayout& XmlMapListType::layout()
{
    static const XmlLayout layout = layoutOf("XmlMapListType", "Map", "Too few mappings (min. 1)");
    return layout;
}

XmlMapListType::XmlMapListType()
    : XmlListType(layout())
{}

} // namespace KelXml
