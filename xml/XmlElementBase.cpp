#include "XmlElementBase.h"

#include <QXmlStreamReader>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <mutex>
#include <unordered_set>
#include <vector>

namespace KelXml {

// The messages an element has accumulated. A child's block is one message of
// its parent's, held as a reference to the child's report: building a deep
// report copies no text from level to level, and the text is made only when
// asked for. Reports are shared between copies and parents, and never change
// while shared (writableReport() unshares one first).
struct XmlElementBase::Report
{
    struct Message
    {
        QString text;
        Report* block = nullptr; // a child's block, held by reference; text is then empty
    };

    explicit Report(const QString* name)
        : classname(name)
    {
        static_assert(std::is_standard_layout<Report>::value && offsetof(Report, classname) == 0,
                      "classname() finds the class name at the start of a report");
    }
    Report(const Report& other)
        : classname(other.classname)
        , messages(other.messages)
        , place(other.place)
    {
        for (const Message& message : messages)
            retain(message.block);
    }
    Report& operator=(const Report&) = delete;
    ~Report() { clearMessages(); }

    void clearMessages()
    {
        for (const Message& message : messages)
            release(message.block);
        messages.clear();
    }

    static void retain(Report* report)
    {
        if (report)
            report->references.fetch_add(1, std::memory_order_relaxed);
    }
    static void release(Report* report)
    {
        if (report && report->references.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete report;
    }

    // The length of the framed block, then the block written at out.
    qsizetype framedLength() const;
    QChar* writeFramed(QChar* out) const;

    const QString* classname; // first: classname() reads it through the tagged word
    std::atomic<int> references{1};
    std::vector<Message> messages;
    // Where the element was read, when that was recorded: a report may
    // hold a place and no message.
    Place place;
};

namespace {

const QLatin1String blockBegin("+++ in ");
const QLatin1String blockBeginEnd(" Begin:\n");
const QLatin1String blockEnd("\n--- in ");
const QLatin1String blockEndEnd(" End");

QChar* put(QChar* out, QLatin1String text)
{
    for (const char c : text)
        *out++ = QLatin1Char(c);
    return out;
}

QChar* put(QChar* out, const QString& text)
{
    return std::copy(text.constBegin(), text.constEnd(), out);
}

} // namespace

qsizetype XmlElementBase::Report::framedLength() const
{
    qsizetype length = blockBegin.size() + blockBeginEnd.size() + blockEnd.size() +
                       blockEndEnd.size() + 2 * classname->size();
    for (const Message& message : messages)
        length += message.block ? message.block->framedLength() : message.text.size();
    return length + qsizetype(messages.size()) - 1; // the line feeds between messages
}

QChar* XmlElementBase::Report::writeFramed(QChar* out) const
{
    out = put(put(put(out, blockBegin), *classname), blockBeginEnd);
    bool first = true;
    for (const Message& message : messages) {
        if (!first)
            *out++ = QLatin1Char('\n');
        first = false;
        out = message.block ? message.block->writeFramed(out) : put(out, message.text);
    }
    return put(put(put(out, blockEnd), *classname), blockEndEnd);
}

namespace {

constexpr quintptr reportBit = 1;

struct NameHash
{
    size_t operator()(const QString& name) const { return qHash(name); }
};

// The one shared copy of a class name given as any string. The library's own
// classes pass names with static storage (PermanentName) and never come here.
const QString* sharedName(const QString& name)
{
    static std::mutex mutex;
    // Never destroyed: elements with static storage may outlive any static here.
    static auto* names = new std::unordered_set<QString, NameHash>;
    const std::lock_guard<std::mutex> lock(mutex);
    return &*names->insert(name).first;
}

} // namespace

XmlElementBase::XmlElementBase(const QString& classname)
    : m_state(quintptr(sharedName(classname)))
{}

XmlElementBase::XmlElementBase(PermanentName classname)
    : m_state(quintptr(classname.name))
{}

XmlElementBase::XmlElementBase(const XmlElementBase& other)
    : IXmlElement(other)
    , m_state(other.m_state)
{
    Report::retain(other.report()); // shared until one side changes it
}

XmlElementBase& XmlElementBase::operator=(const XmlElementBase& other)
{
    if (this != &other) {
        Report::retain(other.report());
        dropReport();
        m_state = other.m_state;
    }
    return *this;
}

XmlElementBase::~XmlElementBase()
{
    dropReport();
}

void XmlElementBase::dropReport()
{
    if (Report* mine = report()) { // the lowest bit: see report()
        m_state = quintptr(mine->classname);
        Report::release(mine);
    }
}

void XmlElementBase::dropMessages()
{
    const Report* mine = report();
    if (!mine || mine->messages.empty())
        return;
    if (mine->place.isNull())
        dropReport();
    else
        writableReport()->clearMessages();
}

void XmlElementBase::setPlace(Place place)
{
    writableReport()->place = std::move(place);
}

XmlElementBase::Place XmlElementBase::place() const
{
    const Report* mine = report();
    return mine ? mine->place : Place();
}

XmlElementBase::Report* XmlElementBase::writableReport()
{
    Report* mine = report();
    if (!mine) {
        mine = new Report(reinterpret_cast<const QString*>(m_state));
    } else if (mine->references.load(std::memory_order_acquire) != 1) {
        Report* shared = mine;
        mine = new Report(*shared);
        Report::release(shared);
    } else {
        return mine;
    }
    m_state = quintptr(mine) | reportBit;
    return mine;
}

bool XmlElementBase::isValid() const
{
    XmlChecks verdict;
    checkContent(verdict);
    return verdict.passed();
}

QString XmlElementBase::syntaxError()
{
    clearSyntaxError();
    XmlChecks report(*this);
    checkContent(report);
    return mySyntaxError();
}

void XmlElementBase::reset()
{
    dropReport();
}

void XmlElementBase::setReaderError(QXmlStreamReader& reader, const QString& message)
{
    static const QString located = QStringLiteral("in %3 (line %1, column %2): %4.");
    reader.raiseError(
        located.arg(reader.lineNumber()).arg(reader.columnNumber()).arg(classname()).arg(message));
}

void XmlElementBase::addSyntaxError(const QString& message)
{
    if (message.isEmpty())
        return;
    writableReport()->messages.push_back({message, nullptr});
}

void XmlElementBase::clearSyntaxError()
{
    dropMessages();
}

QString XmlElementBase::mySyntaxError() const
{
    // "+++ in <class> Begin:\n<messages>\n--- in <class> End", the blocks of
    // the children written in place: the text is built once, at its size.
    const Report* mine = report();
    if (!mine || mine->messages.empty())
        return QString();
    QString text(mine->framedLength(), Qt::Uninitialized);
    mine->writeFramed(text.data());
    return text;
}

void XmlElementBase::reportTo(XmlReportSink& sink) const
{
    if (!sink.wantsMore())
        return;
    sink.enterElement(*this, nullptr);
    XmlChecks checks(sink);
    checkContent(checks);
    sink.leave();
}

void XmlElementBase::checkContent(XmlChecks&) const {}

const QString* XmlElementBase::writtenNameOf(const XmlElementBase&) const
{
    return nullptr;
}

void XmlChecks::failVersion(const QString& version)
{
    fail(QStringLiteral("Version \"%1\" not supported").arg(version));
}

XmlReportSink::~XmlReportSink() = default;

void XmlReportSink::enterElement(const XmlElementBase& element, const QString*)
{
    enter(element.classname());
}

void XmlChecks::descend(XmlElementBase& child, const QString* elementName)
{
    if (m_sink) {
        if (!m_sink->wantsMore())
            return;
        XmlChecks inner(*m_sink);
        m_sink->enterElement(child, elementName);
        child.checkContent(inner);
        m_sink->leave();
        if (!inner.m_passed)
            m_passed = false;
        return;
    }
    // The child's report is built as its own syntaxError() builds it, and
    // its block becomes one message of this report, by reference.
    child.dropMessages();
    XmlChecks inner(child);
    child.checkContent(inner);
    XmlElementBase::Report* block = child.report();
    if (block && !block->messages.empty()) {
        m_passed = false;
        XmlElementBase::Report::retain(block);
        m_report->writableReport()->messages.push_back({QString(), block});
    }
}

void XmlChecks::fail(const QString& message)
{
    m_passed = false;
    if (m_report)
        m_report->addSyntaxError(message);
    else if (m_sink && !message.isEmpty() && m_sink->wantsMore())
        m_sink->message(message);
}

} // namespace KelXml
