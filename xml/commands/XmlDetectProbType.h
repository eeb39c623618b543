#pragma once

#include "XmlComposite.h"
#include "XmlNameAllMultiType.h"
#include "XmlOwned.h"
#include "XmlResultGridType.h"

namespace KelXml {

/// A request for the detection probability over areas of interest:
/// `<DetectionProbability><UseRxDFs/><AOIs/>[<ResultGrid/>]</DetectionProbability>`.
/// No version. A grid read replaces the one held.
/// \ingroup commands
class KELXML_EXPORT XmlDetectProbType : public XmlComposite
{
public:
    XmlDetectProbType();

    const XmlNameAllMultiType* useRxDFs() const { return &m_useRxDFs; }
    void setUseRxDFs(const XmlNameAllMultiType& sensors) { m_useRxDFs = sensors; }
    const XmlNameAllMultiType* AOIs() const { return &m_aois; }
    void setAOIs(const XmlNameAllMultiType& areas) { m_aois = areas; }
    bool hasResultGrid() const { return bool(m_resultGrid); }
    /// Null when absent; setResultGrid() stores a copy.
    const XmlResultGridType* resultGrid() const { return m_resultGrid.get(); }
    void setResultGrid(const XmlResultGridType& grid) { m_resultGrid.assign(grid); }

private:
    static const XmlLayout& layout();

    XmlNameAllMultiType m_useRxDFs;
    XmlNameAllMultiType m_aois;
    XmlOwnedPtr<XmlResultGridType> m_resultGrid;
};

} // namespace KelXml
