#include "XmlIssues.h"

#include <QXmlStreamReader>

namespace KelXml {

namespace {

bool isFrameLine(const QString& line)
{
    return (line.startsWith(QLatin1String("+++ in ")) && line.endsWith(QLatin1String(" Begin:"))) ||
           (line.startsWith(QLatin1String("--- in ")) && line.endsWith(QLatin1String(" End")));
}

} // namespace

XmlIssueSink::XmlIssueSink(const QString& rootName)
    : m_rootName(rootName)
{}

XmlIssueSink::~XmlIssueSink() = default;

QList<XmlIssue> XmlIssueSink::collect(const XmlElementBase& root, const QString& rootName)
{
    struct Collector : XmlIssueSink
    {
        using XmlIssueSink::XmlIssueSink;
        void issue(const XmlIssue& found) override { issues.append(found); }
        QList<XmlIssue> issues;
    };
    Collector collector(rootName);
    root.reportTo(collector);
    return collector.issues;
}

void XmlIssueSink::enter(const QString& classname)
{
    // A frame without an element: it adds nothing to the path.
    m_frames.emplace_back();
    Frame& frame = m_frames.back();
    frame.frameClass = &classname;
    if (m_frames.size() > 1) {
        const Frame& parent = m_frames[m_frames.size() - 2];
        frame.line = parent.line;
        frame.column = parent.column;
    }
}

void XmlIssueSink::enterElement(const XmlElementBase& element, const QString* elementName)
{
    push(&element, element.classname(), elementName);
}

void XmlIssueSink::push(const XmlElementBase* element, const QString& frameClass,
                        const QString* name)
{
    Frame frame;
    frame.element = element;
    frame.frameClass = &frameClass;
    Frame* parent = m_frames.empty() ? nullptr : &m_frames.back();
    if (!name && parent && parent->element)
        name = parent->element->writtenNameOf(*element);
    const XmlElementBase::Place place = element->place();
    if (!place.isNull()) {
        // The wrappers around it, which are no objects of their own, come
        // from the name its parent gives it.
        const int wrappers = name ? int(name->lastIndexOf(QLatin1Char('/'))) : -1;
        frame.name =
            wrappers < 0 ? place.elementName : name->left(wrappers + 1) + place.elementName;
        frame.index = place.index;
        frame.line = place.line;
        frame.column = place.column;
        if (parent)
            parent->counts.next(frame.name);
    } else {
        if (name)
            frame.name = *name;
        else if (!parent)
            frame.name = m_rootName;
        if (parent) {
            frame.line = parent->line;
            frame.column = parent->column;
            if (!frame.name.isEmpty())
                frame.index = parent->counts.next(frame.name);
        }
    }
    m_frames.push_back(std::move(frame));
}

void XmlIssueSink::leave()
{
    m_frames.pop_back();
}

void XmlIssueSink::message(const QString& text)
{
    // An element outside the framework hands over its report as one text,
    // perhaps with blocks of its own: each line other than a frame is a fault.
    if (!text.contains(QLatin1Char('\n'))) {
        emitLine(text);
        return;
    }
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        if (!line.isEmpty() && !isFrameLine(line))
            emitLine(line);
    }
}

void XmlIssueSink::emitLine(const QString& text)
{
    if (m_frames.empty())
        return;
    const Frame& frame = m_frames.back();
    XmlIssue found;
    found.message = text;
    found.frameClass = *frame.frameClass;
    const XmlElementBase* element = nullptr;
    for (auto it = m_frames.rbegin(); it != m_frames.rend() && !element; ++it)
        element = it->element;
    found.className = element ? classNameOf(*element) : found.frameClass;
    for (const Frame& step : m_frames) {
        if (step.name.isEmpty())
            continue;
        if (!found.path.isEmpty())
            found.path += QLatin1Char('/');
        found.path += XmlSiblingCount::step(step.name, step.index);
    }
    found.line = frame.line;
    found.column = frame.column;
    issue(found);
}

XmlPositionRecorder::XmlPositionRecorder(QXmlStreamReader& reader)
    : m_reader(reader)
    , m_previous(reader.entityResolver())
{
    m_counts.emplace_back();
    reader.setEntityResolver(this);
}

XmlPositionRecorder::~XmlPositionRecorder()
{
    if (m_reader.entityResolver() == this)
        m_reader.setEntityResolver(m_previous);
}

QString XmlPositionRecorder::resolveEntity(const QString& publicId, const QString& systemId)
{
    return m_previous ? m_previous->resolveEntity(publicId, systemId) : QString();
}

QString XmlPositionRecorder::resolveUndeclaredEntity(const QString& name)
{
    return m_previous ? m_previous->resolveUndeclaredEntity(name) : QString();
}

XmlPositionRecorder* XmlPositionRecorder::of(const QXmlStreamReader& reader)
{
    return dynamic_cast<XmlPositionRecorder*>(reader.entityResolver());
}

void XmlPositionRecorder::enter(XmlElementBase& element, const QString& elementName)
{
    // The name the document gives the element, which a class may read under
    // another one (the parent's element name for a start tag it passes on).
    XmlElementBase::Place place;
    const QStringView read =
        m_reader.isStartElement() ? QStringView(m_reader.name()) : QStringView();
    place.elementName = read.isEmpty() || read == elementName ? elementName : read.toString();
    place.index = m_counts.back().next(place.elementName);
    place.line = m_reader.lineNumber();
    place.column = m_reader.columnNumber();
    element.setPlace(std::move(place));
    m_counts.emplace_back();
}

void XmlPositionRecorder::leave()
{
    if (m_counts.size() > 1)
        m_counts.pop_back();
}

} // namespace KelXml
