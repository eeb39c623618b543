#pragma once

#include "XmlComposite.h"
#include "XmlObjNameType.h"
#include "XmlOwned.h"

namespace KelXml {

/// Selects all objects of a kind or one named object:
/// `<Sel><All/></Sel>` or `<Sel><Name>Station 1</Name></Sel>`.
/// No version. A new or reset selection is uninitialized, and then reports
/// all() as true while being invalid.
/// \ingroup values
class KELXML_EXPORT XmlNameAllType : public XmlComposite
{
public:
    XmlNameAllType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void reset() override;

    /// True when no name is held: all objects are selected, or nothing has been chosen yet.
    bool all() const { return !m_name; }
    bool hasObjName() const { return bool(m_name); }
    /// The selected object's name; null when all are selected.
    const XmlObjNameType* objName() const { return m_name.get(); }
    /// Selects all objects: deletes the name held.
    void setAll();
    /// Selects one object by a copy of its name.
    void setObjName(const XmlObjNameType& name);

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    static const XmlLayout& layout();

    XmlOwnedPtr<XmlObjNameType> m_name;
    bool m_initialized;
};

} // namespace KelXml
