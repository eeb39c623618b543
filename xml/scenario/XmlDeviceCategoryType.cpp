#include "XmlDeviceCategoryType.h"

#include "XmlKit.h"

namespace KelXml {

namespace {
const XmlEnumTexts categoryTexts = XmlEnumTexts::numbered(
    {"Receiver", "PassiveAntennas", "Cable", "Other", "ActiveAntennas", "DF"});
} // namespace

XmlDeviceCategoryType::XmlDeviceCategoryType()
    : XmlElementBase(QStringLiteral("XmlDeviceCategoryType"))
{}

void XmlDeviceCategoryType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    // No position check and no attributes: the loop starts on the next token.
    XmlElementReader in(*this, reader, elementName, XmlElementReader::TextWording);
    in.readEnumText(categoryTexts, QStringLiteral("Illegal enum value."),
                    [this](int value) { m_category = Category(value); });
}

void XmlDeviceCategoryType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    writer.writeTextElement(elementName, categoryTexts.text(m_category));
}

void XmlDeviceCategoryType::checkContent(XmlChecks& checks) const
{
    checks.expect(m_category != Undefined, QStringLiteral("Illegal Device Category."));
}

void XmlDeviceCategoryType::reset()
{
    m_category = Undefined;
    XmlElementBase::reset();
}

} // namespace KelXml
