#include "XmlResInfo_FindSites_Type.h"

#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlResInfo_FindSites_Type::layout()
{
    static const XmlLayout layout = recordLayout("XmlResInfo_FindSites_Type", NoComment);
    return layout;
}

XmlResInfo_FindSites_Type::XmlResInfo_FindSites_Type()
    : XmlResInfoBase(layout())
{}

} // namespace KelXml
