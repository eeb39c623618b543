#include "XmlDfType.h"

#include "XmlElementReader.h"
#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlDfType::layout()
{
    using Self = XmlDfType;
    // The interlink stands last, so having read it refuses every other child.
    static const XmlLayout layout(
        "XmlDfType", XmlElementReader::ElementWording, XmlLayout::CheckedVersion,
        {
            XmlField::object("Name", &Self::m_objName),
            XmlField::object("Position", &Self::m_position),
            XmlField::object("RxParameter", &Self::m_rxParam),
            XmlField::object("DFprecision", &Self::m_dfPrecision),
            XmlField::optional("StationInterlink", &Self::m_interlink).anywhere().replaced(),
        });
    return layout;
}

XmlDfType::XmlDfType()
    : XmlVersionedComposite(layout())
{}

} // namespace KelXml
