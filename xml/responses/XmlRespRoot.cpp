#include "XmlRespRoot.h"

#include "XmlDateTime.h"
#include "XmlElementReader.h"
#include "XmlEnumTexts.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlRespRoot");
const QString typeAttribute = QStringLiteral("type");
const QString finalAttribute = QStringLiteral("final");
const QString timestampAttribute = QStringLiteral("timestamp");
const QString orderDefElement = QStringLiteral("ORDER_DEF");
const QString automaticElement = QStringLiteral("Automatic");
const QString interactiveElement = QStringLiteral("Interactive");

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

XmlRespRoot::XmlRespRoot()
    : XmlElementBase(PermanentName{&typeName})
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

void XmlRespRoot::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    XmlElementReader in(*this, reader, elementName, XmlElementReader::NamedWording);
    if (!in.atStartTag())
        return;

    // Every attribute is read, also after an earlier one was refused; the
    // first refusal is the one reported.
    const QXmlStreamAttributes attributes = reader.attributes();
    m_type = RespType(in.readEnumAttribute(typeAttribute, typeTexts));
    const QString final = attributes.value(finalAttribute).toString();
    if (final.toUpper() == QLatin1String("TRUE") || final == QLatin1String("1"))
        m_final = true;
    else if (final.toUpper() == QLatin1String("FALSE") || final == QLatin1String("0"))
        m_final = false;
    else
        in.failAttribute(finalAttribute);
    setTimestamp(XmlKit::parseDateTime(attributes.value(timestampAttribute).toString()));
    if (!m_timestamp.isValid())
        in.failAttribute(timestampAttribute);

    struct Tokens : XmlElementReader::Tokens
    {
        XmlRespRoot& self;
        QXmlStreamReader& reader;
        bool contentRead = false;

        // Each element met is read into a fresh object; the content kind not met
        // stays as it was.
        bool start(QStringView name)
        {
            if (XmlKit::sameName(name, orderDefElement)) {
                self.m_orderDef = XmlOwnedPtr<XmlOrderDef>::make();
                self.m_orderDef->processXml(reader, orderDefElement);
                return true;
            }
            if (contentRead)
                return false;
            if (XmlKit::sameName(name, automaticElement)) {
                self.m_autoResp = XmlOwnedPtr<XmlAutoRespType>::make();
                self.m_autoResp->processXml(reader, automaticElement);
            } else if (XmlKit::sameName(name, interactiveElement)) {
                self.m_interactResp = XmlOwnedPtr<XmlInteractRespType>::make();
                self.m_interactResp->processXml(reader, interactiveElement);
            } else {
                return false;
            }
            contentRead = true;
            return true;
        }
    } tokens{{}, *this, reader};
    in.loop(tokens);
}

void XmlRespRoot::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    writer.writeStartElement(elementName);
    writer.writeAttribute(typeAttribute, typeTexts.text(m_type));
    writer.writeAttribute(finalAttribute,
                          m_final ? QStringLiteral("true") : QStringLiteral("false"));
    writer.writeAttribute(timestampAttribute, XmlKit::formatDateTime(timestamp()));
    if (m_orderDef)
        m_orderDef->produceXml(writer, orderDefElement);
    if (m_autoResp)
        m_autoResp->produceXml(writer, automaticElement);
    if (m_interactResp)
        m_interactResp->produceXml(writer, interactiveElement);
    writer.writeEndElement();
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
    m_orderDef.reset();
    m_autoResp.reset();
    m_interactResp.reset();
    m_final = true;
    m_type = Undefined;
    m_timestamp = QDateTime();
    m_madeAt = QDateTime::currentMSecsSinceEpoch();
    XmlElementBase::reset();
}

} // namespace KelXml
