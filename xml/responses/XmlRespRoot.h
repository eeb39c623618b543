#pragma once

#include "XmlAutoRespType.h"
#include "XmlComposite.h"
#include "XmlInteractRespType.h"
#include "XmlOrderDef.h"
#include "XmlOwned.h"

#include <QDateTime>

#include <limits>

namespace KelXml {

/// A whole response message, under a root element named by the caller:
/// `<Response type="automatic" final="true" timestamp="2021-03-04T05:06:07">`
///   `<ORDER_DEF>...</ORDER_DEF><Automatic status="ack">...</Automatic></Response>`.
/// No version. The three attributes are read whether present or not, and a
/// missing or unknown one is a reading error. "ORDER_DEF" may stand anywhere
/// and any number of times, the last one kept; then one "Automatic" or
/// "Interactive" content element. The type is compared with the content only
/// by isValid() and syntaxError().
///
/// The timestamp defaults to the time of construction, and reset() takes the
/// time anew. Only the instant is taken then; it is converted to local time
/// when the timestamp is first asked for or written (reading a response
/// replaces it, so a server that reads responses never converts it), which
/// gives the same value as converting it at once unless the system's time
/// zone changes in between.
/// \ingroup responses
class KELXML_EXPORT XmlRespRoot : public XmlComposite
{
public:
    enum RespType : qint32
    {
        Undefined = 0, ///< written "UNDEFINED", never accepted
        Interactive,
        Automatic,
    };

    XmlRespRoot();

    void reset() override;

    RespType type() const { return m_type; }
    void setType(RespType type) { m_type = type; }
    /// False while more responses to the same order are to follow.
    bool isFinal() const { return m_final; }
    void setFinal(bool final) { m_final = final; }
    /// When the response was made, written in ISO 8601 to the second.
    const QDateTime& timestamp() const;
    void setTimestamp(const QDateTime& timestamp);

    bool hasOrderDef() const { return bool(m_orderDef); }
    /// Null when absent; setOrderDef() stores a copy.
    const XmlOrderDef* orderDef() const { return m_orderDef.get(); }
    void setOrderDef(const XmlOrderDef& orderDef) { m_orderDef.assign(orderDef); }
    bool hasAutoResp() const { return bool(m_autoResp); }
    /// Null when absent; setAutoResp() stores a copy and leaves an interactive
    /// content in place.
    const XmlAutoRespType* autoResp() const { return m_autoResp.get(); }
    void setAutoResp(const XmlAutoRespType& response) { m_autoResp.assign(response); }
    bool hasInteractResp() const { return bool(m_interactResp); }
    /// Null when absent; setInteractResp() stores a copy and leaves an automatic
    /// content in place.
    const XmlInteractRespType* interactResp() const { return m_interactResp.get(); }
    void setInteractResp(const XmlInteractRespType& response) { m_interactResp.assign(response); }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    static const XmlLayout& layout();

    // The instant of construction or reset, before it is converted.
    static constexpr qint64 converted = std::numeric_limits<qint64>::min();

    RespType m_type;
    bool m_final;
    mutable QDateTime m_timestamp;
    mutable qint64 m_madeAt; // ms since the epoch while not converted, else `converted`
    XmlOwnedPtr<XmlOrderDef> m_orderDef;
    XmlOwnedPtr<XmlAutoRespType> m_autoResp;
    XmlOwnedPtr<XmlInteractRespType> m_interactResp;
};

} // namespace KelXml
