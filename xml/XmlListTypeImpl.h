#pragma once

// The definitions of XmlListType. Each list class's source includes this and
// instantiates the template for its member class.

#include "XmlElementReader.h"
#include "XmlKit.h"
#include "XmlListType.h"

namespace KelXml {

template <class T>
XmlListType<T>::XmlListType(const XmlListShape& shape)
    : XmlElementBase(PermanentName{&shape.classname})
    , m_version(XmlKit::defaultVersionText)
    , m_shape(&shape)
{}

template <class T>
void XmlListType<T>::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    m_members.clear();
    XmlElementReader in(*this, reader, elementName, XmlElementReader::ElementWording);
    if (!in.begin(m_version))
        return;
    in.readChildren({XmlChild::appended(m_shape->memberElement, m_members)});
}

template <class T>
void XmlListType<T>::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    XmlKit::writeStartElement(writer, elementName, m_version);
    for (const T* member : m_members.list())
        member->produceXml(writer, m_shape->memberElement);
    writer.writeEndElement();
}

template <class T>
void XmlListType<T>::checkContent(XmlChecks& checks) const
{
    checks.version(supportsVersion(), m_version);
    checks.children(m_members.list());
    checks.expect(!m_members.isEmpty(), m_shape->countMessage);
}

template <class T>
void XmlListType<T>::reset()
{
    m_members.clear();
    m_version = XmlKit::defaultVersionText;
    XmlElementBase::reset();
}

template <class T>
bool XmlListType<T>::supportsVersion() const
{
    return XmlKit::isSupportedVersion(m_version);
}

} // namespace KelXml
