#include "XmlReceiverType.h"

#include "XmlElementReader.h"
#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlReceiverType::layout()
{
    using Self = XmlReceiverType;
    // The interlink stands last, so having read it refuses every other child.
    static const XmlLayout layout(
        "XmlReceiverType", XmlElementReader::ElementWording, XmlLayout::CheckedVersion,
        {
            XmlField::object("Name", &Self::m_objName),
            XmlField::object("Position", &Self::m_position),
            XmlField::object("RxParameter", &Self::m_rxParam),
            XmlField::optional("StationInterlink", &Self::m_interlink).anywhere().replaced(),
        });
    return layout;
}

XmlReceiverType::XmlReceiverType()
    : XmlVersionedComposite(layout())
{}

} // namespace KelXml
