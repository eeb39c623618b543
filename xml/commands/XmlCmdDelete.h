#pragma once

#include "XmlCmdBase.h"
#include "XmlNameAllType.h"

namespace KelXml {

/// Removes scenario objects of one kind, one named object or all of them:
/// `<Delete><Emitter><All/></Emitter><Reference>..</Reference></Delete>`.
/// Exactly one kind makes a valid command. The command document does not
/// consult its delete commands when it checks itself.
/// \ingroup commands
class KELXML_EXPORT XmlCmdDelete : public XmlCmdBase
{
public:
    XmlCmdDelete();

    bool hasDeploy() const { return bool(m_deploy); }
    /// Null when absent; setDeploy() stores a copy.
    const XmlNameAllType* deploy() const { return m_deploy.get(); }
    void setDeploy(const XmlNameAllType& selection) { m_deploy.assign(selection); }
    bool hasAoi() const { return bool(m_aoi); }
    /// Null when absent; setAoi() stores a copy.
    const XmlNameAllType* aoi() const { return m_aoi.get(); }
    void setAoi(const XmlNameAllType& selection) { m_aoi.assign(selection); }
    bool hasEmitter() const { return bool(m_emitter); }
    /// Null when absent; setEmitter() stores a copy.
    const XmlNameAllType* emitter() const { return m_emitter.get(); }
    void setEmitter(const XmlNameAllType& selection) { m_emitter.assign(selection); }
    bool hasReceiver() const { return bool(m_receiver); }
    /// Null when absent; setReceiver() stores a copy.
    const XmlNameAllType* receiver() const { return m_receiver.get(); }
    void setReceiver(const XmlNameAllType& selection) { m_receiver.assign(selection); }
    bool hasDf() const { return bool(m_df); }
    /// Null when absent; setDf() stores a copy.
    const XmlNameAllType* df() const { return m_df.get(); }
    void setDf(const XmlNameAllType& selection) { m_df.assign(selection); }
    bool hasDevice() const { return bool(m_device); }
    /// Null when absent; setDevice() stores a copy.
    const XmlNameAllType* device() const { return m_device.get(); }
    void setDevice(const XmlNameAllType& selection) { m_device.assign(selection); }
    bool hasSignalPath() const { return bool(m_signalPath); }
    /// Null when absent; setSignalPath() stores a copy.
    const XmlNameAllType* signalPath() const { return m_signalPath.get(); }
    void setSignalPath(const XmlNameAllType& selection) { m_signalPath.assign(selection); }
    bool hasStation() const { return bool(m_station); }
    /// Null when absent; setStation() stores a copy.
    const XmlNameAllType* station() const { return m_station.get(); }
    void setStation(const XmlNameAllType& selection) { m_station.assign(selection); }

private:
    static const XmlLayout& layout();

    XmlOwnedPtr<XmlNameAllType> m_deploy;
    XmlOwnedPtr<XmlNameAllType> m_aoi;
    XmlOwnedPtr<XmlNameAllType> m_emitter;
    XmlOwnedPtr<XmlNameAllType> m_receiver;
    XmlOwnedPtr<XmlNameAllType> m_df;
    XmlOwnedPtr<XmlNameAllType> m_device;
    XmlOwnedPtr<XmlNameAllType> m_signalPath;
    XmlOwnedPtr<XmlNameAllType> m_station;
};

} // namespace KelXml
