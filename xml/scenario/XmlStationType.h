#pragma once

#include "XmlComposite.h"
#include "XmlCoordinateType.h"
#include "XmlDfPrecisionType.h"
#include "XmlObjNameType.h"
#include "XmlOwned.h"
#include "XmlRxParamType.h"
#include "XmlSignalPathType.h"
#include "XmlStationInterlinkType.h"

namespace KelXml {

/// A monitoring or direction-finding site: a name and a position, and
/// optionally its signal path, receive parameters, direction-finding precision
/// and interlink:
/// `<Station><Name/><SignalPath/><Position/><RxParameter/><DFprecision/>`
/// `<StationInterlink/></Station>`.
///
/// No version attribute. Reading starts on the next token wherever the reader
/// stands, and refused tags are named in the message.
/// \ingroup scenario
class KELXML_EXPORT XmlStationType : public XmlComposite
{
public:
    XmlStationType();

    const XmlObjNameType* objName() const { return &m_objName; }
    void setObjName(const XmlObjNameType& name) { m_objName = name; }
    bool hasSignalPath() const { return bool(m_signalPath); }
    /// Null when absent; setSignalPath() stores a copy.
    const XmlSignalPathType* signalPath() const { return m_signalPath.get(); }
    void setSignalPath(const XmlSignalPathType& path) { m_signalPath.assign(path); }
    const XmlCoordinateType* position() const { return &m_position; }
    void setPosition(const XmlCoordinateType& position) { m_position = position; }
    bool hasRxParam() const { return bool(m_rxParam); }
    /// Null when absent; setRxParam() stores a copy.
    const XmlRxParamType* rxParam() const { return m_rxParam.get(); }
    void setRxParam(const XmlRxParamType& parameters) { m_rxParam.assign(parameters); }
    bool hasDfPrecision() const { return bool(m_dfPrecision); }
    /// Null when absent; setDfPrecision() stores a copy.
    const XmlDfPrecisionType* dfPrecision() const { return m_dfPrecision.get(); }
    void setDfPrecision(const XmlDfPrecisionType& precision) { m_dfPrecision.assign(precision); }
    bool hasInterlink() const { return bool(m_interlink); }
    /// Null when absent; setInterlink() stores a copy.
    const XmlStationInterlinkType* interlink() const { return m_interlink.get(); }
    void setInterlink(const XmlStationInterlinkType& interlink) { m_interlink.assign(interlink); }

private:
    static const XmlLayout& layout();

    XmlObjNameType m_objName;
    XmlOwnedPtr<XmlSignalPathType> m_signalPath;
    XmlCoordinateType m_position;
    XmlOwnedPtr<XmlRxParamType> m_rxParam;
    XmlOwnedPtr<XmlDfPrecisionType> m_dfPrecision;
    XmlOwnedPtr<XmlStationInterlinkType> m_interlink;
};

} // namespace KelXml
