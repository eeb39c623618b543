#include "XmlOrderDef.h"

#include "XmlElementReader.h"
#include "XmlLayout.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QSysInfo>

namespace KelXml {

const XmlLayout& XmlOrderDef::layout()
{
    using Self = XmlOrderDef;
    // Reading starts on the next token wherever the reader stands. A refused
    // tag is named in the message; the own end tag needs both children.
    static const XmlLayout layout =
        XmlLayout("XmlOrderDef", XmlElementReader::NamedWording, XmlLayout::NoVersion,
                  {
                      XmlField::text("ORDER_ID", &Self::setOrderId, &Self::orderId),
                      XmlField::text("ORDER_SENDER", &Self::setOrderSender, &Self::orderSender),
                  })
            .withoutPositionTest();
    return layout;
}

XmlOrderDef::XmlOrderDef()
    : XmlComposite(layout())
{}

XmlOrderDef XmlOrderDef::createValidInstance()
{
    XmlOrderDef order;
    order.setOrderId(QStringLiteral("KEL%1").arg(
        QDateTime::currentDateTime().toString(QStringLiteral("yyMMddhhmmsszzz"))));
    order.setOrderSender(QSysInfo::machineHostName());
    return order;
}

void XmlOrderDef::reset()
{
    m_orderId.clear();
    m_orderSender.clear();
    XmlComposite::reset();
}

namespace {

// "KEL" and fifteen ASCII digits: the ids as a client makes them.
bool isPlainOrderId(const QString& orderId)
{
    if (orderId.size() != 18 || !orderId.startsWith(QLatin1String("KEL")))
        return false;
    for (int i = 3; i < 18; ++i) {
        if (unsigned(orderId.at(i).unicode()) - '0' > 9)
            return false;
    }
    return true;
}

} // namespace

bool XmlOrderDef::setOrderId(const QString& orderId)
{
    // The ids as a client makes them are taken at once; the pattern decides
    // every other text.
    if (isPlainOrderId(orderId)) {
        m_orderId = orderId;
        return true;
    }
    if (!orderId.startsWith(QLatin1String("KEL")))
        return false;
    // The whole text must match: no line feed after the digits either. Any
    // Unicode decimal digit counts as a digit.
    static const QRegularExpression pattern(
        QRegularExpression::anchoredPattern(QStringLiteral("^KEL\\d{15}$")),
        QRegularExpression::UseUnicodePropertiesOption);
    if (!pattern.match(orderId).hasMatch())
        return false;
    m_orderId = orderId;
    return true;
}

bool XmlOrderDef::setOrderSender(const QString& orderSender)
{
    if (orderSender.isEmpty())
        return false;
    m_orderSender = orderSender;
    return true;
}

void XmlOrderDef::checkContent(XmlChecks& checks) const
{
    checks.expect(!m_orderId.isEmpty(), QStringLiteral("Id not set."));
    checks.expect(!m_orderSender.isEmpty(), QStringLiteral("Sender not set."));
}

} // namespace KelXml
