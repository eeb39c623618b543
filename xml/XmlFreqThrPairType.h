#pragma once

#include "XmlComposite.h"
#include "XmlFieldstrengthType.h"
#include "XmlFreqType.h"

namespace KelXml {

/// A frequency with its receiver threshold:
/// `<Pair version="1.0"><Frequency .../><RxThreshold .../></Pair>`.
/// \ingroup values
class KELXML_EXPORT XmlFreqThrPairType : public XmlVersionedComposite
{
public:
    XmlFreqThrPairType();

    const XmlFreqType* frequency() const { return &m_frequency; }
    void setFrequency(const XmlFreqType& frequency) { m_frequency = frequency; }
    /// The receiver threshold, written as "RxThreshold".
    const XmlFieldstrengthType* fieldstrength() const { return &m_threshold; }
    void setFieldstrength(const XmlFieldstrengthType& threshold) { m_threshold = threshold; }

private:
    static const XmlLayout& layout();

    XmlFreqType m_frequency;
    XmlFieldstrengthType m_threshold;
};

} // namespace KelXml
