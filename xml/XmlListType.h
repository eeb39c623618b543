#pragma once

#include "XmlElementBase.h"
#include "XmlOwned.h"

namespace KelXml {

/// What sets one list class apart from another.
/// \ingroup framework
struct XmlListShape
{
    QString classname;     ///< the name printed in the list's messages
    QString memberElement; ///< the element name of each member
    QString countMessage;  ///< the report for an empty list
};

/// The common form of a non-empty list of one element class:
/// `<Name version="1.0"><Member .../><Member .../></Name>`.
///
/// Reading first empties the list, appends each member in document order
/// (keeping a member whose reading failed) and refuses the end tag of an empty
/// list. The list owns its members; copies are deep.
/// \ingroup framework
template <class T>
class XmlListType : public XmlElementBase
{
public:
    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    /// The version attribute; only "1.0" is supported.
    QString version() const { return m_version; }
    void setVersion(const QString& version) { m_version = version; }

protected:
    explicit XmlListType(const XmlListShape& shape);

    const QList<T*>& members() const { return m_members.list(); }
    /// Replaces the members with copies of the given objects.
    void setMembers(const QList<T*>& members) { m_members.assignCopies(members); }

    void checkContent(XmlChecks& checks) const override;

private:
    bool supportsVersion() const;

    XmlOwnedList<T> m_members;
    XmlText m_version;
    const XmlListShape* m_shape;
};

} // namespace KelXml
