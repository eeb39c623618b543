#pragma once

#include "XmlComposite.h"

namespace KelXml {

/// The identity of one order, a command message and the responses answering it:
/// `<ORDER_DEF><ORDER_ID>KEL...</ORDER_ID><ORDER_SENDER>host</ORDER_SENDER></ORDER_DEF>`.
/// No version and no attributes. The id is "KEL" and fifteen digits; the setters
/// refuse a malformed id or an empty sender, and reading drops them the same
/// way, so they show only as "Id not set." or "Sender not set." in the report.
/// \ingroup commands
class KELXML_EXPORT XmlOrderDef : public XmlComposite
{
public:
    XmlOrderDef();

    /// A new order: the id from the local time ("KEL" and yyMMddhhmmsszzz),
    /// the sender the host's name.
    static XmlOrderDef createValidInstance();

    void reset() override;

    /// Assigns only an id of the order-id form; false leaves the old one.
    bool setOrderId(const QString& orderId);
    /// Assigns only a non-empty sender; false leaves the old one.
    bool setOrderSender(const QString& orderSender);
    /// "KEL" and fifteen digits (yyMMddhhmmsszzz); empty until set.
    const QString& orderId() const { return m_orderId; }
    /// The host that sent the order; empty until set.
    const QString& orderSender() const { return m_orderSender; }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    static const XmlLayout& layout();

    QString m_orderId;
    QString m_orderSender;
};

} // namespace KelXml
