// kelxml: checks and formats KelXml elements stored in files. The Qt 6 build
// is named kelxml6 and says so in its messages (KELXML_TOOL_NAME).
//
// Each command is a row of the table below: its name, its synopsis and help
// as --help shows them, and the function that runs it (ToolCommands.h).

#include "GeoCommands.h"
#include "ToolCommands.h"

#include <QCoreApplication>

#include <vector>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace {

// The commands, in the order --help lists them.
const std::vector<ToolCommand>& commands()
{
    static const std::vector<ToolCommand> table = {
        {QStringLiteral("check"),
         QStringLiteral("check [--as CLASS] FILE..."),
         QStringLiteral("Read the first element of each file as an object of\n"
                        "CLASS and say whether it is valid; otherwise print\n"
                        "the located read error or the validation report\n"
                        "(its first 100 faults unless --faults says otherwise)\n"
                        "and each fault where its element starts. Without\n"
                        "--as, the root element says which document it is.\n"
                        "--output json or github prints records for programs."),
         true,
         &runCheck,
         {outputOption()}},
        {QStringLiteral("format"),
         QStringLiteral("format [--as CLASS] FILE"),
         QStringLiteral("Read the element and write it back to standard output\n"
                        "in its canonical, indented form."),
         true,
         &runFormat,
         {}},
        {QStringLiteral("json"),
         QStringLiteral("json [--as CLASS] FILE"),
         QStringLiteral("Write the typed content of the element as JSON: one\n"
                        "object per element (element, class, attributes,\n"
                        "value and unit, children) in writing order. A view\n"
                        "for programs; it is not read back."),
         true,
         &runJson,
         {}},
        {QStringLiteral("diff"),
         QStringLiteral("diff [--as scenario|command|CLASS] A B"),
         QStringLiteral("Compare two documents of one kind object by object\n"
                        "(matched by kind and name, or a command's reference):\n"
                        "one line a difference. Exit 0 when none, 1 when some.\n"
                        "--output json prints one record a difference."),
         true,
         &runDiff,
         {outputOption()}},
        {QStringLiteral("classes"),
         QStringLiteral("classes"),
         QStringLiteral("List the element classes (and aliases) known."),
         false,
         &runClasses,
         {}},
        mapCommand(QStringLiteral("geojson"),
                   QStringLiteral("Write the areas, stations, direction finders,\n"
                                  "receivers, emitters and result records of a scenario\n"
                                  "snapshot, of the create commands of a command\n"
                                  "message, or of a response beside the document given\n"
                                  "with --scenario that holds what it names, as GeoJSON."),
                   &writeGeoJson),
        mapCommand(QStringLiteral("svg"), QStringLiteral("Write the same objects as an SVG map."),
                   &writeSvg),
        mapCommand(QStringLiteral("kml"),
                   QStringLiteral("Write the same objects as KML; with -o OUT.kmz as a\n"
                                  "KMZ that holds the pictures placed with --picture\n"
                                  "IMG --extent ... as ground overlays."),
                   &writeKml, {pictureOption(), extentOption()}),
        {QStringLiteral("worldfile"),
         QStringLiteral("worldfile IMG --extent area:NAME|result:NAME|W,S,E,N [--scenario FILE]"),
         QStringLiteral("Write the world file (.pgw, .jgw) and the .aux.xml\n"
                        "(WGS 84) that place the picture on the extent: an\n"
                        "area or result record of --scenario, or degrees."),
         true,
         &runWorldFile,
         {extentOption(), besideOption()}},
    };
    return table;
}

const ToolCommand* findCommand(const QString& name)
{
    for (const ToolCommand& command : commands()) {
        if (command.name == name)
            return &command;
    }
    return nullptr;
}

// The description --help prints: the commands, each synopsis with its help
// beside it from this column on (below it when the synopsis is longer).
QString description()
{
    const int column = 28;
    QString text = QStringLiteral("Checks and formats KelXml elements stored in files.\n"
                                  "\n"
                                  "Commands:\n");
    for (const ToolCommand& command : commands()) {
        QString synopsis = QStringLiteral("  ") + command.synopsis;
        if (synopsis.size() + 2 > column) {
            text += synopsis + QLatin1Char('\n');
            synopsis.clear();
        }
        for (const QString& line : command.help.split(QLatin1Char('\n'))) {
            text += synopsis.leftJustified(column) + line + QLatin1Char('\n');
            synopsis.clear();
        }
    }
    return text + QStringLiteral(
                      "\n"
                      "FILE '-' reads standard input.\n"
                      "\n"
                      "Files are read as untrusted input: a file beyond one of the limits set by\n"
                      "the --max-* options, or holding a DTD, NUL bytes or invalid UTF-8, is\n"
                      "refused as unreadable.\n"
                      "\n"
                      "Exit status: 0 all valid, 1 some element invalid, 2 some file unreadable\n"
                      "(missing file, malformed XML, a limit exceeded, or an element its class\n"
                      "cannot read), 64 wrong usage. geojson, svg and kml exit 0 once written:\n"
                      "invalid objects are written too, marked as such, and a response whose\n"
                      "reading stopped at an element's error is drawn as far as it was read.");
}

void setUp(QCommandLineParser& parser, const ToolOptions& options)
{
    parser.setApplicationDescription(description());
    parser.addHelpOption();
    parser.addVersionOption();
    options.addTo(parser);
    QStringList names;
    QStringList added; // an option several commands take is added once
    for (const ToolCommand& command : commands()) {
        names.append(command.name);
        for (const QCommandLineOption& option : command.options) {
            if (!added.contains(option.names().first())) {
                added.append(option.names().first());
                parser.addOption(option);
            }
        }
    }
    parser.addPositionalArgument(QStringLiteral("command"), orList(names) + QLatin1Char('.'));
    parser.addPositionalArgument(QStringLiteral("files"), QStringLiteral("The files to read."),
                                 QStringLiteral("[FILE...]"));
}

// An option of some commands is wrong with any other: the problem with the
// first such option given, naming the commands that take it; empty when none.
QString foreignOption(const QCommandLineParser& parser, const ToolCommand& command)
{
    const auto takes = [](const ToolCommand& which, const QCommandLineOption& option) {
        for (const QCommandLineOption& own : which.options) {
            if (own.names() == option.names())
                return true;
        }
        return false;
    };
    for (const ToolCommand& other : commands()) {
        for (const QCommandLineOption& option : other.options) {
            if (takes(command, option) || !parser.isSet(option))
                continue;
            QStringList owners;
            for (const ToolCommand& owner : commands()) {
                if (takes(owner, option))
                    owners.append(QLatin1Char('\'') + owner.name + QLatin1Char('\''));
            }
            const QString given = option.names().first();
            return QStringLiteral("%1%2 is an option of %3 only.")
                .arg(given.size() == 1 ? QStringLiteral("-") : QStringLiteral("--"), given,
                     orList(owners));
        }
    }
    return QString();
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

    const ToolOptions options;
    QCommandLineParser parser;
    setUp(parser, options);
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
    const QString name = arguments.takeFirst();
    Invocation invocation{name, arguments, parser, options, {}, 0};
    // An unknown command is named only once the options are found right.
    const ToolCommand* command = findCommand(invocation.command);
    if (!command || command->readsFiles) {
        const QString problem = invocation.readOptions();
        if (!problem.isEmpty())
            return usageError(problem);
    }
    if (!command)
        return usageError(QStringLiteral("unknown command '%1'.").arg(invocation.command));
    const QString foreign = foreignOption(parser, *command);
    if (!foreign.isEmpty())
        return usageError(foreign);
    return command->run(invocation);
}
