#pragma once

#include "IXmlElement.h"
#include "XmlText.h"

#include <QList>
#include <QString>

namespace KelXml {

class XmlChecks;
class XmlPositionRecorder;
class XmlReportSink;
class XmlWalker;

/// The base of every element class. It holds the class name that every message
/// of the element carries, and the text that syntaxError() accumulates. Both
/// fit in one pointer: the name is shared by all objects of a class, and the
/// text takes memory only while there is some.
///
/// isValid() and syntaxError() run the element's checkContent() once as a
/// verdict and once as a report, so that a class states each rule and its
/// message in one place. A class whose verdict and report differ overrides them.
/// \ingroup framework
class KELXML_EXPORT XmlElementBase : public IXmlElement
{
public:
    explicit XmlElementBase(const QString& classname);
    XmlElementBase(const XmlElementBase& other);
    XmlElementBase& operator=(const XmlElementBase& other);
    ~XmlElementBase() override;

    bool isValid() const override;
    QString syntaxError() override;
    /// Returns the element to its constructed state. This base part empties the
    /// accumulated error text; every concrete reset() ends here.
    void reset() override;

    /// Walks the same rules as syntaxError(), in the same order, and hands each
    /// message to the sink with the frames of the elements around it, without
    /// building, keeping or changing any report text. For reports too large to
    /// hold whole, or when only some of their messages are wanted.
    void reportTo(XmlReportSink& sink) const;

    /// Walks the element and everything below it in writing order, as if it
    /// were written under the given name: the walker is handed each element,
    /// its attributes, its typed value and its children (see XmlWalker).
    /// Nothing is checked or changed.
    void walk(XmlWalker& walker, const QString& elementName) const;

    /// Where the element's start tag stood when it was read with positions
    /// recorded (XmlPositionRecorder, XmlDocumentReader::setRecordsPositions()):
    /// the line and column as Qt reports them on the start tag (1-based),
    /// the element name and its number among the siblings of that name
    /// (1 for the first). All zero, and a null name, otherwise: for an element
    /// built by setters or read without positions. Copies keep the place;
    /// reset() drops it.
    struct Place
    {
        QString elementName;
        qint64 line = 0;
        qint64 column = 0;
        int index = 0;
        bool isNull() const { return line == 0; }
    };
    Place place() const;

protected:
    /// A class name that outlives every object made with it, such as one
    /// held by a static table: the object refers to it as it is.
    struct PermanentName
    {
        const QString* name;
    };
    explicit XmlElementBase(PermanentName classname);

    /// Raises a custom error on the reader:
    /// `"in <class> (line <l>, column <c>): <message>."`
    void setReaderError(QXmlStreamReader& reader, const QString& message);
    /// Appends a message to the accumulated text, one per line; empty ones are ignored.
    void addSyntaxError(const QString& message);
    void clearSyntaxError();
    const QString& classname() const
    {
        // A report starts with the class name's address (see Report).
        return m_state & 1 ? **reinterpret_cast<const QString* const*>(m_state & ~quintptr(1))
                           : *reinterpret_cast<const QString*>(m_state);
    }
    /// The accumulated text framed by `"+++ in <class> Begin:"` and
    /// `"--- in <class> End"`; a null string when nothing was accumulated.
    QString mySyntaxError() const;

    /// States the element's rules: its version, its bounds in order, then its
    /// children in writing order. The default has no rules.
    virtual void checkContent(XmlChecks& checks) const;
    /// The name the element writes the child with, for a walk that locates
    /// messages and was not told it; null when unknown (the default).
    virtual const QString* writtenNameOf(const XmlElementBase& child) const;
    /// Hands the walker the element's attributes, value and children, in the
    /// order produceXml() writes them, for walk(); elementName is the name the
    /// element is written under. The bases state it from their tables; a
    /// class that writes its element itself states it beside produceXml().
    /// The default describes nothing.
    virtual void describe(XmlWalker& walker, const QString& elementName) const;

private:
    friend class XmlChecks;
    friend class XmlElementReader;
    friend class XmlIssueSink;
    friend class XmlPositionRecorder;
    friend class XmlReportSink;

    struct Report;
    Report* report() const
    {
        return m_state & 1 ? reinterpret_cast<Report*>(m_state & ~quintptr(1)) : nullptr;
    }
    void dropReport();
    // Drops the accumulated messages and keeps the place, if any.
    void dropMessages();
    void setPlace(Place place);
    // The report, created when there is none and unshared before it changes.
    Report* writableReport();

    // One word per element: the class name (a string shared by every object
    // of the class) or, once text has been accumulated, a Report holding the
    // name and the messages, marked by the lowest bit. A child's block is held
    // in its parent's report by reference, not copied, and copies of an
    // element share its report until one of them changes it.
    quintptr m_state;
};

/// True when the two trees hold the same content: the same class, version,
/// attributes, values and children, in order, as walk() shows them (the
/// accumulated report and the recorded positions do not count). A NaN equals
/// another NaN, and a date-time equals another only when the instant and the
/// way it is written (UTC, local or an offset from UTC) agree: see XmlValue.
/// Equal trees write the same bytes; values that differ beyond the written
/// precision are unequal though they write the same text.
/// \relates XmlElementBase
KELXML_EXPORT bool operator==(const XmlElementBase& a, const XmlElementBase& b);
/// \relates XmlElementBase
KELXML_EXPORT bool operator!=(const XmlElementBase& a, const XmlElementBase& b);

/// Receives an element tree's report as a walk (XmlElementBase::reportTo()):
/// every element checked opens a frame, its own messages and its children's
/// frames follow in report order, and the frame closes. A frame that receives
/// no message, directly or below, is not part of the report: syntaxError()
/// shows a block only for an element with at least one message.
/// \ingroup framework
class KELXML_EXPORT XmlReportSink
{
public:
    virtual ~XmlReportSink();
    /// The checks of an element begin; classname is what its block is framed with.
    virtual void enter(const QString& classname) = 0;
    /// The same, with the element whose checks begin and the name its parent
    /// writes it with (null for the element the walk starts from, or when the
    /// parent does not say). The default calls enter() with the element's
    /// class name; a sink that locates messages overrides it.
    virtual void enterElement(const XmlElementBase& element, const QString* elementName);
    /// A message of the element entered last and not yet left: one line of
    /// the report, or several for an element outside the framework.
    virtual void message(const QString& text) = 0;
    /// The checks of the element entered last end.
    virtual void leave() = 0;
    /// False once the sink needs nothing more: the walk then enters no
    /// further element and hands over no further message.
    virtual bool wantsMore() const { return true; }
};

/// Collects the outcome of an element's rules, either as a verdict (stopping at
/// the first failure), as a report into the element's accumulated text, or as
/// a walk handed to a sink.
/// \ingroup framework
class KELXML_EXPORT XmlChecks
{
public:
    /// A verdict only: no message is built.
    XmlChecks() = default;
    /// A report: each failure adds its message to the element's text, and
    /// each child's block is added as one message.
    explicit XmlChecks(XmlElementBase& element)
        : m_report(&element)
    {}
    /// A walk: each failure and each child's frame goes to the sink.
    explicit XmlChecks(XmlReportSink& sink)
        : m_sink(&sink)
    {}

    /// False once a rule has failed.
    bool passed() const { return m_passed; }

    /// Fails with `"Version \"<version>\" not supported"` unless supported.
    void version(bool supported, const QString& version)
    {
        if (!supported)
            failVersion(version);
    }
    /// Fails with the message unless ok holds.
    void expect(bool ok, const QString& message)
    {
        if (!ok)
            fail(message);
    }
    /// Takes in a child's verdict or report; a null child is skipped. The
    /// element name is the one the child is written with, for a sink that
    /// locates messages.
    void child(XmlElementBase* child, const QString* elementName = nullptr)
    {
        if (!child)
            return;
        if (m_report || m_sink)
            descend(*child, elementName);
        else if (m_passed && !child->isValid())
            m_passed = false;
    }
    template <class T>
    /// Takes in every child of the list, in order.
    void children(const QList<T*>& list, const QString* elementName = nullptr)
    {
        // The members lie apart on the heap: asking for the next ones early
        // overlaps their fetching with the work on this one.
        const qsizetype count = list.size();
        for (qsizetype i = 0; i < count; ++i) {
#if defined(__GNUC__)
            if (i + 2 < count)
                __builtin_prefetch(list.at(i + 2));
#endif
            child(list.at(i), elementName);
        }
    }

private:
    void fail(const QString& message);
    void failVersion(const QString& version);
    // The child's own rules, run in the mode of these checks.
    void descend(XmlElementBase& child, const QString* elementName);

    XmlElementBase* m_report = nullptr;
    XmlReportSink* m_sink = nullptr;
    bool m_passed = true;
};

} // namespace KelXml
