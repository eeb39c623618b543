#include "XmlAoiType.h"

#include "XmlElementReader.h"
#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlAoiType::layout()
{
    using Self = XmlAoiType;
    static const XmlLayout layout(
        "XmlAoiType", XmlElementReader::ElementWording, XmlLayout::CheckedVersion,
        {
            XmlField::object("Name", &Self::m_objName),
            XmlField::oneOf({XmlField::optional("AreaRect", &Self::m_areaRect),
                             XmlField::optional("AreaPolygon", &Self::m_areaPoly)},
                            "Neither AreaRect nor AreaPolygon"),
            XmlField::object("TxParameter", &Self::m_txParam),
            XmlField::optional("RxThreshold", &Self::m_rxThreshold).replaced(),
        });
    return layout;
}

XmlAoiType::XmlAoiType()
    : XmlVersionedComposite(layout())
{}

void XmlAoiType::setAreaRect(const XmlAreaRectType& rect)
{
    m_areaRect.assign(rect);
    m_areaPoly.reset();
}

void XmlAoiType::setAreaPoly(const XmlAreaPolyType& poly)
{
    m_areaPoly.assign(poly);
    m_areaRect.reset();
}

} // namespace KelXml
