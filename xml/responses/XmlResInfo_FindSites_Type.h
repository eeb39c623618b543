#pragma once

#include "XmlResInfoBase.h"

namespace KelXml {

/// The record of a finished site finding calculation, kept in a scenario snapshot as
/// `<Result_FindSites>`: name, area, result grid and values, no comment.
/// \ingroup responses
class KELXML_EXPORT XmlResInfo_FindSites_Type : public XmlResInfoBase
{
public:
    XmlResInfo_FindSites_Type();

private:
    static const XmlLayout& layout();
};

} // namespace KelXml
