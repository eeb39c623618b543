#include "XmlDegreesListType.h"

#include "XmlListTypeImpl.h"

namespace KelXml {

template class XmlListType<XmlDegreesType>;

namespace {
const XmlListShape shape{QStringLiteral("XmlDegreesListType"), QStringLiteral("Degrees"),
                         QStringLiteral("Too few pairs (min. 1)")};
} // namespace

XmlDegreesListType::XmlDegreesListType()
    : XmlListType(shape)
{}

} // namespace KelXml
