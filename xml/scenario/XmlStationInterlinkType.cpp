#include "XmlStationInterlinkType.h"

#include "XmlElementReader.h"
#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlStationInterlinkType::layout()
{
    using Self = XmlStationInterlinkType;
    static const XmlLayout layout(
        "XmlStationInterlinkType", XmlElementReader::ElementWording, XmlLayout::Version,
        {
            XmlField::object("Frequency", &Self::m_frequency),
            XmlField::object("TxPower", &Self::m_power).writtenAs("Power"),
            XmlField::object("RxThreshold", &Self::m_rxThreshold),
            XmlField::object("AntennaHeight", &Self::m_antennaHeight),
        });
    return layout;
}

XmlStationInterlinkType::XmlStationInterlinkType()
    : XmlVersionedComposite(layout())
{}

} // namespace KelXml
