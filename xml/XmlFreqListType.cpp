#include "XmlFreqListType.h"

#include "XmlListTypeImpl.h"

namespace KelXml {

template class XmlListType<XmlFreqType>;

const XmlLayout& XmlFreqListType::layout()
{
    static const XmlLayout layout =
        layoutOf("XmlFreqListType", "Frequency", "Too few frequencies (min. 1)");
    return layout;
}

XmlFreqListType::XmlFreqListType()
    : XmlListType(layout())
{}

} // namespace KelXml
