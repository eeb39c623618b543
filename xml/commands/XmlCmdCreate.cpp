#include "XmlCmdCreate.h"

#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlCmdCreate::layout()
{
    using Self = XmlCmdCreate;
    static const XmlLayout layout = commandLayout(
        "XmlCmdCreate", {
                            XmlField::optional("DeploymentArea", &Self::m_deploymentArea),
                            XmlField::optional("AOI", &Self::m_aoi),
                            XmlField::optional("Emitter", &Self::m_emitter),
                            XmlField::optional("Receiver", &Self::m_receiver),
                            XmlField::optional("DF", &Self::m_df),
                            XmlField::optional("Station", &Self::m_station),
                            XmlField::optional("Path", &Self::m_signalPath).writtenAs("SignalPath"),
                            XmlField::optional("Device", &Self::m_device),
                        });
    return layout;
}

XmlCmdCreate::XmlCmdCreate()
    : XmlCmdBase(layout())
{}

} // namespace KelXml
