// kelxml diff: two documents of one kind compared object by object. The
// objects of a document are found by walking it: the elements below its
// root (and below a wrapper without a class of its own, such as a
// snapshot's displayed objects), each named by its Name child, or by its
// Reference child when it has no name; a create command stands for the
// object it creates. Objects are matched by kind and name, so that moving
// one or reformatting the file changes nothing, and only objects that are
// unequal are compared value by value.

#include "ToolCommands.h"

#include <XmlElementBase.h>
#include <XmlWalk.h>

#include <QHash>

#include <vector>

using KelXml::XmlElementBase;
using KelXml::XmlValue;

namespace {

const QString nameElement = QStringLiteral("Name");
const QString referenceElement = QStringLiteral("Reference");
// A create command stands for the object it creates.
const QString createClass = QStringLiteral("XmlCmdCreate");
// A polygon is compared as its list of vertices.
const QString polygonClass = QStringLiteral("XmlAreaPolyType");
const QString absent = QStringLiteral("(absent)");

// One value of an object: where it stands below the object and its text as
// written, with its unit; or, for a polygon, its vertices each as one text
// (the text then names the vertices' element).
struct Line
{
    Line(const QString& at, const QString& written, bool isSequence = false)
        : path(at)
        , text(written)
        , sequence(isSequence)
    {}

    QString path;
    QString text;
    bool sequence = false;
    QStringList members;
};

QString valueText(const XmlValue& value)
{
    return value.unit().isNull() ? value.text() : value.text() + QLatin1Char(' ') + value.unit();
}

// The values of an element tree as lines, in writing order. Paths name the
// elements below the walk's first one, a name numbered among its siblings of
// that name from the second on ("Frequencies/Frequency[2]"), an attribute as
// "@name" (the unit of a value stands beside the value instead).
class Lines : public KelXml::XmlWalker
{
public:
    std::vector<Line> lines;

    void enter(const QString& elementName, const QString& className, const XmlElementBase*) override
    {
        Frame frame;
        if (!m_frames.empty()) {
            Frame& parent = m_frames.back();
            const QString step =
                KelXml::XmlSiblingCount::step(elementName, parent.counts.next(elementName));
            frame.path = parent.path.isEmpty() ? step : parent.path + QLatin1Char('/') + step;
        }
        if (m_member >= 0) {
            // Inside a vertex: everything goes to the vertex's text.
        } else if (!m_frames.empty() && m_frames.back().sequence) {
            m_member = int(m_frames.size());
            m_memberText.clear();
            lines[size_t(m_frames.back().line)].text = elementName; // the members' name
        } else if (className == polygonClass) {
            frame.sequence = true;
            frame.line = int(lines.size());
            lines.push_back(Line(frame.path, QString(), true));
        }
        m_frames.push_back(std::move(frame));
    }
    void attribute(const QString& name, const XmlValue& value) override
    {
        if (m_member >= 0) {
            add(name + QLatin1Char('=') + value.text());
            return;
        }
        Frame& frame = m_frames.back();
        if (name == QLatin1String("unit")) {
            frame.unit = value.text(); // shown with the value, if there is one
            frame.hasUnit = true;
            return;
        }
        lines.push_back({at(frame.path, QLatin1Char('@') + name), value.text()});
    }
    void value(const XmlValue& value) override
    {
        Frame& frame = m_frames.back();
        if (m_member >= 0) {
            const QString& name = frame.path.section(QLatin1Char('/'), -1);
            add(name + QLatin1Char('=') + valueText(value));
            return;
        }
        if (!value.unit().isNull())
            frame.hasUnit = false;
        lines.push_back({frame.path, valueText(value)});
    }
    void leave() override
    {
        Frame& frame = m_frames.back();
        if (m_member >= 0 && m_member == int(m_frames.size()) - 1) {
            Frame& polygon = m_frames[size_t(m_member) - 1];
            lines[size_t(polygon.line)].members.append(m_memberText);
            m_member = -1;
        } else if (m_member < 0 && frame.hasUnit) {
            lines.push_back({at(frame.path, QStringLiteral("@unit")), frame.unit});
        }
        m_frames.pop_back();
    }

private:
    struct Frame
    {
        QString path;
        KelXml::XmlSiblingCount counts;
        bool sequence = false;
        int line = -1;
        bool hasUnit = false;
        QString unit;
    };
    static QString at(const QString& path, const QString& step)
    {
        return path.isEmpty() ? step : path + QLatin1Char('/') + step;
    }
    void add(const QString& text)
    {
        if (!m_memberText.isEmpty())
            m_memberText += QLatin1Char(' ');
        m_memberText += text;
    }

    std::vector<Frame> m_frames;
    int m_member = -1; // the frame of the vertex being read, if any
    QString m_memberText;
};

// An object of a document.
struct Object
{
    QString kind;
    QString name;
    bool named = false;
    const XmlElementBase* element = nullptr; // null for a text or the root's own values
    std::vector<Line> extra;                 // values held beside the element

    QString label() const
    {
        return named ? kind + QStringLiteral(" \"") + name + QLatin1Char('"') : kind;
    }
    QString key() const
    {
        return kind + (named ? QStringLiteral("\x1fn") : QStringLiteral("\x1fu")) + name;
    }
};

// Finds the objects of a document in one walk.
class Objects : public KelXml::XmlWalker
{
public:
    std::vector<Object> objects;

    void enter(const QString& elementName, const QString& className,
               const XmlElementBase* element) override
    {
        Frame frame;
        frame.name = elementName;
        frame.className = className;
        frame.element = element;
        if (m_frames.empty()) {
            frame.role = Root;
            objects.push_back({elementName, QString(), false, nullptr, {}});
            m_root = 0;
        } else {
            Frame& parent = m_frames.back();
            switch (parent.role) {
            case Pending: // a wrapper without a class: its children are objects
                parent.role = Container;
                frame.role = element ? Candidate : Pending;
                break;
            case Root:
            case Container:
                frame.role = element ? Candidate : Pending;
                break;
            case Candidate:
                if (parent.className == createClass && element && elementName != referenceElement &&
                    !parent.created) {
                    frame.role = Created;
                    parent.created = true;
                }
                break;
            default:
                break;
            }
        }
        m_frames.push_back(std::move(frame));
    }
    void attribute(const QString& name, const XmlValue& value) override
    {
        if (m_frames.back().role == Root)
            objects[m_root].extra.push_back({QLatin1Char('@') + name, value.text()});
    }
    void value(const XmlValue& value) override
    {
        Frame& frame = m_frames.back();
        if (frame.role == Root) {
            objects[m_root].extra.push_back({QString(), valueText(value)});
            return;
        }
        if (frame.role == Pending) {
            frame.text = valueText(value);
            frame.hasText = true;
            return;
        }
        if (m_frames.size() < 2)
            return;
        Frame& parent = m_frames[m_frames.size() - 2];
        if (frame.name == nameElement && !parent.hasName &&
            (parent.role == Candidate || parent.role == Created)) {
            parent.nameText = value.text();
            parent.hasName = true;
        } else if (frame.name == referenceElement && !parent.hasReference &&
                   parent.role == Candidate) {
            parent.reference = value.text();
            parent.hasReference = true;
        }
    }
    void leave() override
    {
        Frame frame = std::move(m_frames.back());
        m_frames.pop_back();
        if (frame.role == Created && !m_frames.empty()) {
            Frame& create = m_frames.back();
            create.createdName = frame.name;
            create.createdElement = frame.element;
            create.createdNameText = frame.nameText;
            create.createdNamed = frame.hasName;
        } else if (frame.role == Candidate) {
            add(frame);
        } else if (frame.role == Pending) {
            Object object{frame.name, QString(), false, nullptr, {}};
            object.extra.push_back({QString(), frame.hasText ? frame.text : QString()});
            number(object);
            objects.push_back(std::move(object));
        }
    }

private:
    enum Role
    {
        Inside,    // below an object
        Root,      // the document's root
        Container, // a wrapper without a class whose children are objects
        Pending,   // at the objects' level without a class: a text or a container
        Candidate, // an object
        Created,   // the object a create command creates
    };
    struct Frame
    {
        QString name;
        QString className;
        const XmlElementBase* element = nullptr;
        Role role = Inside;
        QString nameText;
        bool hasName = false;
        QString reference;
        bool hasReference = false;
        QString text;
        bool hasText = false;
        bool created = false;
        QString createdName;
        const XmlElementBase* createdElement = nullptr;
        QString createdNameText;
        bool createdNamed = false;
    };

    void add(const Frame& frame)
    {
        Object object;
        if (frame.className == createClass && frame.createdElement) {
            object = {frame.createdName,
                      frame.createdNameText,
                      frame.createdNamed,
                      frame.createdElement,
                      {}};
            if (frame.hasReference)
                object.extra.push_back({referenceElement, frame.reference});
        } else if (frame.hasName) {
            object = {frame.name, frame.nameText, true, frame.element, {}};
        } else if (frame.hasReference) {
            object = {frame.name, frame.reference, true, frame.element, {}};
        } else {
            object = {frame.name, QString(), false, frame.element, {}};
        }
        if (!object.named)
            number(object);
        objects.push_back(std::move(object));
    }
    // An object without a name is told from others of its kind by its place.
    void number(Object& object)
    {
        object.kind = KelXml::XmlSiblingCount::step(object.kind, m_unnamed.next(object.kind));
    }

    std::vector<Frame> m_frames;
    KelXml::XmlSiblingCount m_unnamed;
    size_t m_root = 0;
};

std::vector<Line> linesOf(const Object& object)
{
    Lines lines;
    if (object.element)
        object.element->walk(lines, object.kind);
    lines.lines.insert(lines.lines.end(), object.extra.begin(), object.extra.end());
    return std::move(lines.lines);
}

bool sameExtra(const Object& a, const Object& b)
{
    if (a.extra.size() != b.extra.size())
        return false;
    for (size_t i = 0; i < a.extra.size(); ++i) {
        if (a.extra[i].path != b.extra[i].path || a.extra[i].text != b.extra[i].text)
            return false;
    }
    return true;
}

// One difference, printed as text or as a JSON record.
struct Difference
{
    QString object;
    QString kind;
    QString name;
    bool named = false;
    QString change; // "changed", "added", "removed", "duplicate"
    QString path;
    QString before;
    QString after;
    int beforeCount = -1; // a polygon's vertices, or duplicates' number in each file
    int afterCount = -1;
};

class Report
{
public:
    Report(QTextStream& stream, bool json)
        : m_stream(stream)
        , m_json(json)
    {}
    int count() const { return m_count; }

    void print(const Difference& difference)
    {
        ++m_count;
        if (m_json) {
            const auto orNull = [](const QString& text, bool present) {
                return present ? json(text) : QStringLiteral("null");
            };
            m_stream << "{\"object\":" << json(difference.object)
                     << ",\"kind\":" << json(difference.kind)
                     << ",\"name\":" << orNull(difference.name, difference.named)
                     << ",\"change\":" << json(difference.change) << ",\"path\":"
                     << orNull(difference.path, difference.change == QLatin1String("changed"))
                     << ",\"old\":"
                     << orNull(difference.before, difference.before != absent &&
                                                      difference.change == QLatin1String("changed"))
                     << ",\"new\":"
                     << orNull(difference.after, difference.after != absent &&
                                                     difference.change == QLatin1String("changed"));
            if (difference.beforeCount >= 0)
                m_stream << ",\"oldCount\":" << difference.beforeCount
                         << ",\"newCount\":" << difference.afterCount;
            m_stream << "}\n";
            return;
        }
        m_stream << difference.object << ": ";
        if (difference.change == QLatin1String("duplicate")) {
            m_stream << "duplicate: " << difference.beforeCount << " in the first file, "
                     << difference.afterCount << " in the second; not compared\n";
            return;
        }
        if (difference.change != QLatin1String("changed")) {
            m_stream << difference.change << '\n';
            return;
        }
        if (!difference.path.isEmpty())
            m_stream << difference.path << ": ";
        m_stream << difference.before << " -> " << difference.after;
        if (difference.beforeCount >= 0)
            m_stream << " (" << difference.beforeCount << " -> " << difference.afterCount
                     << " vertices)";
        m_stream << '\n';
    }

private:
    QTextStream& m_stream;
    bool m_json;
    int m_count = 0;
};

Difference about(const Object& object, const QString& change)
{
    Difference difference;
    difference.object = object.label();
    difference.kind = object.kind;
    difference.name = object.name;
    difference.named = object.named;
    difference.change = change;
    return difference;
}

// The differences of two objects of one kind and name, value by value.
void compare(const Object& a, const Object& b, Report& report)
{
    if (a.element && b.element && *a.element == *b.element && sameExtra(a, b))
        return;
    const std::vector<Line> before = linesOf(a);
    const std::vector<Line> after = linesOf(b);
    QHash<QString, size_t> afterAt;
    afterAt.reserve(int(after.size()));
    for (size_t i = 0; i < after.size(); ++i)
        afterAt.insert(after[i].path + (after[i].sequence ? QStringLiteral("\x1fs") : QString()),
                       i);
    std::vector<bool> matched(after.size(), false);
    const auto changed = [&](const QString& path, const QString& from, const QString& to) {
        Difference difference = about(a, QStringLiteral("changed"));
        difference.path = path;
        difference.before = from;
        difference.after = to;
        return difference;
    };
    for (const Line& line : before) {
        const auto found =
            afterAt.constFind(line.path + (line.sequence ? QStringLiteral("\x1fs") : QString()));
        if (found == afterAt.constEnd()) {
            report.print(changed(line.path,
                                 line.sequence ? line.members.join(QLatin1String("; ")) : line.text,
                                 absent));
            continue;
        }
        const Line& other = after[*found];
        matched[*found] = true;
        if (!line.sequence) {
            if (line.text != other.text)
                report.print(changed(line.path, line.text, other.text));
            continue;
        }
        // The vertex lists in one pass: the first that differs, and both counts.
        const qsizetype common = std::min(line.members.size(), other.members.size());
        qsizetype first = 0;
        while (first < common && line.members.at(first) == other.members.at(first))
            ++first;
        if (first == line.members.size() && first == other.members.size())
            continue;
        Difference difference =
            changed(line.path + QLatin1Char('/') +
                        KelXml::XmlSiblingCount::step(line.text.isEmpty() ? other.text : line.text,
                                                      int(first + 1)),
                    first < line.members.size() ? line.members.at(first) : absent,
                    first < other.members.size() ? other.members.at(first) : absent);
        difference.beforeCount = int(line.members.size());
        difference.afterCount = int(other.members.size());
        report.print(difference);
    }
    for (size_t i = 0; i < after.size(); ++i) {
        if (!matched[i])
            report.print(changed(after[i].path, absent,
                                 after[i].sequence ? after[i].members.join(QLatin1String("; "))
                                                   : after[i].text));
    }
}

// Every difference of two documents' objects; objects of one kind and name
// that a file holds twice are reported, not paired.
void compare(const std::vector<Object>& a, const std::vector<Object>& b, Report& report)
{
    QHash<QString, QList<int>> inA;
    QHash<QString, QList<int>> inB;
    inA.reserve(int(a.size()));
    inB.reserve(int(b.size()));
    for (size_t i = 0; i < a.size(); ++i)
        inA[a[i].key()].append(int(i));
    for (size_t i = 0; i < b.size(); ++i)
        inB[b[i].key()].append(int(i));
    for (size_t i = 0; i < a.size(); ++i) {
        const QString key = a[i].key();
        const QList<int>& mine = inA[key];
        const QList<int> theirs = inB.value(key);
        if (mine.size() > 1 || theirs.size() > 1) {
            if (mine.first() == int(i)) {
                Difference difference = about(a[i], QStringLiteral("duplicate"));
                difference.beforeCount = int(mine.size());
                difference.afterCount = int(theirs.size());
                report.print(difference);
            }
            continue;
        }
        if (theirs.isEmpty())
            report.print(about(a[i], QStringLiteral("removed")));
        else
            compare(a[i], b[size_t(theirs.first())], report);
    }
    for (size_t i = 0; i < b.size(); ++i) {
        const QString key = b[i].key();
        const QList<int>& mine = inB[key];
        if (inA.contains(key))
            continue;
        if (mine.size() > 1) {
            if (mine.first() == int(i)) {
                Difference difference = about(b[i], QStringLiteral("duplicate"));
                difference.beforeCount = 0;
                difference.afterCount = int(mine.size());
                report.print(difference);
            }
            continue;
        }
        report.print(about(b[i], QStringLiteral("added")));
    }
}

std::vector<Object> objectsOf(const Reading& reading)
{
    Objects objects;
    if (const auto* root = dynamic_cast<const XmlElementBase*>(reading.element.get()))
        root->walk(objects, reading.elementName);
    return std::move(objects.objects);
}

} // namespace

int runDiff(const Invocation& invocation)
{
    int status = Valid;
    QString asClass;
    if (!classToRead(invocation, &asClass, &status, 2))
        return status;
    const QString outputName = invocation.parser.value(outputOption());
    if (outputName != QLatin1String("text") && outputName != QLatin1String("json"))
        return usageError(
            QStringLiteral("diff's --output takes text or json, not '%1'.").arg(outputName));

    const Reading first = readFile(invocation, asClass, invocation.files.at(0));
    if (!first.error.isEmpty()) {
        err() << first.error << "\n";
        return Unreadable;
    }
    // The second file is read as the class the first was read as.
    const Reading second =
        readFile(invocation, asClass.isEmpty() ? first.className : asClass, invocation.files.at(1));
    if (!second.error.isEmpty()) {
        err() << second.error << "\n";
        return Unreadable;
    }
    const std::vector<Object> before = objectsOf(first);
    const std::vector<Object> after = objectsOf(second);
    Report report(out(), outputName == QLatin1String("json"));
    compare(before, after, report);
    out().flush();
    return report.count() == 0 ? Valid : Invalid;
}
