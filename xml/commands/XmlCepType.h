#pragma once

#include "XmlCepProbType.h"
#include "XmlComposite.h"
#include "XmlNameAllMultiType.h"
#include "XmlOwned.h"
#include "XmlResultGridType.h"

namespace KelXml {

/// A request for the circular error probable of direction-finding fixes over
/// areas of interest:
/// `<CEP><UseDFs/><AOIs/>[<Probability/>][<ResultGrid/>]</CEP>`.
/// No version. A probability or grid read replaces the one held.
/// \ingroup commands
class KELXML_EXPORT XmlCepType : public XmlComposite
{
public:
    XmlCepType();

    const XmlNameAllMultiType* useDFs() const { return &m_useDFs; }
    void setUseDFs(const XmlNameAllMultiType& finders) { m_useDFs = finders; }
    const XmlNameAllMultiType* AOIs() const { return &m_aois; }
    void setAOIs(const XmlNameAllMultiType& areas) { m_aois = areas; }
    bool hasProbability() const { return bool(m_probability); }
    /// Null when absent; setProbability() stores a copy.
    const XmlCepProbType* probability() const { return m_probability.get(); }
    void setProbability(const XmlCepProbType& probability) { m_probability.assign(probability); }
    bool hasResultGrid() const { return bool(m_resultGrid); }
    /// Null when absent; setResultGrid() stores a copy.
    const XmlResultGridType* resultGrid() const { return m_resultGrid.get(); }
    void setResultGrid(const XmlResultGridType& grid) { m_resultGrid.assign(grid); }

private:
    static const XmlLayout& layout();

    XmlNameAllMultiType m_useDFs;
    XmlNameAllMultiType m_aois;
    XmlOwnedPtr<XmlCepProbType> m_probability;
    XmlOwnedPtr<XmlResultGridType> m_resultGrid;
};

} // namespace KelXml
