#pragma once

#include "XmlComposite.h"
#include "XmlOwned.h"

namespace KelXml {

/// The common form of a non-empty list of one element class:
/// `<Name version="1.0"><Member .../><Member .../></Name>`.
///
/// A composite whose table holds one row, the members. Reading first empties
/// the list, appends each member in document order (keeping a member whose
/// reading failed) and refuses the end tag of an empty list; the report adds
/// the list's count message when it is empty. The list owns its members;
/// copies are deep.
/// \ingroup framework
template <class T>
class XmlListType : public XmlVersionedComposite
{
public:
    void processXml(QXmlStreamReader& reader, const QString& elementName) override;

protected:
    /// The list class states its table with layoutOf().
    explicit XmlListType(const XmlLayout& layout)
        : XmlVersionedComposite(layout)
    {}
    /// The table of a list class: its name, its members' element name and the
    /// report for an empty list.
    static XmlLayout layoutOf(const char* classname, const char* memberElement,
                              const char* countMessage);

    const QList<T*>& members() const { return m_members.list(); }
    /// Replaces the members with copies of the given objects.
    void setMembers(const QList<T*>& members) { m_members.assignCopies(members); }

private:
    XmlOwnedList<T> m_members;
};

} // namespace KelXml
