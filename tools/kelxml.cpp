// kelxml: checks and formats KelXml elements stored in files. The Qt 6 build
// is named kelxml6 and says so in its messages (KELXML_TOOL_NAME).

#include "GeoCommands.h"

#include <XmlElementRegistry.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <memory>

using KelXml::IXmlElement;
using KelXml::XmlElementRegistry;

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

const char* const description =
    "Checks and formats KelXml elements stored in files.\n"
    "\n"
    "Commands:\n"
    "  check --as CLASS FILE...  Read the first element of each file as an object of\n"
    "                            CLASS and say whether it is valid; otherwise print\n"
    "                            the located read error or the validation report.\n"
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
    "Exit status: 0 all valid, 1 some element invalid, 2 some file unreadable\n"
    "(missing file, malformed XML, or an element its class cannot read),\n"
    "64 wrong usage. geojson and svg exit 0 once written: invalid objects are\n"
    "written too, marked as such.";

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

QString xmlError(const QString& file, const QXmlStreamReader& reader)
{
    // Errors the element classes raise carry their own class, line and column.
    if (reader.error() == QXmlStreamReader::CustomError)
        return QStringLiteral("%1: error: %2").arg(file, reader.errorString());
    return QStringLiteral("%1:%2:%3: error: not well-formed XML: %4")
        .arg(file)
        .arg(reader.lineNumber())
        .arg(reader.columnNumber())
        .arg(reader.errorString());
}

Reading readFile(const QString& className, const QString& file)
{
    Reading reading;
    QFile device(file);
    if (!device.open(QIODevice::ReadOnly)) {
        reading.error =
            QStringLiteral("%1: error: cannot open: %2").arg(file, device.errorString());
        return reading;
    }
    QXmlStreamReader reader(&device);
    while (!reader.atEnd() && reader.readNext() != QXmlStreamReader::StartElement) {
    }
    if (reader.tokenType() != QXmlStreamReader::StartElement) {
        reading.error = reader.hasError() ? xmlError(file, reader)
                                          : QStringLiteral("%1: error: no element found").arg(file);
        return reading;
    }
    reading.element = XmlElementRegistry::create(className);
    reading.elementName = reader.name().toString();
    reading.element->processXml(reader, reading.elementName);
    // The rest of the file must be well-formed too.
    while (!reader.hasError() && !reader.atEnd())
        reader.readNext();
    if (reader.hasError())
        reading.error = xmlError(file, reader);
    return reading;
}

QString indented(const QString& text)
{
    QString result = text;
    result.replace(QLatin1Char('\n'), QLatin1String("\n    "));
    return QLatin1String("    ") + result;
}

int check(const QString& className, const QStringList& files)
{
    int status = Valid;
    for (const QString& file : files) {
        const Reading reading = readFile(className, file);
        if (!reading.error.isEmpty()) {
            out() << reading.error << "\n";
            status = Unreadable;
        } else if (!reading.element->isValid()) {
            out() << file << ": invalid " << className << " \"" << reading.elementName << "\":\n"
                  << indented(reading.element->syntaxError()) << "\n";
            if (status == Valid)
                status = Invalid;
        } else {
            out() << file << ": valid " << className << " \"" << reading.elementName << "\"\n";
        }
    }
    return status;
}

int format(const QString& className, const QString& file)
{
    const Reading reading = readFile(className, file);
    if (!reading.error.isEmpty()) {
        err() << reading.error << "\n";
        return Unreadable;
    }
    QFile output;
    if (!output.open(stdout, QIODevice::WriteOnly))
        return Unreadable;
    QXmlStreamWriter writer(&output);
    writer.setAutoFormatting(true);
    writer.writeStartDocument();
    reading.element->produceXml(writer, reading.elementName);
    writer.writeEndDocument();
    output.close();
    if (!reading.element->isValid()) {
        err() << file << ": invalid " << className << ":\n"
              << indented(reading.element->syntaxError()) << "\n";
        return Invalid;
    }
    return Valid;
}

// geojson and svg: objects that are invalid are drawn all the same.
int writeMap(const QString& command, const QString& className, const QString& file)
{
    const Reading reading = readFile(className, file);
    if (!reading.error.isEmpty()) {
        err() << reading.error << "\n";
        return Unreadable;
    }
    QFile output;
    if (!output.open(stdout, QIODevice::WriteOnly))
        return Unreadable;
    const bool written = command == QLatin1String("geojson")
                             ? writeGeoJson(*reading.element, output)
                             : writeSvg(*reading.element, QFileInfo(file).fileName(), output);
    output.close();
    if (!written) {
        err() << "kelxml: cannot write the " << command << " of " << file << "\n";
        return Unreadable;
    }
    return Valid;
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
    if (command == QLatin1String("geojson") || command == QLatin1String("svg")) {
        const QString className = XmlElementRegistry::resolve(parser.value(asOption));
        if (className != QLatin1String("XmlKelBtType") && className != QLatin1String("XmlCmdRoot"))
            return usageError(
                QStringLiteral("'%1' needs --as scenario or --as command.").arg(command));
        if (arguments.size() != 1)
            return usageError(QStringLiteral("'%1' takes exactly one file.").arg(command));
        return writeMap(command, className, arguments.first());
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
        return format(className, arguments.first());
    }
    return check(className, arguments);
}
