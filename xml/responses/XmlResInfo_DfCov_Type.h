#pragma once

#include "XmlResInfoBase.h"

namespace KelXml {

/// The record of a finished direction-finding coverage calculation, kept in a scenario snapshot as
/// `<Result_DfCoverage>`: name, area, result grid and values, no comment.
/// \ingroup responses
class KELXML_EXPORT XmlResInfo_DfCov_Type : public XmlResInfoBase
{
public:
    XmlResInfo_DfCov_Type();

private:
    static const XmlLayout& layout();
};

} // namespace KelXml
