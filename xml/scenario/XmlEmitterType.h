#pragma once

#include "XmlComposite.h"
#include "XmlCoordinateType.h"
#include "XmlObjNameType.h"
#include "XmlTxParamType.h"

namespace KelXml {

/// A known emitter:
/// `<Emitter version="1.0"><Name/><Position/><TxParameter/></Emitter>`.
/// Reading refuses any version but "1.0".
/// \ingroup scenario
class KELXML_EXPORT XmlEmitterType : public XmlVersionedComposite
{
public:
    XmlEmitterType();

    const XmlObjNameType* objName() const { return &m_objName; }
    void setObjName(const XmlObjNameType& name) { m_objName = name; }
    const XmlCoordinateType* position() const { return &m_position; }
    void setPosition(const XmlCoordinateType& position) { m_position = position; }
    const XmlTxParamType* txParam() const { return &m_txParam; }
    void setTxParam(const XmlTxParamType& parameters) { m_txParam = parameters; }

private:
    static const XmlLayout& layout();

    XmlObjNameType m_objName;
    XmlCoordinateType m_position;
    XmlTxParamType m_txParam;
};

} // namespace KelXml
