#include "XmlCmdDelete.h"

#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlCmdDelete::layout()
{
    using Self = XmlCmdDelete;
    static const XmlLayout layout =
        commandLayout("XmlCmdDelete", {
                                          XmlField::optional("DeploymentArea", &Self::m_deploy),
                                          XmlField::optional("AOI", &Self::m_aoi),
                                          XmlField::optional("Emitter", &Self::m_emitter),
                                          XmlField::optional("Receiver", &Self::m_receiver),
                                          XmlField::optional("DF", &Self::m_df),
                                          XmlField::optional("Device", &Self::m_device),
                                          XmlField::optional("SignalPath", &Self::m_signalPath),
                                          XmlField::optional("Station", &Self::m_station),
                                      });
    return layout;
}

XmlCmdDelete::XmlCmdDelete()
    : XmlCmdBase(layout())
{}

} // namespace KelXml
