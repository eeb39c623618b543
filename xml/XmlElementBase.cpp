#include "XmlElementBase.h"

#include <QXmlStreamReader>

#include <array>
#include <atomic>
#include <mutex>
#include <unordered_set>

namespace KelXml {

struct XmlElementBase::Report
{
    const QString* classname;
    QString text;
};

namespace {

constexpr quintptr reportBit = 1;

struct NameHash
{
    size_t operator()(const QString& name) const { return qHash(name); }
};

// The one shared copy of a class name. Elements are made by the million, so
// the usual case, a name whose characters were seen before at the same
// address (a literal, or a string of a static table), is answered from a
// lock-free table of the addresses seen: a filled slot never changes, and the
// set keeps every name it was given alive, so an address and a size found
// there can only hold the same characters. Other names take the lock.
const QString* sharedName(const QString& name)
{
    static std::array<std::atomic<const QString*>, 512> seen{};
    constexpr size_t probes = 8;
    // Fibonacci hashing of the address: the top bits of the product pick the slot.
    const size_t first =
        size_t((quint64(quintptr(name.constData())) * 0x9E3779B97F4A7C15ull) >> 55);
    for (size_t probe = 0; probe < probes; ++probe) {
        const QString* known = seen[(first + probe) % seen.size()].load(std::memory_order_acquire);
        if (!known)
            break;
        if (known->constData() == name.constData() && known->size() == name.size())
            return known;
    }
    static std::mutex mutex;
    // Never destroyed: elements with static storage may outlive any static here.
    static auto* names = new std::unordered_set<QString, NameHash>;
    const std::lock_guard<std::mutex> lock(mutex);
    const QString* shared = &*names->insert(name).first;
    if (shared->constData() != name.constData())
        return shared; // an equal name from elsewhere: its address is the one kept
    for (size_t probe = 0; probe < probes; ++probe) {
        std::atomic<const QString*>& slot = seen[(first + probe) % seen.size()];
        const QString* known = slot.load(std::memory_order_relaxed);
        if (known == shared)
            break;
        if (!known) {
            slot.store(shared, std::memory_order_release);
            break;
        }
    }
    return shared;
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
    if (const Report* theirs = other.report())
        m_state = quintptr(new Report(*theirs)) | reportBit;
}

XmlElementBase& XmlElementBase::operator=(const XmlElementBase& other)
{
    if (this != &other) {
        dropReport();
        m_state = other.m_state;
        if (const Report* theirs = other.report())
            m_state = quintptr(new Report(*theirs)) | reportBit;
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
        delete mine;
    }
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
    Report* mine = report();
    if (!mine) {
        mine = new Report{reinterpret_cast<const QString*>(m_state), QString()};
        m_state = quintptr(mine) | reportBit;
    } else {
        mine->text += QLatin1Char('\n');
    }
    mine->text += message;
}

void XmlElementBase::clearSyntaxError()
{
    dropReport();
}

const QString& XmlElementBase::classname() const
{
    if (const Report* mine = report())
        return *mine->classname;
    return *reinterpret_cast<const QString*>(m_state);
}

QString XmlElementBase::mySyntaxError() const
{
    static const QString framed = QStringLiteral("+++ in %1 Begin:\n%2\n--- in %1 End");
    const Report* mine = report();
    if (!mine)
        return QString();
    return framed.arg(*mine->classname, mine->text);
}

void XmlElementBase::checkContent(XmlChecks&) const {}

XmlChecks::XmlChecks() = default;

XmlChecks::XmlChecks(XmlElementBase& element)
    : m_report(&element)
{}

void XmlChecks::version(bool supported, const QString& version)
{
    if (!supported)
        fail(QStringLiteral("Version \"%1\" not supported").arg(version));
}

void XmlChecks::expect(bool ok, const QString& message)
{
    if (!ok)
        fail(message);
}

void XmlChecks::child(IXmlElement* child)
{
    if (!child)
        return;
    if (m_report) {
        const QString text = child->syntaxError();
        if (!text.isEmpty())
            fail(text);
    } else if (m_passed && !child->isValid()) {
        m_passed = false;
    }
}

void XmlChecks::fail(const QString& message)
{
    m_passed = false;
    if (m_report)
        m_report->addSyntaxError(message);
}

} // namespace KelXml
