#pragma once

#include "XmlDecibelType.h"
#include "XmlListType.h"

namespace KelXml {

extern template class KELXML_EXPORT XmlListType<XmlDecibelType>;

/// A non-empty list of gains or losses in dB, each member written as `<Decibel>`.
/// \ingroup values
class KELXML_EXPORT XmlDecibelListType : public XmlListType<XmlDecibelType>
{
public:
    XmlDecibelListType();

    const QList<XmlDecibelType*>& decibelList() const { return members(); }
    /// Replaces the members with copies; the given objects stay the caller's.
    void setDecibelList(const QList<XmlDecibelType*>& list) { setMembers(list); }

private:
    static const XmlLayout& layout();
};

} // namespace KelXml
