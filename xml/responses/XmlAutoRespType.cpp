#include "XmlAutoRespType.h"

#include "XmlDateTime.h"
#include "XmlElementReader.h"
#include "XmlEnumTexts.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlAutoRespType");
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

XmlAutoRespType::XmlAutoRespType()
    : XmlElementBase(PermanentName{&typeName})
    , m_status(StatusUndefined)
{}

void XmlAutoRespType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    XmlElementReader in(*this, reader, elementName, XmlElementReader::NamedWording);
    if (!in.atStartTag())
        return;
    m_status = RespStatus(in.readEnumAttribute(statusAttribute, statusTexts));

    struct Tokens : XmlElementReader::Tokens
    {
        XmlAutoRespType& self;
        QXmlStreamReader& reader;
        XmlElementReader& in;
        // The reference, then one content child; the reference is refused after
        // the content, and the element ends only once both were read.
        bool referenceRead = false;
        bool contentRead = false;

        bool readContent(QStringView name)
        {
            if (XmlKit::sameName(name, errorMessageElement)) {
                self.m_errorMessage = reader.readElementText();
            } else if (XmlKit::sameName(name, estimatedTimeElement)) {
                self.m_estimatedTime = XmlKit::parseDateTime(reader.readElementText());
                if (!self.m_estimatedTime.isValid())
                    in.fail(QStringLiteral("Illegal dateTime format"));
            } else if (XmlKit::sameName(name, kelVersionElement)) {
                self.m_kelVersion = reader.readElementText();
            } else if (XmlKit::sameName(name, gridResultElement)) {
                self.m_gridResult = XmlOwnedPtr<XmlGridResultType>::make();
                self.m_gridResult->processXml(reader, gridResultElement);
            } else if (XmlKit::sameName(name, interlinkResultElement)) {
                self.m_interlinkResult = XmlOwnedPtr<XmlInterlinkResultType>::make();
                self.m_interlinkResult->processXml(reader, interlinkResultElement);
            } else {
                return false;
            }
            return true;
        }
        bool start(QStringView name)
        {
            if (contentRead)
                return false;
            if (XmlKit::sameName(name, referenceElement)) {
                if (referenceRead)
                    return false;
                self.m_reference.processXml(reader, referenceElement);
                referenceRead = true;
                return true;
            }
            contentRead = readContent(name);
            return contentRead;
        }
        bool mayEnd() { return referenceRead && contentRead; }
    } tokens{{}, *this, reader, in};
    in.loop(tokens);
}

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
    m_reference.reset();
    m_estimatedTime = QDateTime();
    m_status = StatusUndefined;
    m_gridResult.reset();
    m_interlinkResult.reset();
    XmlElementBase::reset();
}

} // namespace KelXml
