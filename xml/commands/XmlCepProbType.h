#pragma once

#include "XmlEnumElement.h"

namespace KelXml {

/// The probability level of a circular error probable, as a text element:
/// `<Probability>90</Probability>`. No version and no attributes.
/// \ingroup commands
class KELXML_EXPORT XmlCepProbType : public XmlEnumElement
{
public:
    enum Prob
    {
        ProbUndefined = 0, ///< written "UNDEFINED", never accepted
        Prob50,
        Prob66,
        Prob75,
        Prob90,
        Prob95,
    };

    XmlCepProbType();

    Prob prob() const { return Prob(value()); }
    void setProb(Prob prob) { setValue(prob); }
};

} // namespace KelXml
