// kelxml check, format and classes: an element's verdict and report, its
// canonical form, and the classes the tool knows.

#include "ToolCommands.h"

#include <XmlElementBase.h>
#include <XmlElementRegistry.h>
#include <XmlIssues.h>

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

// "valid XmlCmdRoot "Command"", and the kind when the content told it.
QString described(const Reading& reading)
{
    QString text =
        reading.className + QStringLiteral(" \"") + reading.elementName + QLatin1Char('"');
    if (!reading.kind.isEmpty())
        text += QStringLiteral(" (read as %1)").arg(reading.kind);
    return text;
}

// The faults of an element, located, handed to take while the checks walk
// the tree; after the first `limit` (all when negative) they are only counted.
// Returns how many there are.
template <class Take>
qint64 eachIssue(const Reading& reading, qint64 limit, Take take)
{
    struct Sink : KelXml::XmlIssueSink
    {
        Sink(const QString& rootName, qint64 most, Take& taker)
            : XmlIssueSink(rootName)
            , limit(most)
            , take(taker)
        {}
        void issue(const KelXml::XmlIssue& found) override
        {
            if (limit < 0 || count < limit)
                take(found);
            ++count;
        }
        qint64 limit;
        Take& take;
        qint64 count = 0;
    } sink(reading.elementName, limit, take);
    if (const auto* walked = dynamic_cast<const KelXml::XmlElementBase*>(reading.element.get()))
        walked->reportTo(sink);
    return sink.count;
}

QString jsonOrNull(const QString& text)
{
    return text.isEmpty() ? QStringLiteral("null") : json(text);
}

// The names of XmlReadError::Kind, in its order.
QString kindName(KelXml::XmlReadError::Kind kind)
{
    static const char* const names[] = {
        "None",   "SizeLimit",       "DepthLimit",  "AttributesLimit", "ValueLengthLimit",
        "Dtd",    "TrailingContent", "Encoding",    "NotWellFormed",   "Element",
        "Device", "NoElement",       "UnknownClass"};
    const int index = int(kind);
    return index >= 0 && index < int(sizeof names / sizeof *names) ? QLatin1String(names[index])
                                                                   : QStringLiteral("Unknown");
}

// One JSON record of a file, on one line (JSON Lines).
void printJson(const QString& file, const Reading& reading, const char* verdict, qint64 limit)
{
    QTextStream& stream = out();
    stream << "{\"file\":" << json(file) << ",\"class\":" << jsonOrNull(reading.className)
           << ",\"kind\":" << jsonOrNull(reading.kind) << ",\"verdict\":\"" << verdict
           << "\",\"error\":";
    if (!reading.error.isEmpty()) {
        const KelXml::XmlReadError& error = reading.readError;
        // A file whose kind its root does not show has no read error of its own.
        const QString message = error ? error.message : reading.error;
        stream << "{\"kind\":" << json(error ? kindName(error.kind) : QStringLiteral("UnknownKind"))
               << ",\"limit\":" << jsonOrNull(error.limit) << ",\"line\":" << error.line
               << ",\"column\":" << error.column << ",\"message\":" << json(message) << "}";
    } else {
        stream << "null";
    }
    stream << ",\"issues\":[";
    qint64 count = 0;
    if (reading.error.isEmpty()) {
        bool first = true;
        count = eachIssue(reading, limit, [&](const KelXml::XmlIssue& issue) {
            stream << (first ? "" : ",") << "{\"message\":" << json(issue.message)
                   << ",\"class\":" << json(issue.className)
                   << ",\"frame\":" << json(issue.frameClass) << ",\"path\":" << json(issue.path)
                   << ",\"line\":" << issue.line << ",\"column\":" << issue.column << "}";
            first = false;
        });
    }
    stream << "]";
    if (limit >= 0 && count > limit)
        stream << ",\"omitted\":" << (count - limit);
    stream << "}\n";
}

// A workflow annotation's property and message texts.
QString annotationData(QString text)
{
    return text.replace(QLatin1Char('%'), QLatin1String("%25"))
        .replace(QLatin1Char('\r'), QLatin1String("%0D"))
        .replace(QLatin1Char('\n'), QLatin1String("%0A"));
}

QString annotationProperty(const QString& text)
{
    return annotationData(text)
        .replace(QLatin1Char(':'), QLatin1String("%3A"))
        .replace(QLatin1Char(','), QLatin1String("%2C"));
}

void annotate(const QString& file, qint64 line, qint64 column, const QString& message)
{
    out() << "::error file=" << annotationProperty(file) << ",line=" << line << ",col=" << column
          << "::" << annotationData(message) << "\n";
}

} // namespace

int runCheck(const Invocation& invocation)
{
    int status = Valid;
    QString asClass;
    if (!classToRead(invocation, &asClass, &status))
        return status;
    enum Output
    {
        Text,
        Json,
        GitHub
    };
    const QString outputName = invocation.parser.value(outputOption());
    Output output = Text;
    if (outputName == QLatin1String("json"))
        output = Json;
    else if (outputName == QLatin1String("github"))
        output = GitHub;
    else if (outputName != QLatin1String("text"))
        return usageError(
            QStringLiteral("--output takes text, json or github, not '%1'.").arg(outputName));

    for (const QString& file : invocation.files) {
        // Positions cost memory (an allocation per element), and only the
        // faults need them: a file is read without, and an invalid one read
        // again with them. Standard input is read once, with them.
        const bool standardInput = file == QLatin1String("-");
        Reading reading = readFile(invocation, asClass, file, standardInput);
        const char* verdict = "valid";
        if (!reading.error.isEmpty()) {
            verdict = "unreadable";
            status = Unreadable;
        } else if (!reading.element->isValid()) {
            verdict = "invalid";
            if (status == Valid)
                status = Invalid;
            if (!standardInput) {
                Reading placed = readFile(invocation, reading.className, file, true);
                if (placed.error.isEmpty())
                    reading.element = std::move(placed.element);
            }
        }
        if (output == Json) {
            printJson(file, reading, verdict, invocation.faults);
            continue;
        }
        if (output == GitHub) {
            if (!reading.error.isEmpty()) {
                annotate(file, reading.readError.line, reading.readError.column,
                         reading.readError ? reading.readError.message : reading.error);
            } else if (*verdict == 'i') {
                const qint64 count =
                    eachIssue(reading, invocation.faults, [&](const KelXml::XmlIssue& issue) {
                        annotate(file, issue.line, issue.column,
                                 issue.className + QStringLiteral(": ") + issue.message);
                    });
                if (count == 0)
                    annotate(file, 1, 1, QStringLiteral("invalid ") + reading.className);
            }
            continue;
        }
        if (!reading.error.isEmpty()) {
            out() << reading.error << "\n";
        } else if (*verdict == 'i') {
            out() << file << ": invalid " << described(reading) << ":\n";
            ReportPrinter(out(), invocation.faults).print(*reading.element);
            // The same faults, each where its element starts, for editors.
            eachIssue(reading, invocation.faults, [&](const KelXml::XmlIssue& issue) {
                out() << file << ':' << issue.line << ':' << issue.column << ": " << issue.className
                      << ": " << issue.message << "\n";
            });
        } else {
            out() << file << ": valid " << described(reading) << "\n";
        }
    }
    return status;
}

int runFormat(const Invocation& invocation)
{
    int status = Valid;
    QString asClass;
    if (!classToRead(invocation, &asClass, &status, 1))
        return status;
    const QString& file = invocation.files.first();
    return readAndWrite(invocation, asClass, file, [&](const Reading& reading, QFile& output) {
        QXmlStreamWriter writer(&output);
        writer.setAutoFormatting(true);
        writer.writeStartDocument();
        reading.element->produceXml(writer, reading.elementName);
        writer.writeEndDocument();
        output.close();
        if (!reading.element->isValid()) {
            err() << file << ": invalid " << reading.className << ":\n";
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
