// kelxml: checks and formats KelXml elements stored in files. The Qt 6 build
// is named kelxml6 and says so in its messages (KELXML_TOOL_NAME).

#include "GeoCommands.h"

#include <XmlDocumentReader.h>
#include <XmlElementRegistry.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>
#include <QXmlStreamWriter>

#include <limits>
#include <memory>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

using KelXml::IXmlElement;
using KelXml::XmlDocumentReader;
using KelXml::XmlElementRegistry;
using KelXml::XmlReadError;
using KelXml::XmlReadLimits;

namespace {

// Exit codes.
enum Status
{
    Valid = 0,   // every element read and valid
    Invalid = 1, // an element was read but breaks a rule of its class
    Unreadable =
        2, // a file could not be opened, is not well-formed XML, or the element is malformed
    UsageError = 64, // the command line is wrong
};

// How many faults of a report are printed unless --faults says otherwise.
constexpr qint64 defaultFaults = 100;

const char* const description =
    "Checks and formats KelXml elements stored in files.\n"
    "\n"
    "Commands:\n"
    "  check --as CLASS FILE...  Read the first element of each file as an object of\n"
    "                            CLASS and say whether it is valid; otherwise print\n"
    "                            the located read error or the validation report\n"
    "                            (its first 100 faults unless --faults says otherwise).\n"
    "  format --as CLASS FILE    Read the element and write it back to standard output\n"
    "                            in its canonical, indented form.\n"
    "  classes                   List the element classes (and aliases) known.\n"
    "  geojson --as scenario|command FILE\n"
    "                            Write the areas, stations, direction finders,\n"
    "                            receivers and emitters of a scenario snapshot or of\n"
    "                            the create commands of a command message as GeoJSON.\n"
    "  svg --as scenario|command FILE\n"
    "                            Write the same objects as an SVG map.\n"
    "\n"
    "Files are read as untrusted input: a file beyond one of the limits set by\n"
    "the --max-* options, or holding a DTD, NUL bytes or invalid UTF-8, is\n"
    "refused as unreadable.\n"
    "\n"
    "Exit status: 0 all valid, 1 some element invalid, 2 some file unreadable\n"
    "(missing file, malformed XML, a limit exceeded, or an element its class\n"
    "cannot read), 64 wrong usage. geojson and svg exit 0 once written: invalid\n"
    "objects are written too, marked as such.";

QTextStream& out()
{
    static QTextStream stream(stdout);
    return stream;
}

QTextStream& err()
{
    static QTextStream stream(stderr);
    return stream;
}

int usageError(const QString& message)
{
    err() << KELXML_TOOL_NAME ": " << message << "\n"
          << "Try '" KELXML_TOOL_NAME " --help' for more information.\n";
    err().flush();
    return UsageError;
}

// What reading one file gave.
struct Reading
{
    std::unique_ptr<IXmlElement> element;
    QString elementName;
    QString error; // set when the file is unreadable
};

// The option that changes the limit of the given name.
QString optionOf(const QString& limit)
{
    if (limit == QLatin1String("maxBytes"))
        return QStringLiteral("--max-bytes");
    if (limit == QLatin1String("maxDepth"))
        return QStringLiteral("--max-depth");
    if (limit == QLatin1String("maxAttributes"))
        return QStringLiteral("--max-attributes");
    return QStringLiteral("--max-value-length");
}

QString readError(const QString& file, const XmlReadError& error)
{
    switch (error.kind) {
    case XmlReadError::Element: // carries its own class, line and column
    case XmlReadError::NoElement:
    case XmlReadError::Device:
    case XmlReadError::UnknownClass:
        return QStringLiteral("%1: error: %2").arg(file, error.message);
    case XmlReadError::NotWellFormed:
    case XmlReadError::TrailingContent:
        return QStringLiteral("%1:%2:%3: error: not well-formed XML: %4")
            .arg(file)
            .arg(error.line)
            .arg(error.column)
            .arg(error.message);
    default:
        break;
    }
    QString text = QStringLiteral("%1:%2:%3: error: %4")
                       .arg(file)
                       .arg(error.line)
                       .arg(error.column)
                       .arg(error.message);
    if (error.isLimit())
        text += QStringLiteral("; raise it with %1").arg(optionOf(error.limit));
    return text;
}

Reading readFile(const XmlDocumentReader& documents, const QString& className, const QString& file)
{
    Reading reading;
    QFile device(file);
    if (!device.open(QIODevice::ReadOnly)) {
        reading.error =
            QStringLiteral("%1: error: cannot open: %2").arg(file, device.errorString());
        return reading;
    }
    KelXml::XmlReadResult result = documents.read(className, &device);
    if (result.error)
        reading.error = readError(file, result.error);
    reading.element = std::move(result.root);
    reading.elementName = result.rootName;
    return reading;
}

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

int check(const XmlDocumentReader& documents, const QString& className, const QStringList& files,
          qint64 faults)
{
    int status = Valid;
    for (const QString& file : files) {
        const Reading reading = readFile(documents, className, file);
        if (!reading.error.isEmpty()) {
            out() << reading.error << "\n";
            status = Unreadable;
        } else if (!reading.element->isValid()) {
            out() << file << ": invalid " << className << " \"" << reading.elementName << "\":\n";
            ReportPrinter(out(), faults).print(*reading.element);
            if (status == Valid)
                status = Invalid;
        } else {
            out() << file << ": valid " << className << " \"" << reading.elementName << "\"\n";
        }
    }
    return status;
}

// Reads the file, opens standard output and hands both to write; a file that
// cannot be read, or an output that cannot be opened, is Unreadable.
template <class Write>
int readAndWrite(const XmlDocumentReader& documents, const QString& className, const QString& file,
                 Write write)
{
    const Reading reading = readFile(documents, className, file);
    if (!reading.error.isEmpty()) {
        err() << reading.error << "\n";
        return Unreadable;
    }
    QFile output;
    if (!output.open(stdout, QIODevice::WriteOnly))
        return Unreadable;
    return write(reading, output);
}

int format(const XmlDocumentReader& documents, const QString& className, const QString& file,
           qint64 faults)
{
    return readAndWrite(documents, className, file, [&](const Reading& reading, QFile& output) {
        QXmlStreamWriter writer(&output);
        writer.setAutoFormatting(true);
        writer.writeStartDocument();
        reading.element->produceXml(writer, reading.elementName);
        writer.writeEndDocument();
        output.close();
        if (!reading.element->isValid()) {
            err() << file << ": invalid " << className << ":\n";
            ReportPrinter(err(), faults).print(*reading.element);
            return Invalid;
        }
        return Valid;
    });
}

// geojson and svg: objects that are invalid are drawn all the same.
int writeMap(const XmlDocumentReader& documents, const QString& command, const QString& className,
             const QString& file)
{
    return readAndWrite(documents, className, file, [&](const Reading& reading, QFile& output) {
        const bool written = command == QLatin1String("geojson")
                                 ? writeGeoJson(*reading.element, output)
                                 : writeSvg(*reading.element, QFileInfo(file).fileName(), output);
        output.close();
        if (!written) {
            err() << KELXML_TOOL_NAME ": cannot write the " << command << " of " << file << "\n";
            return Unreadable;
        }
        return Valid;
    });
}

int listClasses()
{
    for (const XmlElementRegistry::Entry& entry : XmlElementRegistry::entries()) {
        out() << entry.className;
        if (!entry.alias.isEmpty())
            out() << " (alias " << entry.alias << ")";
        out() << "\t" << entry.summary << "\n";
    }
    return Valid;
}

} // namespace

int main(int argc, char* argv[])
{
#if defined(__GLIBC__)
    // Each model read is freed before the tool exits, as a server frees every
    // message it reads. glibc's fast bins keep small freed blocks apart and
    // merge them all again each time a large one is freed; without them a
    // model of many small objects is freed in about half the time.
    mallopt(M_MXFAST, 0);
#endif
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral(KELXML_TOOL_NAME));
    QCoreApplication::setApplicationVersion(QStringLiteral(KELXML_VERSION_STRING));

    QCommandLineParser parser;
    parser.setApplicationDescription(QString::fromLatin1(description));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption asOption(QStringList{QStringLiteral("a"), QStringLiteral("as")},
                                      QStringLiteral("The element class (or alias) to read as."),
                                      QStringLiteral("CLASS"));
    parser.addOption(asOption);
    const XmlReadLimits defaults;
    const QCommandLineOption maxBytesOption(
        QStringLiteral("max-bytes"),
        QStringLiteral("Refuse a file larger than N bytes (default %1).").arg(defaults.maxBytes),
        QStringLiteral("N"));
    const QCommandLineOption maxDepthOption(
        QStringLiteral("max-depth"),
        QStringLiteral("Refuse elements nested deeper than N (default %1).").arg(defaults.maxDepth),
        QStringLiteral("N"));
    const QCommandLineOption maxAttributesOption(
        QStringLiteral("max-attributes"),
        QStringLiteral("Refuse a start tag with more than N attributes (default %1).")
            .arg(defaults.maxAttributes),
        QStringLiteral("N"));
    const QCommandLineOption maxValueLengthOption(
        QStringLiteral("max-value-length"),
        QStringLiteral("Refuse a text, attribute value, name or comment longer than N bytes "
                       "(default %1).")
            .arg(defaults.maxValueLength),
        QStringLiteral("N"));
    parser.addOptions({maxBytesOption, maxDepthOption, maxAttributesOption, maxValueLengthOption});
    const QCommandLineOption faultsOption(
        QStringLiteral("faults"),
        QStringLiteral("Print the first N faults of an invalid element's report and count the "
                       "rest; 'all' prints the whole report (default %1).")
            .arg(defaultFaults),
        QStringLiteral("N|all"));
    parser.addOption(faultsOption);
    parser.addPositionalArgument(QStringLiteral("command"),
                                 QStringLiteral("check, format, classes, geojson or svg."));
    parser.addPositionalArgument(QStringLiteral("files"), QStringLiteral("The files to read."),
                                 QStringLiteral("[FILE...]"));

    if (!parser.parse(QCoreApplication::arguments()))
        return usageError(parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        out() << parser.helpText();
        return Valid;
    }
    if (parser.isSet(QStringLiteral("version"))) {
        out() << KELXML_TOOL_NAME " " << QCoreApplication::applicationVersion() << "\n";
        return Valid;
    }

    QStringList arguments = parser.positionalArguments();
    if (arguments.isEmpty())
        return usageError(QStringLiteral("no command given."));
    const QString command = arguments.takeFirst();

    if (command == QLatin1String("classes")) {
        if (!arguments.isEmpty())
            return usageError(QStringLiteral("'classes' takes no files."));
        return listClasses();
    }
    XmlReadLimits limits;
    QString badOption;
    const auto limit = [&](const QCommandLineOption& option, qint64 current,
                           qint64 largest) -> qint64 {
        if (!parser.isSet(option))
            return current;
        bool ok = false;
        const qint64 value = parser.value(option).toLongLong(&ok);
        if (!ok || value <= 0 || value > largest) {
            if (badOption.isEmpty())
                badOption = option.names().constFirst();
            return current;
        }
        return value;
    };
    const qint64 intMax = std::numeric_limits<int>::max();
    const qint64 int64Max = std::numeric_limits<qint64>::max();
    limits.maxBytes = limit(maxBytesOption, limits.maxBytes, int64Max);
    limits.maxDepth = int(limit(maxDepthOption, limits.maxDepth, intMax));
    limits.maxAttributes = int(limit(maxAttributesOption, limits.maxAttributes, intMax));
    limits.maxValueLength = limit(maxValueLengthOption, limits.maxValueLength, int64Max);
    if (!badOption.isEmpty()) {
        return usageError(QStringLiteral("--%1 needs a positive integer, not '%2'.")
                              .arg(badOption, parser.value(badOption)));
    }
    qint64 faults = defaultFaults;
    if (parser.isSet(faultsOption)) {
        const QString value = parser.value(faultsOption);
        bool ok = true;
        if (value == QLatin1String("all")) {
            faults = -1;
        } else {
            faults = value.toLongLong(&ok);
            ok = ok && faults >= 0;
        }
        if (!ok)
            return usageError(
                QStringLiteral("--faults needs a number of faults or 'all', not '%1'.").arg(value));
    }
    const XmlDocumentReader documents(limits);

    if (command == QLatin1String("geojson") || command == QLatin1String("svg")) {
        const QString className = XmlElementRegistry::resolve(parser.value(asOption));
        if (className != QLatin1String("XmlKelBtType") && className != QLatin1String("XmlCmdRoot"))
            return usageError(
                QStringLiteral("'%1' needs --as scenario or --as command.").arg(command));
        if (arguments.size() != 1)
            return usageError(QStringLiteral("'%1' takes exactly one file.").arg(command));
        return writeMap(documents, command, className, arguments.first());
    }
    if (command != QLatin1String("check") && command != QLatin1String("format"))
        return usageError(QStringLiteral("unknown command '%1'.").arg(command));

    if (!parser.isSet(asOption))
        return usageError(
            QStringLiteral("'%1' needs --as CLASS (see '" KELXML_TOOL_NAME " classes').")
                .arg(command));
    const QString className = XmlElementRegistry::resolve(parser.value(asOption));
    if (className.isEmpty()) {
        return usageError(
            QStringLiteral("unknown element class '%1' (see '" KELXML_TOOL_NAME " classes').")
                .arg(parser.value(asOption)));
    }
    if (arguments.isEmpty())
        return usageError(QStringLiteral("'%1' needs a file.").arg(command));

    if (command == QLatin1String("format")) {
        if (arguments.size() != 1)
            return usageError(QStringLiteral("'format' takes exactly one file."));
        return format(documents, className, arguments.first(), faults);
    }
    return check(documents, className, arguments, faults);
}
