#include "XmlDetectProbType.h"

#include "XmlElementReader.h"
#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlDetectProbType::layout()
{
    using Self = XmlDetectProbType;
    static const XmlLayout layout =
        XmlLayout("XmlDetectProbType", XmlElementReader::NamedWording, XmlLayout::NoVersion,
                  {
                      XmlField::object("UseRxDFs", &Self::m_useRxDFs),
                      XmlField::object("AOIs", &Self::m_aois),
                      XmlField::optional("ResultGrid", &Self::m_resultGrid).replaced(),
                  })
            .withoutPositionTest();
    return layout;
}

XmlDetectProbType::XmlDetectProbType()
    : XmlComposite(layout())
{}

} // namespace KelXml
