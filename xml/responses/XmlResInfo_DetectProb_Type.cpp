#include "XmlResInfo_DetectProb_Type.h"

#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlResInfo_DetectProb_Type::layout()
{
    static const XmlLayout layout = recordLayout("XmlResInfo_DetectProb_Type", NoComment);
    return layout;
}

XmlResInfo_DetectProb_Type::XmlResInfo_DetectProb_Type()
    : XmlResInfoBase(layout())
{}

} // namespace KelXml
