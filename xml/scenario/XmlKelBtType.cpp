#include "XmlKelBtType.h"

#include "XmlElementReader.h"
#include "XmlKit.h"
#include "XmlLayout.h"

namespace KelXml {

namespace {
const QString screenshotPathElement = QStringLiteral("ScreenshotPath");
const QString displayedObjectsElement = QStringLiteral("DisplayedObjects");
} // namespace

// The nine kinds of displayed objects inside DisplayedObjects, in document
// order: each any number of times, and a kind passed cannot come back.
const XmlLayout& XmlKelBtType::displayedObjects()
{
    using Self = XmlKelBtType;
    static const XmlLayout layout("XmlKelBtType", XmlElementReader::TextWording,
                                  XmlLayout::NoVersion,
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
                                  });
    return layout;
}

XmlKelBtType::XmlKelBtType()
    : XmlVersionedComposite(displayedObjects())
{}

void XmlKelBtType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    XmlElementReader in(*this, reader, elementName, XmlElementReader::TextWording);
    if (!in.begin(m_version) || !in.checkVersion(m_version))
        return;
    struct Tokens : XmlElementReader::Tokens
    {
        XmlKelBtType& self;
        XmlElementReader& in;
        // The path counts as read only once text stood in it. The wrapper opens
        // after the path, until it closed once.
        bool pathRead = false;
        bool inPath = false;
        bool inObjects = false;
        bool objectsClosed = false;
        XmlLayout::Progress objects{};

        bool start(QStringView name)
        {
            if (XmlKit::sameName(name, screenshotPathElement)) {
                if (pathRead || inPath || objectsClosed)
                    return false;
                inPath = true;
                return true;
            }
            if (XmlKit::sameName(name, displayedObjectsElement)) {
                if (!pathRead || inPath || objectsClosed)
                    return false;
                inObjects = true;
                return true;
            }
            return inObjects && displayedObjects().readChild(self, in, name, objects);
        }
        void text(QStringView text)
        {
            if (inPath) {
                self.m_screenshotPath = text.toString();
                pathRead = true;
            }
        }
        bool passEnd(QStringView name)
        {
            if (inPath && XmlKit::sameName(name, screenshotPathElement)) {
                inPath = false;
                return true;
            }
            if (inObjects && XmlKit::sameName(name, displayedObjectsElement)) {
                inObjects = false;
                objectsClosed = true;
                return true;
            }
            return false;
        }
        bool mayEnd() { return pathRead && objectsClosed; }
    } tokens{{}, *this, in};
    in.loop(tokens);
}

void XmlKelBtType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    XmlKit::writeStartElement(writer, elementName, m_version);
    writer.writeTextElement(screenshotPathElement, m_screenshotPath);
    displayedObjects().write(*this, writer, displayedObjectsElement);
    writer.writeEndElement();
}

void XmlKelBtType::checkContent(XmlChecks& checks) const
{
    checks.version(supportsVersion(), m_version);
    checks.expect(!m_screenshotPath.isEmpty(), QStringLiteral("Screen shot path is empty"));
    checkChildren(checks);
}

void XmlKelBtType::reset()
{
    m_screenshotPath.clear();
    XmlComposite::reset();
}

} // namespace KelXml
