#pragma once

#include "XmlBestSensorType.h"
#include "XmlCepType.h"
#include "XmlCmdBase.h"
#include "XmlDetectProbType.h"
#include "XmlDfCovType.h"
#include "XmlFindSitesType.h"
#include "XmlInterlinkPlanningType.h"

namespace KelXml {

/// One calculation to run: `<Calculate><CEP>...</CEP><Reference>..</Reference></Calculate>`.
/// Exactly one of the six requests makes a valid command; the setters do not
/// clear the other kinds, so setting two gives an invalid command.
/// \ingroup commands
class KELXML_EXPORT XmlCmdCalc : public XmlCmdBase
{
public:
    XmlCmdCalc();

    bool hasFindSites() const { return bool(m_findSites); }
    /// Null when absent; setFindSites() stores a copy.
    const XmlFindSitesType* findSites() const { return m_findSites.get(); }
    void setFindSites(const XmlFindSitesType& request) { m_findSites.assign(request); }
    bool hasCep() const { return bool(m_cep); }
    /// Null when absent; setCep() stores a copy.
    const XmlCepType* cep() const { return m_cep.get(); }
    void setCep(const XmlCepType& request) { m_cep.assign(request); }
    bool hasDetectProb() const { return bool(m_detectProb); }
    /// Null when absent; setDetectProb() stores a copy.
    const XmlDetectProbType* detectProb() const { return m_detectProb.get(); }
    void setDetectProb(const XmlDetectProbType& request) { m_detectProb.assign(request); }
    bool hasDfCov() const { return bool(m_dfCov); }
    /// Null when absent; setDfCov() stores a copy.
    const XmlDfCovType* dfCov() const { return m_dfCov.get(); }
    void setDfCov(const XmlDfCovType& request) { m_dfCov.assign(request); }
    bool hasInterlink() const { return bool(m_interlink); }
    /// Null when absent; setInterlink() stores a copy.
    const XmlInterlinkPlanningType* interlink() const { return m_interlink.get(); }
    void setInterlink(const XmlInterlinkPlanningType& request) { m_interlink.assign(request); }
    bool hasBestSensor() const { return bool(m_bestSensor); }
    /// Null when absent; setBestSensor() stores a copy.
    const XmlBestSensorType* bestSensor() const { return m_bestSensor.get(); }
    void setBestSensor(const XmlBestSensorType& request) { m_bestSensor.assign(request); }

private:
    static const XmlLayout& layout();

    XmlOwnedPtr<XmlFindSitesType> m_findSites;
    XmlOwnedPtr<XmlCepType> m_cep;
    XmlOwnedPtr<XmlDetectProbType> m_detectProb;
    XmlOwnedPtr<XmlDfCovType> m_dfCov;
    XmlOwnedPtr<XmlInterlinkPlanningType> m_interlink;
    XmlOwnedPtr<XmlBestSensorType> m_bestSensor;
};

} // namespace KelXml
