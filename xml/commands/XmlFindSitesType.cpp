#include "XmlFindSitesType.h"

#include "XmlEnumTexts.h"
#include "XmlLayout.h"

namespace KelXml {

namespace {
const XmlEnumTexts distributionTexts({{XmlFindSitesType::DistributionRandom, "Random"},
                                      {XmlFindSitesType::DistributionGrid, "Grid"}},
                                     "UNDEFINED");

const int noRandomEmitters = -1;
const int maxRandomEmitters = 500;
} // namespace

// Reading starts on the next token, wherever the reader stands. The
// RandomEmitters block counts as read only when it closes holding both Number
// and Distribution; it is written only while it holds random emitters.
const XmlLayout& XmlFindSitesType::layout()
{
    using Self = XmlFindSitesType;
    static const XmlLayout layout =
        XmlLayout("XmlFindSitesType", XmlElementReader::NamedWording, XmlLayout::NoVersion,
                  {
                      XmlField::optional("UseKnownEmitters", &Self::m_knownEmitters).replaced(),
                      XmlField::wrapper(
                          "RandomEmitters",
                          {
                              XmlField::number("Number", &Self::m_randNumber, noRandomEmitters,
                                               "Illegal value for \"Number\" (must be numeric)"),
                              XmlField::enumeration("Distribution", &Self::m_randDistri,
                                                    distributionTexts,
                                                    "Illegal value for \"Distribution\""),
                          })
                          .notRequired()
                          .writtenWhen(&Self::hasRandEmitters),
                      XmlField::object("DeploymentAreas", &Self::m_deploymentAreas),
                      XmlField::optional("ResultGrid", &Self::m_resultGrid).replaced(),
                  })
            .withoutPositionTest();
    return layout;
}

XmlFindSitesType::XmlFindSitesType()
    : XmlComposite(layout())
    , m_randNumber(noRandomEmitters)
    , m_randDistri(DistributionUndefined)
{}

bool XmlFindSitesType::hasRandEmitters() const
{
    return m_randDistri != DistributionUndefined && m_randNumber >= 0;
}

void XmlFindSitesType::checkContent(XmlChecks& checks) const
{
    // The report order differs from the writing order: the deployment areas
    // come first.
    checks.child(const_cast<XmlNameAllMultiType*>(&m_deploymentAreas));
    checks.child(m_knownEmitters.get());
    checks.expect(m_randNumber >= noRandomEmitters && m_randNumber <= maxRandomEmitters,
                  QStringLiteral("RandomEmitters/Number out of bounds"));
    checks.expect(m_randNumber < 0 || m_randDistri != DistributionUndefined,
                  QStringLiteral("RandomEmitters distribution not set"));
    checks.child(m_resultGrid.get());
}

void XmlFindSitesType::reset()
{
    m_randNumber = noRandomEmitters;
    m_randDistri = DistributionUndefined;
    XmlComposite::reset();
}

} // namespace KelXml
