#pragma once

#include "XmlComposite.h"
#include "XmlFieldstrengthType.h"
#include "XmlLengthType.h"

namespace KelXml {

/// The receive parameters of a station:
/// `<RxParameter version="1.0"><AntennaHeight/><RxThreshold/></RxParameter>`.
/// Reading keeps an unsupported version; only the report refuses it.
/// \ingroup scenario
class KELXML_EXPORT XmlRxParamType : public XmlVersionedComposite
{
public:
    XmlRxParamType();

    const XmlLengthType* antennaHeight() const { return &m_antennaHeight; }
    void setAntennaHeight(const XmlLengthType& height) { m_antennaHeight = height; }
    /// The receiver threshold.
    const XmlFieldstrengthType* rxThres() const { return &m_rxThreshold; }
    void setRxThres(const XmlFieldstrengthType& threshold) { m_rxThreshold = threshold; }

private:
    static const XmlLayout& layout();

    XmlLengthType m_antennaHeight;
    XmlFieldstrengthType m_rxThreshold;
};

} // namespace KelXml
