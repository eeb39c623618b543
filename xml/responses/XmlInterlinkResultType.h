#pragma once

#include "XmlElementBase.h"
#include "XmlInterlinkPlanningType.h"

namespace KelXml {

/// The answer to an interlink planning request: the planning parameters and
/// the result as text, with an optional picture file.
/// `<InterlinkResult><Parameters>...</Parameters>`
///   `<Result><Text>...</Text><ScreenshotFilename>link.png</ScreenshotFilename></Result>`
/// `</InterlinkResult>`.
/// No version, no position check. "Parameters" and "Text" are required by
/// the reading; the file name is optional and written only when set.
/// \ingroup responses
class KELXML_EXPORT XmlInterlinkResultType : public XmlElementBase
{
public:
    XmlInterlinkResultType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    /// The planning request answered.
    const XmlInterlinkPlanningType* parameters() const { return &m_parameters; }
    void setParameters(const XmlInterlinkPlanningType& parameters) { m_parameters = parameters; }
    /// The result of the planning as plain text.
    const QString& resultText() const { return m_resultText; }
    void setResultText(const QString& text) { m_resultText = text; }
    bool hasScreenshotFilename() const { return !m_screenshotFilename.isEmpty(); }
    /// The picture file of the result; empty when none, and then not written.
    const QString& screenshotFilename() const { return m_screenshotFilename; }
    void setScreenshotFilename(const QString& filename) { m_screenshotFilename = filename; }

protected:
    void describe(XmlWalker& walker, const QString& elementName) const override;
    void checkContent(XmlChecks& checks) const override;

private:
    XmlInterlinkPlanningType m_parameters;
    QString m_resultText;
    QString m_screenshotFilename;
};

} // namespace KelXml
