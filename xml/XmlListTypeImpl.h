#pragma once

// The definitions of XmlListType. Each list class's source includes this and
// instantiates the template for its member class.

#include "XmlLayout.h"
#include "XmlListType.h"

namespace KelXml {

template <class T>
XmlLayout XmlListType<T>::layoutOf(const char* classname, const char* memberElement,
                                   const char* countMessage)
{
    return XmlLayout(
        classname, XmlElementReader::ElementWording, XmlLayout::Version,
        {XmlField::list(memberElement, &XmlListType::m_members).atLeastOne(countMessage)});
}

template <class T>
void XmlListType<T>::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    m_members.clear();
    XmlComposite::processXml(reader, elementName);
}

} // namespace KelXml
