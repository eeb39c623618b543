#include "XmlDeploymentAreaType.h"

#include "XmlElementReader.h"
#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlDeploymentAreaType::layout()
{
    using Self = XmlDeploymentAreaType;
    static const XmlLayout layout(
        "XmlDeploymentAreaType", XmlElementReader::ElementWording, XmlLayout::CheckedVersion,
        {
            // Before or after the name, but before everything that follows it.
            XmlField::optional("SignalPath", &Self::m_signalPath)
                .refusedBy({"SignalPath", "AreaRect", "AreaPolygon", "AntennaHeight", "RxThreshold",
                            "Frequency", "TxPower"}),
            XmlField::object("Name", &Self::m_objName),
            XmlField::oneOf({XmlField::optional("AreaRect", &Self::m_areaRect),
                             XmlField::optional("AreaPolygon", &Self::m_areaPoly)},
                            "Neither AreaRect nor AreaPolygon"),
            XmlField::object("AntennaHeight", &Self::m_antennaHeight),
            XmlField::object("RxThreshold", &Self::m_rxThreshold),
            XmlField::object("Frequency", &Self::m_frequency),
            XmlField::object("TxPower", &Self::m_txPower),
        });
    return layout;
}

XmlDeploymentAreaType::XmlDeploymentAreaType()
    : XmlVersionedComposite(layout())
{}

void XmlDeploymentAreaType::setAreaRect(const XmlAreaRectType& rect)
{
    m_areaRect.assign(rect);
    m_areaPoly.reset();
}

void XmlDeploymentAreaType::setAreaPoly(const XmlAreaPolyType& poly)
{
    m_areaPoly.assign(poly);
    m_areaRect.reset();
}

} // namespace KelXml
