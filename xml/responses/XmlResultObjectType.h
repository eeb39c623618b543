#pragma once

#include "XmlDfType.h"
#include "XmlElementBase.h"
#include "XmlEmitterType.h"
#include "XmlOwned.h"
#include "XmlReceiverType.h"
#include "XmlStationType.h"

namespace KelXml {

/// One scenario object that the server reports: a station, an emitter, a
/// receiver or a direction finder.
/// `<Station><Emitter version="1.0">...</Emitter></Station>`.
/// No version, no position check. It is meant to hold one object; only the
/// reading enforces that. The reading refuses every end tag, the element's own
/// included, so it always ends in an error once the object has been read.
/// \ingroup responses
class KELXML_EXPORT XmlResultObjectType : public XmlElementBase
{
public:
    XmlResultObjectType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    bool hasStation() const { return bool(m_station); }
    /// Null when absent; setStation() stores a copy.
    const XmlStationType* station() const { return m_station.get(); }
    void setStation(const XmlStationType& station) { m_station.assign(station); }
    bool hasEmitter() const { return bool(m_emitter); }
    /// Null when absent; setEmitter() stores a copy.
    const XmlEmitterType* emitter() const { return m_emitter.get(); }
    void setEmitter(const XmlEmitterType& emitter) { m_emitter.assign(emitter); }
    bool hasRx() const { return bool(m_rx); }
    /// Null when absent; setRx() stores a copy.
    const XmlReceiverType* rx() const { return m_rx.get(); }
    void setRx(const XmlReceiverType& rx) { m_rx.assign(rx); }
    bool hasDf() const { return bool(m_df); }
    /// Null when absent; setDf() stores a copy.
    const XmlDfType* df() const { return m_df.get(); }
    void setDf(const XmlDfType& df) { m_df.assign(df); }

protected:
    void describe(XmlWalker& walker, const QString& elementName) const override;
    void checkContent(XmlChecks& checks) const override;

private:
    XmlOwnedPtr<XmlStationType> m_station;
    XmlOwnedPtr<XmlEmitterType> m_emitter;
    XmlOwnedPtr<XmlReceiverType> m_rx;
    XmlOwnedPtr<XmlDfType> m_df;
};

} // namespace KelXml
