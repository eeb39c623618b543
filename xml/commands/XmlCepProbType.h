#pragma once

#include "XmlElementBase.h"

namespace KelXml {

// The probability level of a circular error probable, as a text element:
// <Probability>90</Probability>. No version and no attributes.
class KELXML_EXPORT XmlCepProbType : public XmlElementBase
{
public:
    enum Prob
    {
        ProbUndefined = 0, // written "UNDEFINED", never accepted
        Prob50,
        Prob66,
        Prob75,
        Prob90,
        Prob95,
    };

    XmlCepProbType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    Prob prob() const { return m_prob; }
    void setProb(Prob prob) { m_prob = prob; }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    Prob m_prob;
};

} // namespace KelXml
