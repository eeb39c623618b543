#include "XmlPropModelEnumType.h"

#include "XmlElementReader.h"
#include "XmlEnumTexts.h"
#include "XmlWalk.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlPropModelEnumType");

const XmlEnumTexts& modelTexts()
{
    static const XmlEnumTexts texts = XmlEnumTexts::numbered(
        {"Free-space", "OLOS", "ITM", "P.452", "P.1546", "P.526", "P.533", "Okumura-Hata"});
    return texts;
}

} // namespace

XmlPropModelEnumType::XmlPropModelEnumType()
    : XmlElementBase(PermanentName{&typeName})
{}

void XmlPropModelEnumType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    // The whole text of the element is taken at once, comments and all pieces
    // of character data together, and compared as it stands.
    XmlElementReader in(*this, reader, elementName, XmlElementReader::TextWording);
    if (!in.atStartTag())
        return;
    const auto model = modelTexts().parse(reader.readElementText());
    m_model = Model(model.value_or(Undefined));
    if (!model)
        in.fail(QStringLiteral("Illegal enum value."));
    if (!in.failed() && !reader.isEndElement())
        in.fail(QStringLiteral("Unexpected token"));
}

void XmlPropModelEnumType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    writer.writeTextElement(elementName, modelTexts().text(m_model));
}

void XmlPropModelEnumType::checkContent(XmlChecks& checks) const
{
    checks.expect(m_model != Undefined, QStringLiteral("No model selected."));
}

void XmlPropModelEnumType::reset()
{
    m_model = Undefined;
    XmlElementBase::reset();
}

void XmlPropModelEnumType::describe(XmlWalker& walker, const QString&) const
{
    walker.value(XmlValue::enumeration(m_model, modelTexts().text(m_model)));
}

} // namespace KelXml
