#include "XmlTxParamType.h"

#include "XmlElementReader.h"
#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlTxParamType::layout()
{
    using Self = XmlTxParamType;
    static const XmlLayout layout("XmlTxParamType", XmlElementReader::ElementWording,
                                  XmlLayout::Version,
                                  {
                                      XmlField::object("Frequency", &Self::m_frequency),
                                      XmlField::object("TxPower", &Self::m_txPower),
                                      XmlField::object("AntennaHeight", &Self::m_antennaHeight),
                                      XmlField::object("Bandwidth", &Self::m_bandwidth),
                                  });
    return layout;
}

XmlTxParamType::XmlTxParamType()
    : XmlVersionedComposite(layout())
{}

} // namespace KelXml
