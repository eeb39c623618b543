#pragma once

#include "XmlDBMType.h"
#include "XmlListType.h"

namespace KelXml {

extern template class KELXML_EXPORT XmlListType<XmlDBMType>;

/// A non-empty list of levels in dBm, each member written as `<dBm>`.
/// \ingroup values
class KELXML_EXPORT XmlDBMListType : public XmlListType<XmlDBMType>
{
public:
    XmlDBMListType();

    const QList<XmlDBMType*>& dBmList() const { return members(); }
    /// Replaces the members with copies; the given objects stay the caller's.
    void setDBMList(const QList<XmlDBMType*>& list) { setMembers(list); }

private:
    static const XmlLayout& layout();
};

} // namespace KelXml
