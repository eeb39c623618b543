#pragma once

#include "XmlComposite.h"
#include "XmlGridResultType.h"
#include "XmlInterlinkResultType.h"
#include "XmlOwned.h"
#include "XmlReferenceType.h"

#include <QDateTime>

namespace KelXml {

/// The server's answer to one command: the command's reference, whether it was
/// accepted ("ack") or failed ("fault"), and one piece of content.
/// `<Automatic status="ack"><CommandReference>cmd-1</CommandReference>`
///   `<KelVersion>4.2</KelVersion></Automatic>`.
/// No version. The content is one of "ErrorMessage", "EstimatedTime",
/// "KelVersion", "GridResult" and "InterlinkResult"; the reading takes exactly
/// one and needs the reference. Reading does not reset the object first: the
/// content items it does not meet stay as they were.
///
/// The writer picks by priority: an error message alone, else an estimated
/// time alone, else the version, the grid result and the interlink result,
/// each when held, so an object holding several of the last three writes a
/// form that its own reader refuses.
///
/// isValid() counts the content items of an acknowledgement by parity (one or
/// three pass), while syntaxError() names the three-item case as a fault.
/// \ingroup responses
class KELXML_EXPORT XmlAutoRespType : public XmlComposite
{
public:
    enum RespStatus : qint32
    {
        StatusUndefined = 0, ///< written "UNDEFINED", never accepted
        Fault,
        Ack,
    };

    XmlAutoRespType();

    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    bool isValid() const override;
    void reset() override;

    RespStatus status() const { return m_status; }
    void setStatus(RespStatus status) { m_status = status; }
    /// The reference of the command answered, written as "CommandReference".
    const XmlReferenceType* reference() const { return &m_reference; }
    void setReference(const XmlReferenceType& reference) { m_reference = reference; }

    bool hasErrorMessage() const { return !m_errorMessage.isEmpty(); }
    /// Why the command failed; empty when absent.
    const QString& errorMessage() const { return m_errorMessage; }
    void setErrorMessage(const QString& message) { m_errorMessage = message; }
    /// Held when valid; a null date-time when absent.
    bool hasEstimatedTime() const { return m_estimatedTime.isValid(); }
    const QDateTime& estimatedTime() const { return m_estimatedTime; }
    void setEstimatedTime(const QDateTime& time) { m_estimatedTime = time; }
    bool hasKelVersion() const { return !m_kelVersion.isEmpty(); }
    /// The server's version, the answer to a version query; empty when absent.
    const QString& kelVersion() const { return m_kelVersion; }
    void setKelVersion(const QString& version) { m_kelVersion = version; }
    bool hasGridResult() const { return bool(m_gridResult); }
    /// Null when absent; setGridResult() stores a copy.
    const XmlGridResultType* gridResult() const { return m_gridResult.get(); }
    void setGridResult(const XmlGridResultType& result) { m_gridResult.assign(result); }
    bool hasInterlinkResult() const { return bool(m_interlinkResult); }
    /// Null when absent; setInterlinkResult() stores a copy.
    const XmlInterlinkResultType* interlinkResult() const { return m_interlinkResult.get(); }
    void setInterlinkResult(const XmlInterlinkResultType& result)
    {
        m_interlinkResult.assign(result);
    }

protected:
    void describe(XmlWalker& walker, const QString& elementName) const override;
    /// The report; the verdict is isValid()'s own.
    void checkContent(XmlChecks& checks) const override;

private:
    static const XmlLayout& layout();

    RespStatus m_status;
    XmlReferenceType m_reference;
    QDateTime m_estimatedTime;
    XmlOwnedPtr<XmlGridResultType> m_gridResult;
    XmlOwnedPtr<XmlInterlinkResultType> m_interlinkResult;
    QString m_errorMessage;
    QString m_kelVersion;
};

} // namespace KelXml
