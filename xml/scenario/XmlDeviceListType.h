#pragma once

#include "XmlDeviceType.h"
#include "XmlListType.h"

namespace KelXml {

extern template class KELXML_EXPORT XmlListType<XmlDeviceType>;

/// A non-empty list of devices, each member written as `<Device>`.
/// \ingroup scenario
class KELXML_EXPORT XmlDeviceListType : public XmlListType<XmlDeviceType>
{
public:
    XmlDeviceListType();

    const QList<XmlDeviceType*>& deviceList() const { return members(); }
    /// Replaces the devices with copies; the given objects stay the caller's.
    void setDeviceList(const QList<XmlDeviceType*>& list) { setMembers(list); }

private:
    static const XmlLayout& layout();
};

} // namespace KelXml
