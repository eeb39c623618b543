#pragma once

#include "XmlFreqType.h"
#include "XmlListType.h"

namespace KelXml {

extern template class KELXML_EXPORT XmlListType<XmlFreqType>;

/// A non-empty list of frequencies, each member written as `<Frequency>`.
/// \ingroup values
class KELXML_EXPORT XmlFreqListType : public XmlListType<XmlFreqType>
{
public:
    XmlFreqListType();

    const QList<XmlFreqType*>& freqList() const { return members(); }
    /// Replaces the members with copies; the given objects stay the caller's.
    void setFreqList(const QList<XmlFreqType*>& list) { setMembers(list); }

private:
    static const XmlLayout& layout();
};

} // namespace KelXml
