#include "XmlGridResultType.h"

#include "XmlElementReader.h"
#include "XmlEnumTexts.h"
#include "XmlWalk.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlGridResultType");
using Self = XmlGridResultType;

const QString typeAttribute = QStringLiteral("type");
const QString parameterElement = QStringLiteral("Parameter");
const QString screenshotElement = QStringLiteral("ScreenshotFilename");

const XmlEnumTexts typeTexts({{Self::FindSites, "FindSites"},
                              {Self::Cep, "CEP"},
                              {Self::DetectProb, "DetectProb"},
                              {Self::DfCoverage, "DfCoverage"},
                              {Self::BestSensorCov, "BestSensorCov"}},
                             "UNDEFINED");
// The element that wraps the parameters and the file name of each type.
const XmlEnumTexts wrapperNames({{Self::FindSites, "FindPossibleSites"},
                                 {Self::Cep, "CEP"},
                                 {Self::DetectProb, "DetectionProbability"},
                                 {Self::DfCoverage, "DFcoverage"},
                                 {Self::BestSensorCov, "BestSensorCov"}},
                                "");
const XmlEnumTexts mismatchMessages(
    {{Self::FindSites, "Type is 'FindSites' but no FindSites parameters or other parameters found"},
     {Self::Cep, "Type is 'CEP' but no CEP parameters or other parameters found"},
     {Self::DetectProb,
      "Type is 'DetectProb' but no DetectProb parameters or other parameters found"},
     {Self::DfCoverage,
      "Type is 'DfCoverage' but no DfCoverage parameters or other parameters found"},
     {Self::BestSensorCov,
      "Type is 'BestSensorCov' but no BestSensorCov parameters or other parameters found"}},
    "");

const int firstType = Self::FindSites;
const int lastType = Self::BestSensorCov;

template <class T>
XmlElementBase* renewed(XmlOwnedPtr<T>& child)
{
    child = XmlOwnedPtr<T>::make();
    return child.get();
}
} // namespace

XmlGridResultType::XmlGridResultType()
    : XmlElementBase(PermanentName{&typeName})
    , m_type(ResultUndefined)
{}

XmlElementBase* XmlGridResultType::parameter(int type) const
{
    switch (type) {
    case FindSites:
        return m_findSites.get();
    case Cep:
        return m_cep.get();
    case DetectProb:
        return m_detectProb.get();
    case DfCoverage:
        return m_dfCov.get();
    case BestSensorCov:
        return m_bestSensor.get();
    default:
        return nullptr;
    }
}

XmlElementBase* XmlGridResultType::renewParameter(int type)
{
    switch (type) {
    case FindSites:
        return renewed(m_findSites);
    case Cep:
        return renewed(m_cep);
    case DetectProb:
        return renewed(m_detectProb);
    case DfCoverage:
        return renewed(m_dfCov);
    case BestSensorCov:
        return renewed(m_bestSensor);
    default:
        return nullptr;
    }
}

void XmlGridResultType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    // A loop of its own: the type attribute picks which parameter element is
    // read, and it is read under the wrapper's name, not its own.
    XmlElementReader in(*this, reader, elementName, XmlElementReader::NamedWording);
    if (!in.atStartTag())
        return;
    m_type = ResultType(in.readEnumAttribute(typeAttribute, typeTexts));
    if (in.failed())
        return;
    struct Tokens : XmlElementReader::Tokens
    {
        XmlGridResultType& self;
        QXmlStreamReader& reader;
        // Only the wrapper of the own type opens; inside it "Parameter", then
        // "ScreenshotFilename". The parameter object reads under the wrapper's
        // name, and the "Parameter" end tag is then expected here.
        const QString wrapper = wrapperNames.text(self.m_type);
        bool insideWrapper = false;
        bool wrapperClosed = false;
        bool parameterClosed = false;
        bool screenshotRead = false;

        bool start(QStringView name)
        {
            if (XmlKit::sameName(name, wrapper) && !insideWrapper && !wrapperClosed) {
                insideWrapper = true;
            } else if (XmlKit::sameName(name, parameterElement) && insideWrapper &&
                       !parameterClosed && !screenshotRead) {
                if (XmlElementBase* object = self.renewParameter(self.m_type))
                    object->processXml(reader, wrapper);
            } else if (XmlKit::sameName(name, screenshotElement) && insideWrapper &&
                       parameterClosed && !screenshotRead) {
                self.m_screenshotFilename = reader.readElementText();
                screenshotRead = true;
            } else {
                return false;
            }
            return true;
        }
        bool passEnd(QStringView name)
        {
            if (!insideWrapper)
                return false;
            if (XmlKit::sameName(name, parameterElement)) {
                parameterClosed = true;
            } else if (wrapperNames.parse(name)) {
                insideWrapper = false;
                wrapperClosed = true;
            } else {
                return false;
            }
            return true;
        }
        bool mayEnd()
        {
            return wrapperClosed && parameterClosed && screenshotRead && !insideWrapper;
        }
    } tokens{{}, *this, reader};
    in.loop(tokens);
}

void XmlGridResultType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    // Every object held is written in its own wrapper, whatever the type says.
    writer.writeStartElement(elementName);
    writer.writeAttribute(typeAttribute, typeTexts.text(m_type));
    for (int type = firstType; type <= lastType; ++type) {
        const IXmlElement* object = parameter(type);
        if (!object)
            continue;
        writer.writeStartElement(wrapperNames.text(type));
        object->produceXml(writer, parameterElement);
        writer.writeTextElement(screenshotElement, m_screenshotFilename);
        writer.writeEndElement();
    }
    writer.writeEndElement();
}

void XmlGridResultType::checkContent(XmlChecks& checks) const
{
    // A known type needs its own object and no other; a type beyond the table
    // passes this test.
    if (m_type >= firstType && m_type <= lastType) {
        int held = 0;
        for (int type = firstType; type <= lastType; ++type)
            held += parameter(type) ? 1 : 0;
        checks.expect(parameter(m_type) && held == 1, mismatchMessages.text(m_type));
    }
    for (int type = firstType; type <= lastType; ++type) {
        if (XmlElementBase* object = parameter(type)) {
            // Written inside the wrapper of its type.
            const QString written = wrapperNames.text(type) + QLatin1Char('/') + parameterElement;
            checks.child(object, &written);
        }
    }
    checks.expect(m_type != ResultUndefined, QStringLiteral("Type not defined"));
    checks.expect(!m_screenshotFilename.isEmpty(), QStringLiteral("Screenshot path not set"));
}

void XmlGridResultType::reset()
{
    m_type = ResultUndefined;
    m_findSites.reset();
    m_cep.reset();
    m_detectProb.reset();
    m_dfCov.reset();
    m_bestSensor.reset();
    m_screenshotFilename.clear();
    XmlElementBase::reset();
}

void XmlGridResultType::describe(XmlWalker& walker, const QString&) const
{
    walker.attribute(typeAttribute, XmlValue::enumeration(m_type, typeTexts.text(m_type)));
    for (int type = firstType; type <= lastType && walker.wantsMore(); ++type) {
        const XmlElementBase* object = parameter(type);
        if (!object)
            continue;
        walker.enter(wrapperNames.text(type), QString(), nullptr);
        walker.child(object, parameterElement);
        walker.textElement(screenshotElement, XmlValue::text(m_screenshotFilename));
        walker.leave();
    }
}

} // namespace KelXml
