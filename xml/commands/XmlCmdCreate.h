#pragma once

#include "XmlAoiType.h"
#include "XmlCmdBase.h"
#include "XmlDeploymentAreaType.h"
#include "XmlDeviceType.h"
#include "XmlDfType.h"
#include "XmlEmitterType.h"
#include "XmlReceiverType.h"
#include "XmlSignalPathType.h"
#include "XmlStationType.h"

namespace KelXml {

/// Adds one scenario object: `<Create><Station>...</Station><Reference>..</Reference></Create>`.
/// The signal path is read from "Path" but written as "SignalPath", which the
/// reader refuses: a written signal path does not read back. Exactly one
/// object makes a valid command; the setters do not clear the other kinds.
/// \ingroup commands
class KELXML_EXPORT XmlCmdCreate : public XmlCmdBase
{
public:
    XmlCmdCreate();

    bool hasDeploymentArea() const { return bool(m_deploymentArea); }
    /// Null when absent; setDeploymentArea() stores a copy.
    const XmlDeploymentAreaType* deploymentArea() const { return m_deploymentArea.get(); }
    void setDeploymentArea(const XmlDeploymentAreaType& area) { m_deploymentArea.assign(area); }
    bool hasAoi() const { return bool(m_aoi); }
    /// Null when absent; setAoi() stores a copy.
    const XmlAoiType* aoi() const { return m_aoi.get(); }
    void setAoi(const XmlAoiType& aoi) { m_aoi.assign(aoi); }
    bool hasEmitter() const { return bool(m_emitter); }
    /// Null when absent; setEmitter() stores a copy.
    const XmlEmitterType* emitter() const { return m_emitter.get(); }
    void setEmitter(const XmlEmitterType& emitter) { m_emitter.assign(emitter); }
    bool hasReceiver() const { return bool(m_receiver); }
    /// Null when absent; setReceiver() stores a copy.
    const XmlReceiverType* receiver() const { return m_receiver.get(); }
    void setReceiver(const XmlReceiverType& receiver) { m_receiver.assign(receiver); }
    bool hasDf() const { return bool(m_df); }
    /// Null when absent; setDf() stores a copy.
    const XmlDfType* df() const { return m_df.get(); }
    void setDf(const XmlDfType& df) { m_df.assign(df); }
    bool hasStation() const { return bool(m_station); }
    /// Null when absent; setStation() stores a copy.
    const XmlStationType* station() const { return m_station.get(); }
    void setStation(const XmlStationType& station) { m_station.assign(station); }
    bool hasSignalPath() const { return bool(m_signalPath); }
    /// Null when absent; setSignalPath() stores a copy.
    const XmlSignalPathType* signalPath() const { return m_signalPath.get(); }
    void setSignalPath(const XmlSignalPathType& path) { m_signalPath.assign(path); }
    bool hasDevice() const { return bool(m_device); }
    /// Null when absent; setDevice() stores a copy.
    const XmlDeviceType* device() const { return m_device.get(); }
    void setDevice(const XmlDeviceType& device) { m_device.assign(device); }

private:
    static const XmlLayout& layout();

    XmlOwnedPtr<XmlDeploymentAreaType> m_deploymentArea;
    XmlOwnedPtr<XmlAoiType> m_aoi;
    XmlOwnedPtr<XmlEmitterType> m_emitter;
    XmlOwnedPtr<XmlReceiverType> m_receiver;
    XmlOwnedPtr<XmlDfType> m_df;
    XmlOwnedPtr<XmlStationType> m_station;
    XmlOwnedPtr<XmlSignalPathType> m_signalPath;
    XmlOwnedPtr<XmlDeviceType> m_device;
};

} // namespace KelXml
