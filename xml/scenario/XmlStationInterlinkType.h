#pragma once

#include "XmlComposite.h"
#include "XmlFieldstrengthType.h"
#include "XmlFreqType.h"
#include "XmlLengthType.h"
#include "XmlPowerType.h"

namespace KelXml {

/// The radio parameters of a station's link to the network:
/// `<StationInterlink version="1.0"><Frequency/><TxPower/><RxThreshold/>`
/// `<AntennaHeight/></StationInterlink>`.
///
/// The power is read from `<TxPower>` but written as `<Power>`, so a written
/// interlink is refused by its own reader. Reading keeps an unsupported
/// version; only the report refuses it.
/// \ingroup scenario
class KELXML_EXPORT XmlStationInterlinkType : public XmlVersionedComposite
{
public:
    XmlStationInterlinkType();

    const XmlFreqType* freq() const { return &m_frequency; }
    void setFreq(const XmlFreqType& frequency) { m_frequency = frequency; }
    const XmlPowerType* power() const { return &m_power; }
    void setPower(const XmlPowerType& power) { m_power = power; }
    /// The receiver threshold of the link.
    const XmlFieldstrengthType* rxThresh() const { return &m_rxThreshold; }
    void setRxThresh(const XmlFieldstrengthType& threshold) { m_rxThreshold = threshold; }
    /// The height of the link's antenna.
    const XmlLengthType* antHgt() const { return &m_antennaHeight; }
    void setAntHgt(const XmlLengthType& height) { m_antennaHeight = height; }

private:
    static const XmlLayout& layout();

    XmlFreqType m_frequency;
    XmlPowerType m_power;
    XmlFieldstrengthType m_rxThreshold;
    XmlLengthType m_antennaHeight;
};

} // namespace KelXml
