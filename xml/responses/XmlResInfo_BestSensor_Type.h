#pragma once

#include "XmlResInfoBase.h"

namespace KelXml {

/// The record of a finished best-sensor calculation: name, area, result grid
/// and values, then an optional Comment, after which nothing is accepted.
/// \ingroup responses
class KELXML_EXPORT XmlResInfo_BestSensor_Type : public XmlResInfoBase
{
public:
    XmlResInfo_BestSensor_Type();

    bool hasComment() const { return bool(m_comment); }
    /// Null when absent; setComment() stores a copy.
    const XmlObjNameType* comment() const { return m_comment.get(); }
    void setComment(const XmlObjNameType& comment) { m_comment.assign(comment); }

private:
    static const XmlLayout& layout();
};

} // namespace KelXml
