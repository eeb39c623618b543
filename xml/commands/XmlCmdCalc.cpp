#include "XmlCmdCalc.h"

#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlCmdCalc::layout()
{
    using Self = XmlCmdCalc;
    static const XmlLayout layout = commandLayout(
        "XmlCmdCalc", {
                          XmlField::optional("FindPossibleSites", &Self::m_findSites),
                          XmlField::optional("CEP", &Self::m_cep),
                          XmlField::optional("DetectionProbability", &Self::m_detectProb),
                          XmlField::optional("DFcoverage", &Self::m_dfCov),
                          XmlField::optional("InterlinkPlanning", &Self::m_interlink),
                          XmlField::optional("BestSensorCov", &Self::m_bestSensor),
                      });
    return layout;
}

XmlCmdCalc::XmlCmdCalc()
    : XmlCmdBase(layout())
{}

} // namespace KelXml
