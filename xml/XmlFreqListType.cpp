#include "XmlFreqListType.h"

#include "XmlListTypeImpl.h"

namespace KelXml {

template class XmlListType<XmlFreqType>;

namespace {
const XmlListShape shape{QStringLiteral("XmlFreqListType"), QStringLiteral("Frequency"),
                         QStringLiteral("Too few frequencies (min. 1)")};
} // namespace

XmlFreqListType::XmlFreqListType()
    : XmlListType(shape)
{}

} // namespace KelXml
