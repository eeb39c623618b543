#pragma once

#include "XmlAreaPolyType.h"
#include "XmlAreaRectType.h"
#include "XmlComposite.h"
#include "XmlFieldstrengthType.h"
#include "XmlFreqType.h"
#include "XmlLengthType.h"
#include "XmlObjNameType.h"
#include "XmlOwned.h"
#include "XmlPowerType.h"
#include "XmlSignalPathType.h"

namespace KelXml {

/// An area in which sensors may be sited:
/// `<DeploymentArea version="1.0"><SignalPath/><Name/><AreaRect/> or <AreaPolygon/>`
/// `<AntennaHeight/><RxThreshold/><Frequency/><TxPower/></DeploymentArea>`,
/// the signal path optional.
///
/// Exactly one shape is wanted; installing one, by reading or by a setter,
/// deletes the other. The signal path may stand before or after the name.
/// Reading refuses any version but "1.0".
/// \ingroup scenario
class KELXML_EXPORT XmlDeploymentAreaType : public XmlVersionedComposite
{
public:
    XmlDeploymentAreaType();

    bool hasSignalPath() const { return bool(m_signalPath); }
    /// Null when absent; setSignalPath() stores a copy.
    const XmlSignalPathType* signalPath() const { return m_signalPath.get(); }
    void setSignalPath(const XmlSignalPathType& path) { m_signalPath.assign(path); }
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
    /// The antenna height of a sensor sited in the area.
    const XmlLengthType* antHgt() const { return &m_antennaHeight; }
    void setAngtHgt(const XmlLengthType& height) { m_antennaHeight = height; }
    /// The receiver threshold of a sensor sited in the area.
    const XmlFieldstrengthType* rxThresh() const { return &m_rxThreshold; }
    void setRxThresh(const XmlFieldstrengthType& threshold) { m_rxThreshold = threshold; }
    /// The frequency of the transmitters to be detected.
    const XmlFreqType* txFreq() const { return &m_frequency; }
    void setTxFreq(const XmlFreqType& frequency) { m_frequency = frequency; }
    /// The power of the transmitters to be detected.
    const XmlPowerType* txPower() const { return &m_txPower; }
    void setTxPower(const XmlPowerType& power) { m_txPower = power; }

private:
    static const XmlLayout& layout();

    XmlOwnedPtr<XmlSignalPathType> m_signalPath;
    XmlObjNameType m_objName;
    XmlOwnedPtr<XmlAreaRectType> m_areaRect;
    XmlOwnedPtr<XmlAreaPolyType> m_areaPoly;
    XmlLengthType m_antennaHeight;
    XmlFieldstrengthType m_rxThreshold;
    XmlFreqType m_frequency;
    XmlPowerType m_txPower;
};

} // namespace KelXml
