#include "XmlDegreesListType.h"

#include "XmlListTypeImpl.h"

namespace KelXml {

template class XmlListType<XmlDegreesType>;

const XmlLayout& XmlDegreesListType::layout()
{
    static const XmlLayout layout =
        layoutOf("XmlDegreesListType", "Degrees", "Too few pairs (min. 1)");
    return layout;
}

XmlDegreesListType::XmlDegreesListType()
    : XmlListType(layout())
{}

} // namespace KelXml
