#include "XmlDeviceListType.h"

#include "XmlListTypeImpl.h"

namespace KelXml {

template class XmlListType<XmlDeviceType>;

const XmlLayout& XmlDeviceListType::layout()
{
    static const XmlLayout layout =
        layoutOf("XmlDeviceListType", "Device", "Too few devices (min. 1)");
    return layout;
}

XmlDeviceListType::XmlDeviceListType()
    : XmlListType(layout())
{}

} // namespace KelXml
