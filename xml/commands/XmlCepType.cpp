#include "XmlCepType.h"

#include "XmlElementReader.h"
#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlCepType::layout()
{
    using Self = XmlCepType;
    static const XmlLayout layout =
        XmlLayout("XmlCepType", XmlElementReader::NamedWording, XmlLayout::NoVersion,
                  {
                      XmlField::object("UseDFs", &Self::m_useDFs),
                      XmlField::object("AOIs", &Self::m_aois),
                      XmlField::optional("Probability", &Self::m_probability).replaced(),
                      XmlField::optional("ResultGrid", &Self::m_resultGrid).replaced(),
                  })
            .withoutPositionTest();
    return layout;
}

XmlCepType::XmlCepType()
    : XmlComposite(layout())
{}

} // namespace KelXml
