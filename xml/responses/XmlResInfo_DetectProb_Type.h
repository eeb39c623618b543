#pragma once

#include "XmlResInfoBase.h"

namespace KelXml {

/// The record of a finished detection probability calculation, kept in a scenario snapshot as
/// `<Result_DetectProb>`: name, area, result grid and values, no comment.
/// \ingroup responses
class KELXML_EXPORT XmlResInfo_DetectProb_Type : public XmlResInfoBase
{
public:
    XmlResInfo_DetectProb_Type();

private:
    static const XmlLayout& layout();
};

} // namespace KelXml
