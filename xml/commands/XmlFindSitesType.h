#pragma once

#include "XmlComposite.h"
#include "XmlNameAllMultiType.h"
#include "XmlOwned.h"
#include "XmlResultGridType.h"

namespace KelXml {

/// A request for possible sensor sites, judged against known emitters and/or
/// randomly placed ones:
/// `<FindPossibleSites>[<UseKnownEmitters/>]`
/// `[<RandomEmitters><Number>10</Number><Distribution>Grid</Distribution></RandomEmitters>]`
/// `<DeploymentAreas/>[<ResultGrid/>]</FindPossibleSites>`.
/// No version. A count of -1 means no random emitters.
/// \ingroup commands
class KELXML_EXPORT XmlFindSitesType : public XmlComposite
{
public:
    enum Distribution
    {
        DistributionUndefined = 0, ///< written "UNDEFINED", never accepted
        DistributionRandom,
        DistributionGrid,
    };

    XmlFindSitesType();

    void reset() override;

    bool hasKnownEmitters() const { return bool(m_knownEmitters); }
    /// Null when absent; setKnownEmitters() stores a copy.
    const XmlNameAllMultiType* knownEmitters() const { return m_knownEmitters.get(); }
    void setKnownEmitters(const XmlNameAllMultiType& emitters) { m_knownEmitters.assign(emitters); }
    /// The number of random emitters, at most 500; -1 means none.
    int randNumber() const { return m_randNumber; }
    void setRandNumber(int number) { m_randNumber = number; }
    /// How the random emitters are spread over the deployment areas.
    Distribution randDistri() const { return m_randDistri; }
    void setRandDistri(Distribution distribution) { m_randDistri = distribution; }
    /// A distribution is set and the count is not negative.
    bool hasRandEmitters() const;
    const XmlNameAllMultiType* deploymentAreas() const { return &m_deploymentAreas; }
    void setDeploymentAreas(const XmlNameAllMultiType& areas) { m_deploymentAreas = areas; }
    bool hasResultGrid() const { return bool(m_resultGrid); }
    /// Null when absent; setResultGrid() stores a copy.
    const XmlResultGridType* resultGrid() const { return m_resultGrid.get(); }
    void setResultGrid(const XmlResultGridType& grid) { m_resultGrid.assign(grid); }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    static const XmlLayout& layout();

    XmlOwnedPtr<XmlNameAllMultiType> m_knownEmitters;
    int m_randNumber;
    Distribution m_randDistri;
    XmlNameAllMultiType m_deploymentAreas;
    XmlOwnedPtr<XmlResultGridType> m_resultGrid;
};

} // namespace KelXml
