#include "XmlFreqThrListType.h"

#include "XmlListTypeImpl.h"

namespace KelXml {

template class XmlListType<XmlFreqThrPairType>;

const XmlLayout& XmlFreqThrListType::layout()
{
    static const XmlLayout layout =
        layoutOf("XmlFreqThrListType", "Pair", "Too few pairs (min. 1)");
    return layout;
}

XmlFreqThrListType::XmlFreqThrListType()
    : XmlListType(layout())
{}

} // namespace KelXml
