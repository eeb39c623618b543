#pragma once

#include "XmlElementBase.h"
#include "XmlFieldstrengthType.h"
#include "XmlFreqType.h"
#include "XmlOwned.h"

namespace KelXml {

// A frequency with its receiver threshold:
// <Pair version="1.0"><Frequency .../><RxThreshold .../></Pair>.
class KELXML_EXPORT XmlFreqThrPairType : public XmlElementBase
{
public:
    XmlFreqThrPairType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    const XmlFreqType* frequency() const { return m_frequency.get(); }
    void setFrequency(const XmlFreqType& frequency) { m_frequency.assign(frequency); }
    const XmlFieldstrengthType* fieldstrength() const { return m_threshold.get(); }
    void setFieldstrength(const XmlFieldstrengthType& threshold) { m_threshold.assign(threshold); }
    QString version() const { return m_version; }
    void setVersion(const QString& version) { m_version = version; }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    bool supportsVersion() const;

    XmlOwnedPtr<XmlFreqType> m_frequency;
    XmlOwnedPtr<XmlFieldstrengthType> m_threshold;
    QString m_version;
};

} // namespace KelXml
