#include "XmlCepProbType.h"

#include "XmlKit.h"

namespace KelXml {

namespace {
const XmlEnumTexts probTexts = XmlEnumTexts::numbered({"50", "66", "75", "90", "95"});
} // namespace

XmlCepProbType::XmlCepProbType()
    : XmlElementBase(QStringLiteral("XmlCepProbType"))
    , m_prob(ProbUndefined)
{}

void XmlCepProbType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    // No position check; the text must match exactly. The parse message has
    // no full stop of its own, unlike the report's.
    XmlElementReader in(*this, reader, elementName, XmlElementReader::TextWording);
    in.readEnumText(probTexts, QStringLiteral("Illegal enum value"),
                    [this](int value) { m_prob = Prob(value); });
}

void XmlCepProbType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    writer.writeTextElement(elementName, probTexts.text(m_prob));
}

void XmlCepProbType::checkContent(XmlChecks& checks) const
{
    checks.expect(m_prob != ProbUndefined, QStringLiteral("Illegal probability value."));
}

void XmlCepProbType::reset()
{
    m_prob = ProbUndefined;
    XmlElementBase::reset();
}

} // namespace KelXml
