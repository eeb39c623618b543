#include "XmlResultGridType.h"

#include "XmlKit.h"

namespace KelXml {

namespace {
const XmlEnumTexts sizeTexts = XmlEnumTexts::numbered({"10", "50", "100", "200", "500", "1000"});
} // namespace

XmlResultGridType::XmlResultGridType()
    : XmlElementBase(QStringLiteral("XmlResultGridType"))
    , m_size(SizeUndefined)
{}

void XmlResultGridType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    // No position check. The text must match exactly, blanks included; an
    // empty element keeps the size held.
    XmlElementReader in(*this, reader, elementName, XmlElementReader::TextWording);
    in.readEnumText(sizeTexts, QStringLiteral("Illegal enum value."),
                    [this](int value) { m_size = GridSize(value); });
}

void XmlResultGridType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    writer.writeTextElement(elementName, sizeTexts.text(m_size));
}

void XmlResultGridType::checkContent(XmlChecks& checks) const
{
    checks.expect(m_size != SizeUndefined, QStringLiteral("Illegal grid size."));
}

void XmlResultGridType::reset()
{
    m_size = SizeUndefined;
    XmlElementBase::reset();
}

} // namespace KelXml
