#pragma once

#include "XmlAreaPolyType.h"
#include "XmlAreaRectType.h"
#include "XmlComposite.h"
#include "XmlFieldstrengthType.h"
#include "XmlObjNameType.h"
#include "XmlOwned.h"
#include "XmlTxParamType.h"

namespace KelXml {

/// An area of interest, where emitters are assumed and coverage is calculated:
/// `<AOI version="1.0"><Name/><AreaRect/> or <AreaPolygon/><TxParameter/>`
/// `<RxThreshold/></AOI>`, the threshold optional.
///
/// Exactly one shape is wanted; installing one, by reading or by a setter,
/// deletes the other. Reading refuses any version but "1.0".
/// \ingroup scenario
class KELXML_EXPORT XmlAoiType : public XmlVersionedComposite
{
public:
    XmlAoiType();

    const XmlObjNameType* objName() const { return &m_objName; }
    void setObjName(const XmlObjNameType& name) { m_objName = name; }
    bool hasAreaRect() const { return bool(m_areaRect); }
    /// Null unless the area is a rectangle.
    const XmlAreaRectType* areaRect() const { return m_areaRect.get(); }
    /// Makes the area a copy of the rectangle; deletes the polygon.
    void setAreaRect(const XmlAreaRectType& rect);
    bool hasAreaPoly() const { return bool(m_areaPoly); }
    /// Null unless the area is a polygon.
    const XmlAreaPolyType* areaPoly() const { return m_areaPoly.get(); }
    /// Makes the area a copy of the polygon; deletes the rectangle.
    void setAreaPoly(const XmlAreaPolyType& poly);
    /// The parameters of the transmitters assumed in the area.
    const XmlTxParamType* txParam() const { return &m_txParam; }
    void setTxParam(const XmlTxParamType& parameters) { m_txParam = parameters; }
    bool hasRxThreshold() const { return bool(m_rxThreshold); }
    /// Null when absent; setRxThres() stores a copy.
    const XmlFieldstrengthType* RxThres() const { return m_rxThreshold.get(); }
    void setRxThres(const XmlFieldstrengthType& threshold) { m_rxThreshold.assign(threshold); }

private:
    static const XmlLayout& layout();

    XmlObjNameType m_objName;
    XmlOwnedPtr<XmlAreaRectType> m_areaRect;
    XmlOwnedPtr<XmlAreaPolyType> m_areaPoly;
    XmlTxParamType m_txParam;
    XmlOwnedPtr<XmlFieldstrengthType> m_rxThreshold;
};

} // namespace KelXml
