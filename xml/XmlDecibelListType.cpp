#include "XmlDecibelListType.h"

#include "XmlListTypeImpl.h"

namespace KelXml {

template class XmlListType<XmlDecibelType>;

namespace {
const XmlListShape shape{QStringLiteral("XmlDecibelListType"), QStringLiteral("Decibel"),
                         QStringLiteral("Too few pairs (min. 1)")};
} // namespace

XmlDecibelListType::XmlDecibelListType()
    : XmlListType(shape)
{}

} // namespace KelXml
