#include "XmlFreqThrPairType.h"

#include "XmlElementReader.h"
#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlFreqThrPairType::layout()
{
    using Self = XmlFreqThrPairType;
    static const XmlLayout layout("XmlFreqThrPairType", XmlElementReader::ElementWording,
                                  XmlLayout::Version,
                                  {
                                      XmlField::object("Frequency", &Self::m_frequency),
                                      XmlField::object("RxThreshold", &Self::m_threshold),
                                  });
    return layout;
}

XmlFreqThrPairType::XmlFreqThrPairType()
    : XmlVersionedComposite(layout())
{}

} // namespace KelXml
