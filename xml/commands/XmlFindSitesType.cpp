#include "XmlFindSitesType.h"

#include "XmlElementReader.h"
#include "XmlEnumTexts.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlFindSitesType");
const QString knownEmittersElement = QStringLiteral("UseKnownEmitters");
const QString randomEmittersElement = QStringLiteral("RandomEmitters");
const QString numberElement = QStringLiteral("Number");
const QString distributionElement = QStringLiteral("Distribution");
const QString deploymentAreasElement = QStringLiteral("DeploymentAreas");
const QString resultGridElement = QStringLiteral("ResultGrid");

const XmlEnumTexts distributionTexts({{XmlFindSitesType::DistributionRandom, "Random"},
                                      {XmlFindSitesType::DistributionGrid, "Grid"}},
                                     "UNDEFINED");

const int noRandomEmitters = -1;
const int maxRandomEmitters = 500;
} // namespace

XmlFindSitesType::XmlFindSitesType()
    : XmlElementBase(PermanentName{&typeName})
    , m_randNumber(noRandomEmitters)
    , m_randDistri(DistributionUndefined)
{}

bool XmlFindSitesType::hasRandEmitters() const
{
    return m_randDistri != DistributionUndefined && m_randNumber >= 0;
}

void XmlFindSitesType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    // No position check. The RandomEmitters block opens at its start tag and
    // counts as read only when it closes holding both Number and Distribution.
    XmlElementReader in(*this, reader, elementName, XmlElementReader::NamedWording);
    struct Tokens : XmlElementReader::Tokens
    {
        XmlFindSitesType& self;
        QXmlStreamReader& reader;
        XmlElementReader& in;
        bool knownRead = false;
        bool blockOpen = false;
        bool blockRead = false;
        bool numberRead = false;
        bool distributionRead = false;
        bool areasRead = false;
        bool gridRead = false;

        bool start(QStringView name)
        {
            if (XmlKit::sameName(name, knownEmittersElement)) {
                if (knownRead || blockRead || areasRead || gridRead)
                    return false;
                self.m_knownEmitters.reset();
                self.m_knownEmitters.ensure().processXml(reader, knownEmittersElement);
                knownRead = true;
            } else if (XmlKit::sameName(name, randomEmittersElement)) {
                if (blockRead || areasRead || gridRead)
                    return false;
                blockOpen = true;
            } else if (XmlKit::sameName(name, numberElement)) {
                if (!blockOpen || numberRead || distributionRead)
                    return false;
                numberRead = true;
                bool ok = false;
                self.m_randNumber = reader.readElementText().toInt(&ok, 10);
                if (!ok) {
                    self.m_randNumber = noRandomEmitters;
                    in.fail(QStringLiteral("Illegal value for \"Number\" (must be numeric)"));
                }
            } else if (XmlKit::sameName(name, distributionElement)) {
                if (!blockOpen || distributionRead)
                    return false;
                distributionRead = true;
                const auto value = distributionTexts.parse(reader.readElementText());
                self.m_randDistri = Distribution(value.value_or(DistributionUndefined));
                if (!value)
                    in.fail(QStringLiteral("Illegal value for \"Distribution\""));
            } else if (XmlKit::sameName(name, deploymentAreasElement)) {
                if (areasRead || gridRead)
                    return false;
                self.m_deploymentAreas.processXml(reader, deploymentAreasElement);
                areasRead = true;
            } else if (XmlKit::sameName(name, resultGridElement)) {
                if (gridRead)
                    return false;
                self.m_resultGrid.reset();
                self.m_resultGrid.ensure().processXml(reader, resultGridElement);
                gridRead = true;
            } else {
                return false;
            }
            return true;
        }
        bool passEnd(QStringView name)
        {
            if (!XmlKit::sameName(name, randomEmittersElement) || !blockOpen || !numberRead ||
                !distributionRead)
                return false;
            blockOpen = false;
            blockRead = true;
            return true;
        }
        bool mayEnd() { return areasRead; }
    } tokens{{}, *this, reader, in};
    in.loop(tokens);
}

void XmlFindSitesType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    writer.writeStartElement(elementName);
    if (m_knownEmitters)
        m_knownEmitters->produceXml(writer, knownEmittersElement);
    if (hasRandEmitters()) {
        writer.writeStartElement(randomEmittersElement);
        writer.writeTextElement(numberElement, QString::number(m_randNumber));
        writer.writeTextElement(distributionElement, distributionTexts.text(m_randDistri));
        writer.writeEndElement();
    }
    m_deploymentAreas.produceXml(writer, deploymentAreasElement);
    if (m_resultGrid)
        m_resultGrid->produceXml(writer, resultGridElement);
    writer.writeEndElement();
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
    m_knownEmitters.reset();
    m_randNumber = noRandomEmitters;
    m_randDistri = DistributionUndefined;
    m_deploymentAreas.reset();
    m_resultGrid.reset();
    XmlElementBase::reset();
}

} // namespace KelXml
