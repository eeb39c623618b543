#include "XmlResInfo_Cep_Type.h"

#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlResInfo_Cep_Type::layout()
{
    static const XmlLayout layout = recordLayout("XmlResInfo_Cep_Type", NoComment);
    return layout;
}

XmlResInfo_Cep_Type::XmlResInfo_Cep_Type()
    : XmlResInfoBase(layout())
{}

} // namespace KelXml
