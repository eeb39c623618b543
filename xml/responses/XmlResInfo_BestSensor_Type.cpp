#include "XmlResInfo_BestSensor_Type.h"

#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlResInfo_BestSensor_Type::layout()
{
    static const XmlLayout layout = recordLayout("XmlResInfo_BestSensor_Type", WithComment);
    return layout;
}

XmlResInfo_BestSensor_Type::XmlResInfo_BestSensor_Type()
    : XmlResInfoBase(layout())
{}

} // namespace KelXml
