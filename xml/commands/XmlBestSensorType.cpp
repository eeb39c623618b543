#include "XmlBestSensorType.h"

#include "XmlElementReader.h"
#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlBestSensorType::layout()
{
    using Self = XmlBestSensorType;
    static const XmlLayout layout =
        XmlLayout("XmlBestSensorType", XmlElementReader::NamedWording, XmlLayout::NoVersion,
                  {
                      XmlField::object("UseRxDFs", &Self::m_useRxDFs),
                      XmlField::object("AOIs", &Self::m_aois),
                      XmlField::optional("ResultGrid", &Self::m_resultGrid).replaced(),
                      XmlField::optional("Comment", &Self::m_comment).replaced(),
                  })
            .withoutPositionTest();
    return layout;
}

XmlBestSensorType::XmlBestSensorType()
    : XmlComposite(layout())
{}

} // namespace KelXml
