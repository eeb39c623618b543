#include "XmlNameAllType.h"

#include "XmlElementReader.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlNameAllType");
const QString allElement = QStringLiteral("All");
const QString nameElement = QStringLiteral("Name");
const QString referenceElement = QStringLiteral("Reference");
} // namespace

XmlNameAllType::XmlNameAllType()
    : XmlElementBase(PermanentName{&typeName})
    , m_initialized(false)
{}

void XmlNameAllType::setAll()
{
    m_initialized = true;
    m_name.reset();
}

void XmlNameAllType::setObjName(const XmlObjNameType& name)
{
    m_name.assign(name);
    m_initialized = true;
}

void XmlNameAllType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    // No position check and no attributes. Either "All" or one "Name";
    // a "Reference" may stand anywhere and is skipped.
    XmlElementReader in(*this, reader, elementName, XmlElementReader::ElementWording);
    struct Tokens : XmlElementReader::Tokens
    {
        XmlNameAllType& self;
        QXmlStreamReader& reader;
        bool chosen = false;

        bool start(QStringView name)
        {
            if (XmlKit::sameName(name, referenceElement))
                return true;
            if (chosen)
                return false;
            if (XmlKit::sameName(name, allElement))
                self.m_name.reset();
            else if (XmlKit::sameName(name, nameElement))
                self.m_name.ensure().processXml(reader, nameElement);
            else
                return false;
            chosen = true;
            return true;
        }
        bool passEnd(QStringView name)
        {
            return XmlKit::sameName(name, allElement) || XmlKit::sameName(name, referenceElement);
        }
        bool mayEnd()
        {
            if (chosen)
                self.m_initialized = true;
            return chosen;
        }
    } tokens{{}, *this, reader};
    in.loop(tokens);
}

void XmlNameAllType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    writer.writeStartElement(elementName);
    if (m_name)
        m_name->produceXml(writer, nameElement);
    else
        writer.writeEmptyElement(allElement);
    writer.writeEndElement();
}

void XmlNameAllType::checkContent(XmlChecks& checks) const
{
    checks.expect(m_initialized, QStringLiteral("Uninitialized."));
    checks.child(m_name.get());
}

void XmlNameAllType::reset()
{
    m_initialized = false;
    m_name.reset();
    XmlElementBase::reset();
}

} // namespace KelXml
