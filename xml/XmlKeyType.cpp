#include "XmlKeyType.h"

#include "XmlElementReader.h"
#include "XmlWalk.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlKeyType");
} // namespace

XmlKeyType::XmlKeyType()
    : XmlElementBase(PermanentName{&typeName})
    , m_key(0)
{}

void XmlKeyType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    // No position check and no attributes: the loop starts at the next token.
    XmlElementReader in(*this, reader, elementName, XmlElementReader::TextWording);
    in.readText([&](QStringView text) { m_key = in.toInt(text, 0); });
}

void XmlKeyType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    writer.writeTextElement(elementName, QString::number(m_key));
}

void XmlKeyType::checkContent(XmlChecks& checks) const
{
    checks.expect(!(m_key < 0), QStringLiteral("XmlMapType: Illegal Key."));
}

void XmlKeyType::reset()
{
    m_key = 0;
    XmlElementBase::reset();
}

void XmlKeyType::describe(XmlWalker& walker, const QString&) const
{
    walker.value(XmlValue::integer(m_key));
}

} // namespace KelXml
