#include "XmlResInfo_DfCov_Type.h"

#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlResInfo_DfCov_Type::layout()
{
    static const XmlLayout layout = recordLayout("XmlResInfo_DfCov_Type", NoComment);
    return layout;
}

XmlResInfo_DfCov_Type::XmlResInfo_DfCov_Type()
    : XmlResInfoBase(layout())
{}

} // namespace KelXml
