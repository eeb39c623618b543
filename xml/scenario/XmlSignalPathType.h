#pragma once

#include "XmlComposite.h"
#include "XmlDeviceListType.h"
#include "XmlMapListType.h"
#include "XmlObjNameType.h"
#include "XmlOwned.h"
#include "XmlSinadType.h"

namespace KelXml {

/// The receive chain of a station, from antenna to receiver:
/// `<SignalPath version="1.0"><Name/><SINAD/><Device><Device/>...</Device>`
/// `<AntHgtMap/><CabLenMap/></SignalPath>`, the two maps optional.
/// Reading refuses any version but "1.0".
/// \ingroup scenario
class KELXML_EXPORT XmlSignalPathType : public XmlVersionedComposite
{
public:
    XmlSignalPathType();

    const XmlObjNameType* objName() const { return &m_objName; }
    void setObjName(const XmlObjNameType& name) { m_objName = name; }
    /// The SINAD the receiver needs.
    const XmlSinadType* sinad() const { return &m_sinad; }
    void setSinad(const XmlSinadType& sinad) { m_sinad = sinad; }
    const XmlDeviceListType* devices() const { return &m_devices; }
    void setDevices(const XmlDeviceListType& devices) { m_devices = devices; }
    bool hasAnt() const { return bool(m_antHgtMap); }
    /// The antenna height map, key to height in metres; null when absent.
    /// setAnt() stores a copy.
    const XmlMapListType* ant() const { return m_antHgtMap.get(); }
    void setAnt(const XmlMapListType& map) { m_antHgtMap.assign(map); }
    bool hasCab() const { return bool(m_cabLenMap); }
    /// The cable length map, key to length in metres; null when absent.
    /// setCab() stores a copy.
    const XmlMapListType* cab() const { return m_cabLenMap.get(); }
    void setCab(const XmlMapListType& map) { m_cabLenMap.assign(map); }

private:
    static const XmlLayout& layout();

    XmlObjNameType m_objName;
    XmlSinadType m_sinad;
    XmlDeviceListType m_devices;
    XmlOwnedPtr<XmlMapListType> m_antHgtMap;
    XmlOwnedPtr<XmlMapListType> m_cabLenMap;
};

} // namespace KelXml
