#pragma once

#include "XmlFreqThrPairType.h"
#include "XmlListType.h"

namespace KelXml {

extern template class KELXML_EXPORT XmlListType<XmlFreqThrPairType>;

/// A non-empty list of frequency/threshold pairs, each member written as `<Pair>`.
/// \ingroup values
class KELXML_EXPORT XmlFreqThrListType : public XmlListType<XmlFreqThrPairType>
{
public:
    XmlFreqThrListType();

    const QList<XmlFreqThrPairType*>& freqThrPairs() const { return members(); }
    /// Replaces the members with copies; the given objects stay the caller's.
    void setFreqThrPairs(const QList<XmlFreqThrPairType*>& list) { setMembers(list); }

private:
    static const XmlLayout& layout();
};

} // namespace KelXml
