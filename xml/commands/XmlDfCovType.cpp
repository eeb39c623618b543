#include "XmlDfCovType.h"

#include "XmlElementReader.h"
#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlDfCovType::layout()
{
    using Self = XmlDfCovType;
    static const XmlLayout layout =
        XmlLayout("XmlDfCovType", XmlElementReader::NamedWording, XmlLayout::NoVersion,
                  {
                      XmlField::object("UseDFs", &Self::m_useDFs),
                      XmlField::object("AOIs", &Self::m_aois),
                      XmlField::optional("ResultGrid", &Self::m_resultGrid).replaced(),
                  })
            .withoutPositionTest();
    return layout;
}

XmlDfCovType::XmlDfCovType()
    : XmlComposite(layout())
{}

} // namespace KelXml
