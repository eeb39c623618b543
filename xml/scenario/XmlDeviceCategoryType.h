#pragma once

#include "XmlEnumElement.h"

namespace KelXml {

/// The category of a device in a signal chain, as element text:
/// `<DeviceCategory>Receiver</DeviceCategory>`. No version and no attributes.
/// \ingroup scenario
class KELXML_EXPORT XmlDeviceCategoryType : public XmlEnumElement
{
public:
    enum Category : qint32
    {
        Undefined = 0,
        Receiver = 1,
        PassiveAntennas = 2,
        Cable = 3,
        Other = 4,
        ActiveAntennas = 5,
        DF = 6,
    };

    XmlDeviceCategoryType();

    Category category() const { return Category(value()); }
    void setCategory(Category category) { setValue(category); }
};

} // namespace KelXml
