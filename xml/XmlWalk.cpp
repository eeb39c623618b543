#include "XmlWalk.h"

#include "XmlDateTime.h"
#include "XmlElementBase.h"

#include <QTimeZone>

#include <cmath>
#include <cstdlib>
#include <typeindex>
#include <typeinfo>
#include <unordered_map>
#include <vector>

#if defined(__GNUG__)
#include <cxxabi.h>
#endif

namespace KelXml {

XmlValue XmlValue::number(double value, const QString& written)
{
    XmlValue result;
    result.m_type = Number;
    result.m_number = value;
    result.m_text = written;
    return result;
}

XmlValue XmlValue::integer(qint64 value)
{
    XmlValue result;
    result.m_type = Integer;
    result.m_integer = value;
    result.m_text = QString::number(value);
    return result;
}

XmlValue XmlValue::text(const QString& text)
{
    XmlValue result;
    result.m_type = Text;
    result.m_text = text;
    return result;
}

XmlValue XmlValue::enumeration(int value, const QString& written)
{
    XmlValue result;
    result.m_type = Enumeration;
    result.m_integer = value;
    result.m_text = written;
    return result;
}

XmlValue XmlValue::dateTime(const QDateTime& value)
{
    XmlValue result;
    result.m_type = DateTime;
    result.m_dateTime = value;
    result.m_text = XmlKit::formatDateTime(value);
    return result;
}

XmlValue XmlValue::boolean(bool value)
{
    XmlValue result;
    result.m_type = Boolean;
    result.m_integer = value ? 1 : 0;
    result.m_text = value ? QStringLiteral("true") : QStringLiteral("false");
    return result;
}

XmlValue XmlValue::withUnit(const QString& unit) const
{
    XmlValue result(*this);
    result.m_unit = unit;
    return result;
}

namespace {

bool sameNumber(double a, double b)
{
    if (std::isnan(a) || std::isnan(b))
        return std::isnan(a) && std::isnan(b);
    return a == b && std::signbit(a) == std::signbit(b);
}

// The instant and the way it is written.
bool sameDateTime(const QDateTime& a, const QDateTime& b)
{
    if (!a.isValid() || !b.isValid())
        return a.isValid() == b.isValid();
    if (a != b || a.timeSpec() != b.timeSpec() || a.offsetFromUtc() != b.offsetFromUtc())
        return false;
    return a.timeSpec() != Qt::TimeZone || a.timeZone() == b.timeZone();
}

} // namespace

bool XmlValue::operator==(const XmlValue& other) const
{
    if (m_type != other.m_type || m_unit != other.m_unit)
        return false;
    switch (m_type) {
    case None:
        return true;
    case Number:
        return sameNumber(m_number, other.m_number);
    case Integer:
    case Enumeration:
    case Boolean:
        return m_integer == other.m_integer;
    case DateTime:
        return sameDateTime(m_dateTime, other.m_dateTime);
    case Text:
        return m_text == other.m_text;
    }
    return false;
}

XmlWalker::~XmlWalker() = default;

void XmlWalker::child(const XmlElementBase* child, const QString& elementName)
{
    if (child && wantsMore())
        child->walk(*this, elementName);
}

void XmlWalker::textElement(const QString& elementName, const XmlValue& value)
{
    if (!wantsMore())
        return;
    enter(elementName, QString(), nullptr);
    this->value(value);
    leave();
}

// Found once per class and thread.
QString classNameOf(const XmlElementBase& element)
{
    thread_local std::unordered_map<std::type_index, QString> names;
    const std::type_info& type = typeid(element);
    const auto found = names.find(type);
    if (found != names.end())
        return found->second;
    QString name;
#if defined(__GNUG__)
    int status = 0;
    char* demangled = abi::__cxa_demangle(type.name(), nullptr, nullptr, &status);
    name = QString::fromLatin1(status == 0 && demangled ? demangled : type.name());
    std::free(demangled);
#else
    name = QString::fromLatin1(type.name()); // "class KelXml::XmlFreqType"
#endif
    const int namespaceEnd = int(name.lastIndexOf(QLatin1String("::")));
    if (namespaceEnd >= 0)
        name = name.mid(namespaceEnd + 2);
    names.emplace(type, name);
    return name;
}

int XmlSiblingCount::next(const QString& name)
{
    for (auto& entry : m_counts) {
        if (entry.first == name)
            return ++entry.second;
    }
    m_counts.emplace_back(name, 1);
    return 1;
}

QString XmlSiblingCount::step(const QString& name, int index)
{
    return index > 1 ? name + QLatin1Char('[') + QString::number(index) + QLatin1Char(']') : name;
}

void XmlElementBase::walk(XmlWalker& walker, const QString& elementName) const
{
    walker.enter(elementName, classNameOf(*this), this);
    describe(walker, elementName);
    walker.leave();
}

void XmlElementBase::describe(XmlWalker&, const QString&) const {}

namespace {

// One call of a walk, kept to be compared with another walk's.
struct Step
{
    enum Kind : quint8
    {
        Enter,
        Attribute,
        Value,
        Leave,
    };
    Kind kind;
    QString name; // the element or attribute name
    QString className;
    XmlValue value;

    bool operator==(const Step& other) const
    {
        return kind == other.kind && name == other.name && className == other.className &&
               value == other.value;
    }
};

// Keeps the steps of one walk.
class StepRecorder : public XmlWalker
{
public:
    std::vector<Step> steps;

    void enter(const QString& elementName, const QString& className, const XmlElementBase*) override
    {
        steps.push_back({Step::Enter, elementName, className, {}});
    }
    void attribute(const QString& name, const XmlValue& value) override
    {
        steps.push_back({Step::Attribute, name, QString(), value});
    }
    void value(const XmlValue& value) override
    {
        steps.push_back({Step::Value, QString(), QString(), value});
    }
    void leave() override { steps.push_back({Step::Leave, {}, {}, {}}); }
};

// Compares a walk with the steps kept of another, up to the first difference.
class StepComparer : public XmlWalker
{
public:
    explicit StepComparer(const std::vector<Step>& steps)
        : m_steps(steps)
    {}

    bool same() const { return m_same && m_next == m_steps.size(); }

    void enter(const QString& elementName, const QString& className, const XmlElementBase*) override
    {
        compare({Step::Enter, elementName, className, {}});
    }
    void attribute(const QString& name, const XmlValue& value) override
    {
        compare({Step::Attribute, name, QString(), value});
    }
    void value(const XmlValue& value) override { compare({Step::Value, {}, {}, value}); }
    void leave() override { compare({Step::Leave, {}, {}, {}}); }
    bool wantsMore() const override { return m_same; }

private:
    void compare(const Step& step)
    {
        if (!m_same)
            return;
        if (m_next >= m_steps.size() || !(m_steps[m_next] == step))
            m_same = false;
        ++m_next;
    }

    const std::vector<Step>& m_steps;
    size_t m_next = 0;
    bool m_same = true;
};

} // namespace

bool operator==(const XmlElementBase& a, const XmlElementBase& b)
{
    if (&a == &b)
        return true;
    StepRecorder recorder;
    a.walk(recorder, QString());
    StepComparer comparer(recorder.steps);
    b.walk(comparer, QString());
    return comparer.same();
}

bool operator!=(const XmlElementBase& a, const XmlElementBase& b)
{
    return !(a == b);
}

} // namespace KelXml
