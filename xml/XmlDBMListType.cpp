#include "XmlDBMListType.h"

#include "XmlListTypeImpl.h"

namespace KelXml {

template class XmlListType<XmlDBMType>;

namespace {
const XmlListShape shape{QStringLiteral("XmlDBMListType"), QStringLiteral("dBm"),
                         QStringLiteral("Too few pairs (min. 1)")};
} // namespace

XmlDBMListType::XmlDBMListType()
    : XmlListType(shape)
{}

} // namespace KelXml
