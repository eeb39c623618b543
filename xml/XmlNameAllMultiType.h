#pragma once

#include "XmlComposite.h"
#include "XmlObjNameType.h"
#include "XmlOwned.h"

namespace KelXml {

/// Selects all objects of a kind or a list of named ones:
/// `<Sel><All/></Sel>` or `<Sel><Name>A</Name><Name>B</Name></Sel>`.
/// No version. Reading appends the names read to those already held.
/// \ingroup values
class KELXML_EXPORT XmlNameAllMultiType : public XmlComposite
{
public:
    XmlNameAllMultiType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void reset() override;

    /// True when no name is held: all objects are selected, or nothing has been chosen yet.
    bool all() const { return m_names.isEmpty(); }
    /// Selects all objects: deletes the names held.
    void setAll();
    const QList<XmlObjNameType*>& objNames() const { return m_names.list(); }
    /// Replaces the names with copies; the given objects stay the caller's.
    void setObjNames(const QList<XmlObjNameType*>& names);

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    static const XmlLayout& layout();

    XmlOwnedList<XmlObjNameType> m_names;
    bool m_initialized;
};

} // namespace KelXml
