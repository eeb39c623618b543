#include "XmlDeviceListType.h"

#include "XmlListTypeImpl.h"

namespace KelXml {

template class XmlListType<XmlDeviceType>;

namespace {
const XmlListShape shape{QStringLiteral("XmlDeviceListType"), QStringLiteral("Device"),
                         QStringLiteral("Too few devices (min. 1)")};
} // namespace

XmlDeviceListType::XmlDeviceListType()
    : XmlListType(shape)
{}

} // namespace KelXml
