// kelxml check, format and classes: an element's verdict and report, its
// canonical form, and the classes the tool knows.

#include "ToolCommands.h"

#include <XmlElementBase.h>
#include <XmlElementRegistry.h>

#include <QXmlStreamWriter>

#include <vector>

using KelXml::IXmlElement;
using KelXml::XmlElementRegistry;

namespace {

// Prints an element's report as syntaxError() frames it, every line indented
// by four spaces, while the checks walk the tree: nothing is held but the
// frames still open, so a report far larger than the document costs no
// memory. After the first `limit` messages (all when limit is negative) the
// rest are only counted, and a last line says how many were left out.
class ReportPrinter : public KelXml::XmlReportSink
{
public:
    ReportPrinter(QTextStream& stream, qint64 limit)
        : m_stream(stream)
        , m_limit(limit)
    {}

    void enter(const QString& classname) override { m_frames.push_back(&classname); }
    void message(const QString& text) override
    {
        ++m_messages;
        if (m_limit >= 0 && m_messages > m_limit)
            return;
        // A block is shown from its first message on, with the blocks around it.
        for (; m_opened < m_frames.size(); ++m_opened)
            line(QLatin1String("+++ in "), *m_frames[m_opened], QLatin1String(" Begin:"));
        if (text.contains(QLatin1Char('\n')))
            m_stream << indent << QString(text).replace(QLatin1Char('\n'), QLatin1String("\n    "));
        else
            m_stream << indent << text;
        m_stream << '\n';
    }
    void leave() override
    {
        if (m_opened == m_frames.size()) {
            line(QLatin1String("--- in "), *m_frames.back(), QLatin1String(" End"));
            --m_opened;
        }
        m_frames.pop_back();
    }

    // Prints the report of the element, then what was left out.
    void print(const IXmlElement& element)
    {
        if (const auto* walked = dynamic_cast<const KelXml::XmlElementBase*>(&element))
            walked->reportTo(*this);
        if (m_messages == 0)
            m_stream << indent << '\n'; // an element that is invalid without a message
        if (m_limit >= 0 && m_messages > m_limit) {
            m_stream << indent << "... " << (m_messages - m_limit) << " more "
                     << (m_messages - m_limit == 1 ? "fault" : "faults") << " of " << m_messages
                     << " not shown (--faults all shows every one)\n";
        }
    }

private:
    static constexpr const char* indent = "    ";

    void line(QLatin1String before, const QString& classname, QLatin1String after)
    {
        m_stream << indent << before << classname << after << '\n';
    }

    QTextStream& m_stream;
    qint64 m_limit;
    qint64 m_messages = 0;
    std::vector<const QString*> m_frames; // entered and not left, innermost last
    size_t m_opened = 0;                  // how many of them, from the outermost, are shown
};

// check and format: the class that --as names, given a file. Empty after a
// usage error, whose status is then in *status.
QString classToRead(const Invocation& invocation, int* status)
{
    const QString& command = invocation.command;
    if (!invocation.parser.isSet(invocation.options.as)) {
        *status =
            usageError(QStringLiteral("'%1' needs --as CLASS (see '" KELXML_TOOL_NAME " classes').")
                           .arg(command));
        return QString();
    }
    const QString className = XmlElementRegistry::resolve(invocation.as());
    if (className.isEmpty()) {
        *status = usageError(
            QStringLiteral("unknown element class '%1' (see '" KELXML_TOOL_NAME " classes').")
                .arg(invocation.as()));
        return QString();
    }
    if (invocation.files.isEmpty()) {
        *status = usageError(QStringLiteral("'%1' needs a file.").arg(command));
        return QString();
    }
    return className;
}

} // namespace

int runCheck(const Invocation& invocation)
{
    int status = Valid;
    const QString className = classToRead(invocation, &status);
    if (className.isEmpty())
        return status;
    for (const QString& file : invocation.files) {
        const Reading reading = readFile(invocation, className, file);
        if (!reading.error.isEmpty()) {
            out() << reading.error << "\n";
            status = Unreadable;
        } else if (!reading.element->isValid()) {
            out() << file << ": invalid " << className << " \"" << reading.elementName << "\":\n";
            ReportPrinter(out(), invocation.faults).print(*reading.element);
            if (status == Valid)
                status = Invalid;
        } else {
            out() << file << ": valid " << className << " \"" << reading.elementName << "\"\n";
        }
    }
    return status;
}

int runFormat(const Invocation& invocation)
{
    int status = Valid;
    const QString className = classToRead(invocation, &status);
    if (className.isEmpty())
        return status;
    if (invocation.files.size() != 1)
        return usageError(QStringLiteral("'format' takes exactly one file."));
    const QString& file = invocation.files.first();
    return readAndWrite(invocation, className, file, [&](const Reading& reading, QFile& output) {
        QXmlStreamWriter writer(&output);
        writer.setAutoFormatting(true);
        writer.writeStartDocument();
        reading.element->produceXml(writer, reading.elementName);
        writer.writeEndDocument();
        output.close();
        if (!reading.element->isValid()) {
            err() << file << ": invalid " << className << ":\n";
            ReportPrinter(err(), invocation.faults).print(*reading.element);
            return Invalid;
        }
        return Valid;
    });
}

int runClasses(const Invocation& invocation)
{
    if (!invocation.files.isEmpty())
        return usageError(QStringLiteral("'classes' takes no files."));
    for (const XmlElementRegistry::Entry& entry : XmlElementRegistry::entries()) {
        out() << entry.className;
        if (!entry.alias.isEmpty())
            out() << " (alias " << entry.alias << ")";
        out() << "\t" << entry.summary << "\n";
    }
    return Valid;
}
