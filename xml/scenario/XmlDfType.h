#pragma once

#include "XmlComposite.h"
#include "XmlCoordinateType.h"
#include "XmlDfPrecisionType.h"
#include "XmlObjNameType.h"
#include "XmlOwned.h"
#include "XmlRxParamType.h"
#include "XmlStationInterlinkType.h"

namespace KelXml {

/// A direction finder:
/// `<DF version="1.0"><Name/><Position/><RxParameter/><DFprecision/>`
/// `<StationInterlink/></DF>`, the interlink optional.
///
/// Reading refuses any version but "1.0". The interlink is taken wherever it
/// stands, even first, but once it was read no other child is taken.
/// \ingroup scenario
class KELXML_EXPORT XmlDfType : public XmlVersionedComposite
{
public:
    XmlDfType();

    const XmlObjNameType* objName() const { return &m_objName; }
    void setObjName(const XmlObjNameType& name) { m_objName = name; }
    const XmlCoordinateType* position() const { return &m_position; }
    void setPosition(const XmlCoordinateType& position) { m_position = position; }
    const XmlRxParamType* rxParam() const { return &m_rxParam; }
    void setRxParam(const XmlRxParamType& parameters) { m_rxParam = parameters; }
    /// The bearing precision in degrees.
    const XmlDfPrecisionType* dfPrecision() const { return &m_dfPrecision; }
    void setDfPrecision(const XmlDfPrecisionType& precision) { m_dfPrecision = precision; }
    bool hasInterlink() const { return bool(m_interlink); }
    /// Null when absent; setInterlink() stores a copy.
    const XmlStationInterlinkType* interlink() const { return m_interlink.get(); }
    void setInterlink(const XmlStationInterlinkType& interlink) { m_interlink.assign(interlink); }

private:
    static const XmlLayout& layout();

    XmlObjNameType m_objName;
    XmlCoordinateType m_position;
    XmlRxParamType m_rxParam;
    XmlDfPrecisionType m_dfPrecision;
    XmlOwnedPtr<XmlStationInterlinkType> m_interlink;
};

} // namespace KelXml
