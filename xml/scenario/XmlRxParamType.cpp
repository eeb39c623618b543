#include "XmlRxParamType.h"

#include "XmlElementReader.h"
#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlRxParamType::layout()
{
    using Self = XmlRxParamType;
    static const XmlLayout layout("XmlRxParamType", XmlElementReader::ElementWording,
                                  XmlLayout::Version,
                                  {
                                      XmlField::object("AntennaHeight", &Self::m_antennaHeight),
                                      XmlField::object("RxThreshold", &Self::m_rxThreshold),
                                  });
    return layout;
}

XmlRxParamType::XmlRxParamType()
    : XmlVersionedComposite(layout())
{}

} // namespace KelXml
