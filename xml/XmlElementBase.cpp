#include "XmlElementBase.h"

#include <QXmlStreamReader>

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

void XmlChecks::failVersion(const QString& version)
{
    fail(QStringLiteral("Version \"%1\" not supported").arg(version));
}

void XmlChecks::reportOf(IXmlElement& child)
{
    const QString text = child.syntaxError();
    if (!text.isEmpty())
        fail(text);
}

void XmlChecks::fail(const QString& message)
{
    m_passed = false;
    if (m_report)
        m_report->addSyntaxError(message);
}

} // namespace KelXml
