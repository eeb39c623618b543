#include "XmlInteractRespType.h"

#include "XmlElementReader.h"
#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlInteractRespType::layout()
{
    using Self = XmlInteractRespType;
    static const XmlLayout layout =
        XmlLayout(
            "XmlInteractRespType", XmlElementReader::NamedWording, XmlLayout::NoVersion,
            {
                XmlField::single(
                    {
                        XmlField::optional("GridResult", &Self::m_gridResult).replaced(),
                        XmlField::optional("InterlinkResult", &Self::m_interlinkResult).replaced(),
                        XmlField::optional("Station", &Self::m_result).replaced(),
                    },
                    "Illegal number of elements"),
            })
            .withoutPositionTest();
    return layout;
}

XmlInteractRespType::XmlInteractRespType()
    : XmlComposite(layout())
{}

} // namespace KelXml
