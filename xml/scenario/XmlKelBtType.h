#pragma once

#include "XmlAoiType.h"
#include "XmlComposite.h"
#include "XmlDeploymentAreaType.h"
#include "XmlDfType.h"
#include "XmlEmitterType.h"
#include "XmlOwned.h"
#include "XmlReceiverType.h"
#include "XmlResInfo_Cep_Type.h"
#include "XmlResInfo_DetectProb_Type.h"
#include "XmlResInfo_DfCov_Type.h"
#include "XmlResInfo_FindSites_Type.h"

#include <QList>

#include <vector>

namespace KelXml {

/// A scenario snapshot, under a root element named by the caller:
/// `<Root version="1.0"><ScreenshotPath>view.png</ScreenshotPath>`
/// `<DisplayedObjects>...</DisplayedObjects></Root>`, the displayed objects
/// grouped by kind in the order DeploymentArea, AreaOfInterest, KnownEmitter,
/// Receiver, DirectionFinder, Result_FindSites, Result_CEP, Result_DetectProb,
/// Result_DfCoverage, each kind any number of times.
///
/// Only non-empty text marks the path as read: after an empty ScreenshotPath
/// the DisplayedObjects element is refused. Reading refuses any version but
/// "1.0" and adds to the lists held: reset() first to reuse a document.
/// \ingroup scenario
class KELXML_EXPORT XmlKelBtType : public XmlVersionedComposite
{
public:
    XmlKelBtType();

    void reset() override;

    /// The path of the screenshot that goes with the snapshot, as the client gave it.
    const QString& screenshotPath() const { return m_screenshotPath; }
    void setScreenshotPath(const QString& path) { m_screenshotPath = path; }

    /// Per kind: addX() appends a copy; hasX() is the number held (not a flag);
    /// the getter lists the document's own objects, in order.
    void addDeployment(const XmlDeploymentAreaType& area) { m_deployments.appendCopy(area); }
    /// The number of deployment areas held.
    int hasDeployments() const { return m_deployments.size(); }
    /// Owned by the document, in order; reading appends to them.
    QList<XmlDeploymentAreaType*> deployments() const { return m_deployments.list(); }
    void addAoi(const XmlAoiType& aoi) { m_aois.appendCopy(aoi); }
    /// The number of areas of interest held.
    int hasAois() const { return m_aois.size(); }
    /// Owned by the document, in order; reading appends to them.
    QList<XmlAoiType*> aois() const { return m_aois.list(); }
    void addKnownEmitter(const XmlEmitterType& emitter) { m_knownEmitters.appendCopy(emitter); }
    /// The number of known emitters held.
    int hasKnownEmitters() const { return m_knownEmitters.size(); }
    /// Owned by the document, in order; reading appends to them.
    QList<XmlEmitterType*> knownEmitters() const { return m_knownEmitters.list(); }
    void addReceiver(const XmlReceiverType& receiver) { m_receivers.appendCopy(receiver); }
    /// The number of receivers held.
    int hasReceivers() const { return m_receivers.size(); }
    /// Owned by the document, in order; reading appends to them.
    QList<XmlReceiverType*> receivers() const { return m_receivers.list(); }
    void addDf(const XmlDfType& df) { m_dfs.appendCopy(df); }
    /// The number of direction finders held.
    int hasDfs() const { return m_dfs.size(); }
    /// Owned by the document, in order; reading appends to them.
    QList<XmlDfType*> dfs() const { return m_dfs.list(); }
    void addResFindSite(const XmlResInfo_FindSites_Type& result)
    {
        m_resFindSite.appendCopy(result);
    }
    /// The number of possible-sites results held.
    int hasResFindSite() const { return m_resFindSite.size(); }
    /// Owned by the document, in order; reading appends to them.
    QList<XmlResInfo_FindSites_Type*> resFindSite() const { return m_resFindSite.list(); }
    void addResCep(const XmlResInfo_Cep_Type& result) { m_resCep.appendCopy(result); }
    /// The number of CEP results held.
    int hasResCep() const { return m_resCep.size(); }
    /// Owned by the document, in order; reading appends to them.
    QList<XmlResInfo_Cep_Type*> resCep() const { return m_resCep.list(); }
    void addResDetectProb(const XmlResInfo_DetectProb_Type& result)
    {
        m_resDetectProb.appendCopy(result);
    }
    /// The number of detection-probability results held.
    int hasResDetectProb() const { return m_resDetectProb.size(); }
    /// Owned by the document, in order; reading appends to them.
    QList<XmlResInfo_DetectProb_Type*> resDetectProb() const { return m_resDetectProb.list(); }
    void addResDfCov(const XmlResInfo_DfCov_Type& result) { m_resDfCov.appendCopy(result); }
    /// The number of DF-coverage results held.
    int hasResDfCov() const { return m_resDfCov.size(); }
    /// Owned by the document, in order; reading appends to them.
    QList<XmlResInfo_DfCov_Type*> resDfCov() const { return m_resDfCov.list(); }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    static const XmlLayout& layout();

    QString m_screenshotPath;
    XmlOwnedList<XmlDeploymentAreaType> m_deployments;
    XmlOwnedList<XmlAoiType> m_aois;
    XmlOwnedList<XmlEmitterType> m_knownEmitters;
    XmlOwnedList<XmlReceiverType> m_receivers;
    XmlOwnedList<XmlDfType> m_dfs;
    XmlOwnedList<XmlResInfo_FindSites_Type> m_resFindSite;
    XmlOwnedList<XmlResInfo_Cep_Type> m_resCep;
    XmlOwnedList<XmlResInfo_DetectProb_Type> m_resDetectProb;
    XmlOwnedList<XmlResInfo_DfCov_Type> m_resDfCov;
};

} // namespace KelXml
