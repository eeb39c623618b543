#pragma once

#include "XmlAreaPolyType.h"
#include "XmlAreaRectType.h"
#include "XmlComposite.h"
#include "XmlGridValuesType.h"
#include "XmlObjNameType.h"
#include "XmlOwned.h"
#include "XmlResultGridType.h"

namespace KelXml {

/// What every result information record holds: a finished grid calculation
/// with the area it was computed over.
/// `<Result version="1.0"><Name/><AreaPolygon/> or <AreaRect/><ResultGrid/>`
/// `<Values/></Result>`, and in the best-sensor record an optional `<Comment/>`.
///
/// Reading takes the children strictly one after the other: each only right
/// after the one before it, one shape for the area, and refuses any version
/// but "1.0". The setters of the shapes leave the other shape alone, so a
/// record may hold both: both are written, polygon first, and the report
/// consults only the polygon.
/// \ingroup responses
class KELXML_EXPORT XmlResInfoBase : public XmlVersionedComposite
{
public:
    const XmlObjNameType* objName() const { return &m_objName; }
    void setObjName(const XmlObjNameType& name) { m_objName = name; }
    bool hasAreaRect() const { return bool(m_areaRect); }
    /// Null when absent; setAreaRect() stores a copy.
    const XmlAreaRectType* areaRect() const { return m_areaRect.get(); }
    void setAreaRect(const XmlAreaRectType& rect) { m_areaRect.assign(rect); }
    bool hasAreaPoly() const { return bool(m_areaPoly); }
    /// Null when absent; setAreaPoly() stores a copy.
    const XmlAreaPolyType* areaPoly() const { return m_areaPoly.get(); }
    void setAreaPoly(const XmlAreaPolyType& poly) { m_areaPoly.assign(poly); }
    /// The grid size the calculation used.
    const XmlResultGridType* resultGrid() const { return &m_resultGrid; }
    void setResultGrid(const XmlResultGridType& grid) { m_resultGrid = grid; }
    /// The range and unit of the values computed.
    const XmlGridValuesType* gridValues() const { return &m_gridValues; }
    void setGridValues(const XmlGridValuesType& values) { m_gridValues = values; }

protected:
    enum CommentRule
    {
        NoComment,
        WithComment, ///< an optional Comment after the values
    };

    explicit XmlResInfoBase(const XmlLayout& layout);

    /// The table of a record of the named class.
    static XmlLayout recordLayout(const char* classname, CommentRule comment);

    void checkContent(XmlChecks& checks) const override;

    /// Held by the best-sensor record only; always null in the others.
    XmlOwnedPtr<XmlObjNameType> m_comment;

private:
    XmlObjNameType m_objName;
    XmlOwnedPtr<XmlAreaPolyType> m_areaPoly;
    XmlOwnedPtr<XmlAreaRectType> m_areaRect;
    XmlResultGridType m_resultGrid;
    XmlGridValuesType m_gridValues;
};

} // namespace KelXml
