#include "XmlFreqThrListType.h"

#include "XmlListTypeImpl.h"

namespace KelXml {

template class XmlListType<XmlFreqThrPairType>;

namespace {
const XmlListShape shape{QStringLiteral("XmlFreqThrListType"), QStringLiteral("Pair"),
                         QStringLiteral("Too few pairs (min. 1)")};
} // namespace

XmlFreqThrListType::XmlFreqThrListType()
    : XmlListType(shape)
{}

} // namespace KelXml
