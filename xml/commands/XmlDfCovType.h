#pragma once

#include "XmlComposite.h"
#include "XmlNameAllMultiType.h"
#include "XmlOwned.h"
#include "XmlResultGridType.h"

namespace KelXml {

/// A request for the direction-finding coverage over areas of interest:
/// `<DFcoverage><UseDFs/><AOIs/>[<ResultGrid/>]</DFcoverage>`.
/// No version. A grid read replaces the one held.
/// \ingroup commands
class KELXML_EXPORT XmlDfCovType : public XmlComposite
{
public:
    XmlDfCovType();

    const XmlNameAllMultiType* useDFs() const { return &m_useDFs; }
    void setUseDFs(const XmlNameAllMultiType& finders) { m_useDFs = finders; }
    const XmlNameAllMultiType* AOIs() const { return &m_aois; }
    void setAOIs(const XmlNameAllMultiType& areas) { m_aois = areas; }
    bool hasResultGrid() const { return bool(m_resultGrid); }
    /// Null when absent; setResultGrid() stores a copy.
    const XmlResultGridType* resultGrid() const { return m_resultGrid.get(); }
    void setResultGrid(const XmlResultGridType& grid) { m_resultGrid.assign(grid); }

private:
    static const XmlLayout& layout();

    XmlNameAllMultiType m_useDFs;
    XmlNameAllMultiType m_aois;
    XmlOwnedPtr<XmlResultGridType> m_resultGrid;
};

} // namespace KelXml
