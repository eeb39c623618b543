#pragma once

#include "XmlComposite.h"
#include "XmlNameAllMultiType.h"
#include "XmlObjNameType.h"
#include "XmlOwned.h"
#include "XmlResultGridType.h"

namespace KelXml {

/// A request for the best-sensor coverage over areas of interest:
/// `<BestSensorCov><UseRxDFs/><AOIs/>[<ResultGrid/>][<Comment/>]</BestSensorCov>`.
/// No version. A grid or comment read replaces the one held.
/// \ingroup commands
class KELXML_EXPORT XmlBestSensorType : public XmlComposite
{
public:
    XmlBestSensorType();

    const XmlNameAllMultiType* useRxDFs() const { return &m_useRxDFs; }
    void setUseRxDFs(const XmlNameAllMultiType& sensors) { m_useRxDFs = sensors; }
    const XmlNameAllMultiType* AOIs() const { return &m_aois; }
    void setAOIs(const XmlNameAllMultiType& areas) { m_aois = areas; }
    bool hasResultGrid() const { return bool(m_resultGrid); }
    /// Null when absent; setResultGrid() stores a copy.
    const XmlResultGridType* resultGrid() const { return m_resultGrid.get(); }
    void setResultGrid(const XmlResultGridType& grid) { m_resultGrid.assign(grid); }
    bool hasComment() const { return bool(m_comment); }
    /// Null when absent; setComment() stores a copy.
    const XmlObjNameType* comment() const { return m_comment.get(); }
    void setComment(const XmlObjNameType& comment) { m_comment.assign(comment); }

private:
    static const XmlLayout& layout();

    XmlNameAllMultiType m_useRxDFs;
    XmlNameAllMultiType m_aois;
    XmlOwnedPtr<XmlResultGridType> m_resultGrid;
    XmlOwnedPtr<XmlObjNameType> m_comment;
};

} // namespace KelXml
