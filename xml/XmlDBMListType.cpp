#include "XmlDBMListType.h"

#include "XmlListTypeImpl.h"

namespace KelXml {

template class XmlListType<XmlDBMType>;

const XmlLayout& XmlDBMListType::layout()
{
    static const XmlLayout layout = layoutOf("XmlDBMListType", "dBm", "Too few pairs (min. 1)");
    return layout;
}

XmlDBMListType::XmlDBMListType()
    : XmlListType(layout())
{}

} // namespace KelXml
