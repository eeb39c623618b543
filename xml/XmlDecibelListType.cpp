#include "XmlDecibelListType.h"

#include "XmlListTypeImpl.h"

namespace KelXml {

template class XmlListType<XmlDecibelType>;

const XmlLayout& XmlDecibelListType::layout()
{
    static const XmlLayout layout =
        layoutOf("XmlDecibelListType", "Decibel", "Too few pairs (min. 1)");
    return layout;
}

XmlDecibelListType::XmlDecibelListType()
    : XmlListType(layout())
{}

} // namespace KelXml
