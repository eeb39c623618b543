#pragma once

#include "XmlDegreesType.h"
#include "XmlListType.h"

namespace KelXml {

extern template class KELXML_EXPORT XmlListType<XmlDegreesType>;

/// A non-empty list of angles, each member written as `<Degrees>`.
/// \ingroup values
class KELXML_EXPORT XmlDegreesListType : public XmlListType<XmlDegreesType>
{
public:
    XmlDegreesListType();

    const QList<XmlDegreesType*>& degreeList() const { return members(); }
    /// Replaces the members with copies; the given objects stay the caller's.
    void setDegreesList(const QList<XmlDegreesType*>& list) { setMembers(list); }

private:
    static const XmlLayout& layout();
};

} // namespace KelXml
