#pragma once

#include "XmlBestSensorType.h"
#include "XmlCepType.h"
#include "XmlDetectProbType.h"
#include "XmlDfCovType.h"
#include "XmlElementBase.h"
#include "XmlFindSitesType.h"
#include "XmlOwned.h"

namespace KelXml {

/// The result of a grid calculation: the request's parameters and the name of
/// the picture file that the server stored.
/// `<GridResult type="CEP"><CEP><Parameter>...</Parameter>`
///   `<ScreenshotFilename>grid.png</ScreenshotFilename></CEP></GridResult>`.
/// No version. The parameters are read under the wrapper's name ("CEP") and
/// the reading then expects the "Parameter" end tag, so a written grid result
/// does not read back.
/// \ingroup responses
class KELXML_EXPORT XmlGridResultType : public XmlElementBase
{
public:
    enum ResultType : qint32
    {
        ResultUndefined = 0, ///< written "UNDEFINED", never accepted
        FindSites,
        Cep,
        DetectProb,
        DfCoverage,
        BestSensorCov,
    };

    XmlGridResultType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    /// The calculation answered; it names the wrapper element and picks the parameter object
    /// written.
    ResultType type() const { return m_type; }
    void setType(ResultType type) { m_type = type; }

    bool hasFindSites() const { return bool(m_findSites); }
    /// Null when absent; setFindSites() stores a copy.
    const XmlFindSitesType* findSites() const { return m_findSites.get(); }
    void setFindSites(const XmlFindSitesType& findSites) { m_findSites.assign(findSites); }
    bool hasCep() const { return bool(m_cep); }
    /// Null when absent; setCep() stores a copy.
    const XmlCepType* cep() const { return m_cep.get(); }
    void setCep(const XmlCepType& cep) { m_cep.assign(cep); }
    bool hasDetectProb() const { return bool(m_detectProb); }
    /// Null when absent; setDetectProb() stores a copy.
    const XmlDetectProbType* detectProb() const { return m_detectProb.get(); }
    void setDetectProb(const XmlDetectProbType& detectProb) { m_detectProb.assign(detectProb); }
    bool hasDfCov() const { return bool(m_dfCov); }
    /// Null when absent; setDfCov() stores a copy.
    const XmlDfCovType* dfCov() const { return m_dfCov.get(); }
    void setDfCov(const XmlDfCovType& dfCov) { m_dfCov.assign(dfCov); }
    bool hasBestSensor() const { return bool(m_bestSensor); }
    /// Null when absent; setBestSensor() stores a copy.
    const XmlBestSensorType* bestSensor() const { return m_bestSensor.get(); }
    void setBestSensor(const XmlBestSensorType& bestSensor) { m_bestSensor.assign(bestSensor); }

    /// The picture file of the result that the server stored.
    const QString& screenshotFilename() const { return m_screenshotFilename; }
    void setScreenshotFilename(const QString& filename) { m_screenshotFilename = filename; }

protected:
    void describe(XmlWalker& walker, const QString& elementName) const override;
    void checkContent(XmlChecks& checks) const override;

private:
    /// The parameter object of a result type; null when absent or for a type
    /// without one.
    XmlElementBase* parameter(int type) const;
    /// Replaces the parameter object of a result type with a new one; null
    /// for a type without one.
    XmlElementBase* renewParameter(int type);

    ResultType m_type;
    XmlOwnedPtr<XmlFindSitesType> m_findSites;
    XmlOwnedPtr<XmlCepType> m_cep;
    XmlOwnedPtr<XmlDetectProbType> m_detectProb;
    XmlOwnedPtr<XmlDfCovType> m_dfCov;
    XmlOwnedPtr<XmlBestSensorType> m_bestSensor;
    QString m_screenshotFilename;
};

} // namespace KelXml
