#include "XmlMapListType.h"

#include "XmlListTypeImpl.h"

namespace KelXml {

template class XmlListType<XmlMapType>;

namespace {
const XmlListShape shape{QStringLiteral("XmlMapListType"), QStringLiteral("Map"),
                         QStringLiteral("Too few mappings (min. 1)")};
} // namespace

XmlMapListType::XmlMapListType()
    : XmlListType(shape)
{}

} // namespace KelXml
