#include "XmlReferenceType.h"

#include "XmlElementReader.h"
#include "XmlWalk.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlreferenceType");
} // namespace

XmlReferenceType::XmlReferenceType()
    : XmlElementBase(PermanentName{&typeName})
{}

void XmlReferenceType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    // No position check; each piece of text replaces the reference.
    XmlElementReader in(*this, reader, elementName, XmlElementReader::TextWording);
    in.readText([this](QStringView text) { m_reference = text.toString(); });
}

void XmlReferenceType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    writer.writeTextElement(elementName, m_reference);
}

void XmlReferenceType::checkContent(XmlChecks& checks) const
{
    checks.expect(!m_reference.isEmpty(), QStringLiteral("String too short (min. 1)"));
    checks.expect(m_reference.size() <= 50, QStringLiteral("String too long (max. 50)"));
}

void XmlReferenceType::reset()
{
    m_reference.clear();
    XmlElementBase::reset();
}

void XmlReferenceType::describe(XmlWalker& walker, const QString&) const
{
    walker.value(XmlValue::text(m_reference));
}

} // namespace KelXml
