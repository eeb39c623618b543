#include "XmlAutoRespType.h"

#include "XmlDateTime.h"
#include "XmlEnumTexts.h"
#include "XmlLayout.h"
#include "XmlWalk.h"

namespace KelXml {

namespace {
const QString statusAttribute = QStringLiteral("status");
const QString referenceElement = QStringLiteral("CommandReference");
const QString errorMessageElement = QStringLiteral("ErrorMessage");
const QString estimatedTimeElement = QStringLiteral("EstimatedTime");
const QString kelVersionElement = QStringLiteral("KelVersion");
const QString gridResultElement = QStringLiteral("GridResult");
const QString interlinkResultElement = QStringLiteral("InterlinkResult");

const XmlEnumTexts statusTexts({{XmlAutoRespType::Fault, "fault"}, {XmlAutoRespType::Ack, "ack"}},
                               "UNDEFINED");

} // namespace

// The reference, then one content item; the reference is refused after the
// content, and the element ends only once both were read. Reading leaves the
// content items it does not meet as they were.
const XmlLayout& XmlAutoRespType::layout()
{
    using Self = XmlAutoRespType;
    static const XmlLayout layout(
        "XmlAutoRespType", XmlElementReader::NamedWording, XmlLayout::NoVersion,
        {
            XmlAttribute::enumeration("status", &Self::m_status, statusTexts),
            XmlField::object("CommandReference", &Self::m_reference),
            XmlField::single(
                {XmlField::text("ErrorMessage", &Self::m_errorMessage),
                 XmlField::dateTime("EstimatedTime", &Self::m_estimatedTime,
                                    "Illegal dateTime format"),
                 XmlField::text("KelVersion", &Self::m_kelVersion),
                 XmlField::optional("GridResult", &Self::m_gridResult).replaced(),
                 XmlField::optional("InterlinkResult", &Self::m_interlinkResult).replaced()},
                ""),
        });
    return layout;
}

XmlAutoRespType::XmlAutoRespType()
    : XmlComposite(layout())
    , m_status(StatusUndefined)
{}

void XmlAutoRespType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    writer.writeStartElement(elementName);
    writer.writeAttribute(statusAttribute, statusTexts.text(m_status));
    m_reference.produceXml(writer, referenceElement);
    if (hasErrorMessage()) {
        writer.writeTextElement(errorMessageElement, m_errorMessage);
    } else if (hasEstimatedTime()) {
        writer.writeTextElement(estimatedTimeElement, XmlKit::formatDateTime(m_estimatedTime));
    } else {
        if (hasKelVersion())
            writer.writeTextElement(kelVersionElement, m_kelVersion);
        if (m_gridResult)
            m_gridResult->produceXml(writer, gridResultElement);
        if (m_interlinkResult)
            m_interlinkResult->produceXml(writer, interlinkResultElement);
    }
    writer.writeEndElement();
}

bool XmlAutoRespType::isValid() const
{
    bool valid = m_status != StatusUndefined && m_reference.isValid();
    if (valid && hasErrorMessage()) {
        valid = m_status == Fault && !hasEstimatedTime();
    } else {
        // An odd number of content items passes: one, and also three.
        const int items = int(hasKelVersion()) + int(hasInterlinkResult()) + int(hasGridResult()) +
                          int(hasEstimatedTime());
        valid = valid && m_status == Ack && items % 2 == 1;
    }
    if (valid && m_gridResult)
        valid = m_gridResult->isValid();
    if (valid && m_interlinkResult)
        valid = m_interlinkResult->isValid();
    return valid;
}

void XmlAutoRespType::checkContent(XmlChecks& checks) const
{
    checks.expect(m_status != StatusUndefined, QStringLiteral("Status not defined."));
    checks.child(const_cast<XmlReferenceType*>(&m_reference));
    if (hasErrorMessage()) {
        checks.expect(m_status == Fault, QStringLiteral("Has ErrorMessage but not status 'fault'"));
        checks.expect(!hasEstimatedTime(),
                      QStringLiteral("Has ErrorMessage but also EstimatedTime"));
    } else {
        // An acknowledgement without any content adds no message here.
        checks.expect(m_status == Ack, QStringLiteral("Must have status 'ack'"));
        const bool result = m_gridResult || m_interlinkResult;
        if (hasEstimatedTime() && (hasKelVersion() || result))
            checks.expect(false, QStringLiteral("If EstimatedTime given, no results allowed"));
        else if (hasKelVersion() && result)
            checks.expect(false, QStringLiteral("If KelVersion set, no results allowed"));
        else if (m_gridResult && m_interlinkResult)
            checks.expect(false, QStringLiteral("Only one result allowed"));
    }
    checks.child(m_gridResult.get());
    checks.child(m_interlinkResult.get());
}

void XmlAutoRespType::reset()
{
    m_errorMessage.clear();
    m_kelVersion.clear();
    m_estimatedTime = QDateTime();
    m_status = StatusUndefined;
    XmlComposite::reset();
}

void XmlAutoRespType::describe(XmlWalker& walker, const QString&) const
{
    // What produceXml() writes: the error message, or the estimated time, or
    // the rest.
    walker.attribute(statusAttribute, XmlValue::enumeration(m_status, statusTexts.text(m_status)));
    walker.child(&m_reference, referenceElement);
    if (hasErrorMessage()) {
        walker.textElement(errorMessageElement, XmlValue::text(m_errorMessage));
    } else if (hasEstimatedTime()) {
        walker.textElement(estimatedTimeElement, XmlValue::dateTime(m_estimatedTime));
    } else {
        if (hasKelVersion())
            walker.textElement(kelVersionElement, XmlValue::text(m_kelVersion));
        walker.child(m_gridResult.get(), gridResultElement);
        walker.child(m_interlinkResult.get(), interlinkResultElement);
    }
}

} // namespace KelXml
