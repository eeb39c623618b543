#pragma once

#include "XmlBandwidthType.h"
#include "XmlComposite.h"
#include "XmlFreqType.h"
#include "XmlLengthType.h"
#include "XmlPowerType.h"

namespace KelXml {

/// The radio parameters of an assumed transmitter:
/// `<TxParameter version="1.0"><Frequency/><TxPower/><AntennaHeight/><Bandwidth/></TxParameter>`.
/// Reading keeps an unsupported version; only the report refuses it.
/// \ingroup scenario
class KELXML_EXPORT XmlTxParamType : public XmlVersionedComposite
{
public:
    XmlTxParamType();

    const XmlFreqType* frequency() const { return &m_frequency; }
    void setFrequency(const XmlFreqType& frequency) { m_frequency = frequency; }
    const XmlPowerType* txPower() const { return &m_txPower; }
    void setTxPower(const XmlPowerType& power) { m_txPower = power; }
    const XmlLengthType* antennaHeight() const { return &m_antennaHeight; }
    void setAntennaHeight(const XmlLengthType& height) { m_antennaHeight = height; }
    const XmlBandwidthType* bandwidth() const { return &m_bandwidth; }
    void setBandwidth(const XmlBandwidthType& bandwidth) { m_bandwidth = bandwidth; }

private:
    static const XmlLayout& layout();

    XmlFreqType m_frequency;
    XmlPowerType m_txPower;
    XmlLengthType m_antennaHeight;
    XmlBandwidthType m_bandwidth;
};

} // namespace KelXml
