#include "XmlNameAllType.h"

#include "XmlKit.h"

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
    bool chosen = false;
    XmlElementReader::Handlers handlers;
    handlers.start = [&](QStringView name) {
        if (name == referenceElement)
            return true;
        if (chosen)
            return false;
        if (name == allElement)
            m_name.reset();
        else if (name == nameElement)
            m_name.ensure().processXml(reader, nameElement);
        else
            return false;
        chosen = true;
        return true;
    };
    handlers.passEnd = [](QStringView name) {
        return name == allElement || name == referenceElement;
    };
    handlers.mayEnd = [&]() {
        if (chosen)
            m_initialized = true;
        return chosen;
    };
    in.run(handlers);
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
