#pragma once

#include "XmlElementBase.h"
#include "XmlWalk.h"

#include <QList>
#include <QString>
#include <QXmlStreamEntityResolver>

#include <utility>
#include <vector>

class QXmlStreamReader;

namespace KelXml {

/// One fault of an element tree, as data: the message as syntaxError() shows
/// it, the element it belongs to and, when the tree was read with positions
/// recorded, where that element's start tag stands.
/// \ingroup framework
struct KELXML_EXPORT XmlIssue
{
    /// The line of the report, exactly: "Illegal unit."
    QString message;
    /// The class of the element whose rule failed: "XmlNumCoordType".
    QString className;
    /// The class the message's block is framed with in the report, which a
    /// class may share with its base: "XmlCoordinateType".
    QString frameClass;
    /// The element names from the root to the element, a name followed by
    /// its number among the siblings of that name from the second on:
    /// "Command/Create[3]/Station/SignalPath/Devices/Device[2]/Gains/Gain[4]".
    /// The names as read, or for elements built by setters the names they
    /// are written with.
    QString path;
    /// The start tag of the element, as Qt reports the position on it
    /// (1-based); for an element that the document did not hold (a default
    /// child), that of the nearest element around it that it held. Zero for
    /// a tree read without positions or built by setters.
    qint64 line = 0;
    qint64 column = 0;
};

/// Receives the faults of an element tree one by one, as XmlIssue, from the
/// same walk that prints a report (XmlElementBase::reportTo()): every message
/// of the report is one issue, in the report's order, and nothing holds the
/// report. Derive and implement issue(); wantsMore() may end the walk early.
///
/// \code
/// struct Printer : KelXml::XmlIssueSink {
///     using XmlIssueSink::XmlIssueSink;
///     void issue(const KelXml::XmlIssue& i) override { qInfo() << i.line << i.path << i.message; }
/// };
/// Printer printer(result.rootName);
/// static_cast<const KelXml::XmlElementBase&>(*result.root).reportTo(printer);
/// \endcode
/// \ingroup framework
class KELXML_EXPORT XmlIssueSink : public XmlReportSink
{
public:
    /// rootName: the name of the element the walk starts from, when it has
    /// no recorded place (a tree built by setters).
    explicit XmlIssueSink(const QString& rootName = QString());
    ~XmlIssueSink() override;

    /// One fault of the tree.
    virtual void issue(const XmlIssue& issue) = 0;

    /// The faults of the tree, in report order.
    static QList<XmlIssue> collect(const XmlElementBase& root, const QString& rootName = QString());

    void enter(const QString& classname) final;
    void enterElement(const XmlElementBase& element, const QString* elementName) final;
    void message(const QString& text) final;
    void leave() final;

private:
    struct Frame
    {
        const XmlElementBase* element = nullptr;
        const QString* frameClass = nullptr;
        QString name;
        int index = 0;
        qint64 line = 0;
        qint64 column = 0;
        XmlSiblingCount counts; // children entered, by name
    };
    void push(const XmlElementBase* element, const QString& frameClass, const QString* name);
    void emitLine(const QString& text);

    QString m_rootName;
    std::vector<Frame> m_frames;
};

/// Records where each element read from a QXmlStreamReader starts, while it
/// lives: construct it on the reader before the root's processXml() and keep
/// it until that returns. XmlDocumentReader does this when asked
/// (XmlDocumentReader::setRecordsPositions()). Each element read gets its
/// place (XmlElementBase::place()), which XmlIssueSink reports.
///
/// It stands on the reader as its entity resolver and hands any question
/// for one on to the resolver that was set before, which it restores.
/// \ingroup framework
class KELXML_EXPORT XmlPositionRecorder : public QXmlStreamEntityResolver
{
public:
    explicit XmlPositionRecorder(QXmlStreamReader& reader);
    ~XmlPositionRecorder() override;
    XmlPositionRecorder(const XmlPositionRecorder&) = delete;
    XmlPositionRecorder& operator=(const XmlPositionRecorder&) = delete;

    QString resolveEntity(const QString& publicId, const QString& systemId) override;
    QString resolveUndeclaredEntity(const QString& name) override;

    /// The recorder standing on the reader; null when there is none.
    static XmlPositionRecorder* of(const QXmlStreamReader& reader);
    /// An element begins to be read from the reader's current start tag.
    void enter(XmlElementBase& element, const QString& elementName);
    /// The element entered last has been read.
    void leave();

private:
    QXmlStreamReader& m_reader;
    QXmlStreamEntityResolver* m_previous;
    // Per element being read, its children so far by name; the first entry
    // counts the root.
    std::vector<XmlSiblingCount> m_counts;
};

} // namespace KelXml
