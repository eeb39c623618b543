#include "XmlNameAllMultiType.h"

#include "XmlElementReader.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlNameAllMultiType");
const QString allElement = QStringLiteral("All");
const QString nameElement = QStringLiteral("Name");
} // namespace

XmlNameAllMultiType::XmlNameAllMultiType()
    : XmlElementBase(PermanentName{&typeName})
    , m_initialized(false)
{}

void XmlNameAllMultiType::setAll()
{
    m_initialized = true;
    m_names.clear();
}

void XmlNameAllMultiType::setObjNames(const QList<XmlObjNameType*>& names)
{
    m_names.assignCopies(names);
    m_initialized = true;
}

void XmlNameAllMultiType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    // No position check and no attributes; the names held are kept and the
    // names read are appended. Either "All" or any number of "Name".
    XmlElementReader in(*this, reader, elementName, XmlElementReader::ElementWording);
    struct Tokens : XmlElementReader::Tokens
    {
        XmlNameAllMultiType& self;
        QXmlStreamReader& reader;
        bool sawAll = false;
        bool sawName = false;

        bool start(QStringView name)
        {
            if (XmlKit::sameName(name, allElement) && !sawAll && !sawName) {
                self.m_names.clear();
                sawAll = true;
                return true;
            }
            if (XmlKit::sameName(name, nameElement) && !sawAll) {
                self.m_names.appendNew()->processXml(reader, nameElement);
                sawName = true;
                return true;
            }
            return false;
        }
        bool passEnd(QStringView name) { return XmlKit::sameName(name, allElement); }
        bool mayEnd()
        {
            const bool chosen = sawAll || sawName;
            if (chosen)
                self.m_initialized = true;
            return chosen;
        }
    } tokens{{}, *this, reader};
    in.loop(tokens);
}

void XmlNameAllMultiType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    writer.writeStartElement(elementName);
    if (m_names.isEmpty())
        writer.writeEmptyElement(allElement);
    for (const XmlObjNameType* name : m_names.list())
        name->produceXml(writer, nameElement);
    writer.writeEndElement();
}

void XmlNameAllMultiType::checkContent(XmlChecks& checks) const
{
    checks.expect(m_initialized, QStringLiteral("Uninitialized."));
    checks.children(m_names.list());
}

void XmlNameAllMultiType::reset()
{
    m_initialized = false;
    m_names.clear();
    XmlElementBase::reset();
}

} // namespace KelXml
