#include "XmlStationType.h"

#include "XmlElementReader.h"
#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlStationType::layout()
{
    using Self = XmlStationType;
    static const XmlLayout layout =
        XmlLayout("XmlStationType", XmlElementReader::NamedWording, XmlLayout::NoVersion,
                  {
                      XmlField::object("Name", &Self::m_objName),
                      XmlField::optional("SignalPath", &Self::m_signalPath),
                      XmlField::object("Position", &Self::m_position),
                      XmlField::optional("RxParameter", &Self::m_rxParam),
                      XmlField::optional("DFprecision", &Self::m_dfPrecision),
                      XmlField::optional("StationInterlink", &Self::m_interlink),
                  })
            .withoutPositionTest();
    return layout;
}

XmlStationType::XmlStationType()
    : XmlComposite(layout())
{}

} // namespace KelXml
