#include "XmlKelBtType.h"

#include "XmlLayout.h"

namespace KelXml {

namespace {
// Only text marks the path as read: an empty path leaves it unread.
bool takePath(XmlKelBtType& self, QStringView text)
{
    self.setScreenshotPath(text.toString());
    return true;
}
QString givePath(const XmlKelBtType& self)
{
    return self.screenshotPath();
}
} // namespace

// The path, then the nine kinds of displayed objects inside DisplayedObjects,
// in document order: each any number of times, and a kind passed cannot come
// back.
const XmlLayout& XmlKelBtType::layout()
{
    using Self = XmlKelBtType;
    static const XmlLayout layout(
        "XmlKelBtType", XmlElementReader::TextWording, XmlLayout::CheckedVersion,
        {
            XmlField::characters("ScreenshotPath", &takePath, &givePath),
            XmlField::wrapper("DisplayedObjects",
                              {
                                  XmlField::list("DeploymentArea", &Self::m_deployments),
                                  XmlField::list("AreaOfInterest", &Self::m_aois),
                                  XmlField::list("KnownEmitter", &Self::m_knownEmitters),
                                  XmlField::list("Receiver", &Self::m_receivers),
                                  XmlField::list("DirectionFinder", &Self::m_dfs),
                                  XmlField::list("Result_FindSites", &Self::m_resFindSite),
                                  XmlField::list("Result_CEP", &Self::m_resCep),
                                  XmlField::list("Result_DetectProb", &Self::m_resDetectProb),
                                  XmlField::list("Result_DfCoverage", &Self::m_resDfCov),
                              })
                .after({"ScreenshotPath"}),
        });
    return layout;
}

XmlKelBtType::XmlKelBtType()
    : XmlVersionedComposite(layout())
{}

void XmlKelBtType::checkContent(XmlChecks& checks) const
{
    checkVersion(checks);
    checks.expect(!m_screenshotPath.isEmpty(), QStringLiteral("Screen shot path is empty"));
    checkChildren(checks);
}

void XmlKelBtType::reset()
{
    m_screenshotPath.clear();
    XmlComposite::reset();
}

} // namespace KelXml
