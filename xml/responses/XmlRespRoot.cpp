#include "XmlRespRoot.h"

#include "XmlEnumTexts.h"
#include "XmlLayout.h"

namespace KelXml {

namespace {
const XmlEnumTexts typeTexts({{XmlRespRoot::Interactive, "interactive"},
                              {XmlRespRoot::Automatic, "automatic"}},
                             "UNDEFINED");

// The content that the type announces must be there, and alone.
void checkAnnounced(XmlChecks& checks, XmlElementBase* announced, bool otherPresent,
                    const QString& bothMessage, const QString& noneMessage)
{
    if (!announced)
        checks.expect(false, noneMessage);
    else if (otherPresent)
        checks.expect(false, bothMessage);
    else
        checks.child(announced);
}
} // namespace

// Every attribute is read, also after an earlier one was refused; the first
// refusal is the one reported. ORDER_DEF may stand anywhere, any number of
// times, the last one kept; then one content element. Each element met is
// read into a fresh object; the content kind not met stays as it was.
const XmlLayout& XmlRespRoot::layout()
{
    using Self = XmlRespRoot;
    static const XmlLayout layout(
        "XmlRespRoot", XmlElementReader::NamedWording, XmlLayout::NoVersion,
        {
            XmlAttribute::enumeration("type", &Self::m_type, typeTexts),
            XmlAttribute::boolean("final", &Self::m_final),
            XmlAttribute::dateTime("timestamp", &Self::setTimestamp, &Self::timestamp),
            XmlField::optional("ORDER_DEF", &Self::m_orderDef).replaced().anywhere().repeated(),
            XmlField::single({XmlField::optional("Automatic", &Self::m_autoResp).replaced(),
                              XmlField::optional("Interactive", &Self::m_interactResp).replaced()},
                             "")
                .notRequired(),
        });
    return layout;
}

XmlRespRoot::XmlRespRoot()
    : XmlComposite(layout())
    , m_type(Undefined)
    , m_final(true)
    , m_madeAt(QDateTime::currentMSecsSinceEpoch())
{}

// The local time of the instant taken, converted once: what
// QDateTime::currentDateTime() would have given at that instant.
const QDateTime& XmlRespRoot::timestamp() const
{
    if (m_madeAt != converted) {
        m_timestamp = QDateTime::fromMSecsSinceEpoch(m_madeAt, Qt::LocalTime);
        m_madeAt = converted;
    }
    return m_timestamp;
}

void XmlRespRoot::setTimestamp(const QDateTime& timestamp)
{
    m_timestamp = timestamp;
    m_madeAt = converted;
}

void XmlRespRoot::checkContent(XmlChecks& checks) const
{
    // A type set beyond the enumeration asks nothing of the content.
    switch (m_type) {
    case Undefined:
        checks.expect(false, QStringLiteral("Type not defined."));
        break;
    case Automatic:
        checkAnnounced(checks, m_autoResp.get(), hasInteractResp(),
                       QStringLiteral("Type automatic but interactive content"),
                       QStringLiteral("Type automatic but no content"));
        break;
    case Interactive:
        checkAnnounced(checks, m_interactResp.get(), hasAutoResp(),
                       QStringLiteral("Type interactive but automatic content"),
                       QStringLiteral("Type interactive but no content"));
        break;
    }
    checks.child(m_orderDef.get());
}

void XmlRespRoot::reset()
{
    m_final = true;
    m_type = Undefined;
    m_timestamp = QDateTime();
    m_madeAt = QDateTime::currentMSecsSinceEpoch();
    XmlComposite::reset();
}

} // namespace KelXml
