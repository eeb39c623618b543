#pragma once

#include "XmlResInfoBase.h"

namespace KelXml {

/// The record of a finished circular error probable calculation, kept in a scenario snapshot as
/// `<Result_CEP>`: name, area, result grid and values, no comment.
/// \ingroup responses
class KELXML_EXPORT XmlResInfo_Cep_Type : public XmlResInfoBase
{
public:
    XmlResInfo_Cep_Type();

private:
    static const XmlLayout& layout();
};

} // namespace KelXml
