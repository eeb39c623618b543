#include "XmlInterlinkResultType.h"

#include "XmlElementReader.h"
#include "XmlWalk.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlInterlinkResultType");
const QString parametersElement = QStringLiteral("Parameters");
const QString resultElement = QStringLiteral("Result");
const QString textElement = QStringLiteral("Text");
const QString screenshotElement = QStringLiteral("ScreenshotFilename");
} // namespace

XmlInterlinkResultType::XmlInterlinkResultType()
    : XmlElementBase(PermanentName{&typeName})
{}

void XmlInterlinkResultType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    // "Parameters" comes before everything else but is not needed before
    // "Result"; inside "Result", "Text" and then "ScreenshotFilename". The
    // element ends once "Parameters" and "Text" were read and "Result" closed.
    XmlElementReader in(*this, reader, elementName, XmlElementReader::NamedWording);
    struct Tokens : XmlElementReader::Tokens
    {
        XmlInterlinkResultType& self;
        QXmlStreamReader& reader;
        bool parametersRead = false;
        bool insideResult = false;
        bool textRead = false;
        bool screenshotRead = false;

        bool start(QStringView name)
        {
            if (XmlKit::sameName(name, parametersElement) && !parametersRead && !insideResult &&
                !textRead && !screenshotRead) {
                self.m_parameters.processXml(reader, parametersElement);
                parametersRead = true;
            } else if (XmlKit::sameName(name, resultElement) && !insideResult && !textRead &&
                       !screenshotRead) {
                insideResult = true;
            } else if (XmlKit::sameName(name, textElement) && insideResult && !textRead &&
                       !screenshotRead) {
                self.m_resultText = reader.readElementText();
                textRead = true;
            } else if (XmlKit::sameName(name, screenshotElement) && insideResult &&
                       !screenshotRead) {
                self.m_screenshotFilename = reader.readElementText();
                screenshotRead = true;
            } else {
                return false;
            }
            return true;
        }
        bool passEnd(QStringView name)
        {
            if (!XmlKit::sameName(name, resultElement) || !insideResult)
                return false;
            insideResult = false;
            return true;
        }
        bool mayEnd() { return parametersRead && !insideResult && textRead; }
    } tokens{{}, *this, reader};
    in.loop(tokens);
}

void XmlInterlinkResultType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    writer.writeStartElement(elementName);
    m_parameters.produceXml(writer, parametersElement);
    writer.writeStartElement(resultElement);
    writer.writeTextElement(textElement, m_resultText);
    if (hasScreenshotFilename())
        writer.writeTextElement(screenshotElement, m_screenshotFilename);
    writer.writeEndElement();
    writer.writeEndElement();
}

void XmlInterlinkResultType::checkContent(XmlChecks& checks) const
{
    checks.child(const_cast<XmlInterlinkPlanningType*>(&m_parameters), &parametersElement);
    checks.expect(!m_resultText.isEmpty(), QStringLiteral("Missing Result Text"));
}

void XmlInterlinkResultType::reset()
{
    m_parameters.reset();
    m_resultText.clear();
    m_screenshotFilename.clear();
    XmlElementBase::reset();
}

void XmlInterlinkResultType::describe(XmlWalker& walker, const QString&) const
{
    walker.child(&m_parameters, parametersElement);
    if (!walker.wantsMore())
        return;
    walker.enter(resultElement, QString(), nullptr);
    walker.textElement(textElement, XmlValue::text(m_resultText));
    if (hasScreenshotFilename())
        walker.textElement(screenshotElement, XmlValue::text(m_screenshotFilename));
    walker.leave();
}

} // namespace KelXml
