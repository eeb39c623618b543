#pragma once

#include "XmlListType.h"
#include "XmlMapType.h"

namespace KelXml {

extern template class KELXML_EXPORT XmlListType<XmlMapType>;

/// A non-empty key/length map, each entry written as `<Map>`.
/// \ingroup values
class KELXML_EXPORT XmlMapListType : public XmlListType<XmlMapType>
{
public:
    XmlMapListType();

    const QList<XmlMapType*>& mapList() const { return members(); }
    /// Replaces the entries with copies; the given objects stay the caller's.
    void setMapList(const QList<XmlMapType*>& list) { setMembers(list); }

private:
    static const XmlLayout& layout();
};

} // namespace KelXml
