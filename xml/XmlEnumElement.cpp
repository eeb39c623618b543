#include "XmlEnumElement.h"

#include "XmlElementReader.h"
#include "XmlWalk.h"

namespace KelXml {

XmlEnumElement::XmlEnumElement(const Shape& shape)
    : XmlElementBase(PermanentName{&shape.classname})
    , m_shape(&shape)
{}

void XmlEnumElement::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    XmlElementReader in(*this, reader, elementName, XmlElementReader::TextWording);
    in.readEnumText(*m_shape->texts, m_shape->badText, [this](int value) { m_value = value; });
}

void XmlEnumElement::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    writer.writeTextElement(elementName, m_shape->texts->text(m_value));
}

void XmlEnumElement::checkContent(XmlChecks& checks) const
{
    checks.expect(m_value != 0, m_shape->unset);
}

void XmlEnumElement::reset()
{
    m_value = 0;
    XmlElementBase::reset();
}

void XmlEnumElement::describe(XmlWalker& walker, const QString&) const
{
    walker.value(XmlValue::enumeration(m_value, m_shape->texts->text(m_value)));
}

} // namespace KelXml
