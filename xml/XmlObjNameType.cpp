#include "XmlObjNameType.h"

#include "XmlElementReader.h"
#include "XmlWalk.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlObjNameType");
} // namespace

XmlObjNameType::XmlObjNameType()
    : XmlElementBase(PermanentName{&typeName})
{}

void XmlObjNameType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    // No position check; each piece of text replaces the name, whitespace included.
    XmlElementReader in(*this, reader, elementName, XmlElementReader::TextWording);
    in.readText([this](QStringView text) { m_name = text.toString(); });
}

void XmlObjNameType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    writer.writeTextElement(elementName, m_name);
}

void XmlObjNameType::checkContent(XmlChecks& checks) const
{
    checks.expect(!m_name.isEmpty(), QStringLiteral("Object name too short (min. 1)."));
    checks.expect(m_name.size() <= 128, QStringLiteral("Object name too long (max. 128)"));
}

void XmlObjNameType::reset()
{
    m_name.clear();
    XmlElementBase::reset();
}

void XmlObjNameType::describe(XmlWalker& walker, const QString&) const
{
    walker.value(XmlValue::text(m_name));
}

} // namespace KelXml
