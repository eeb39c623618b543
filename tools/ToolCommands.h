#pragma once

// What the commands of the kelxml tool share: the exit codes, the output
// streams, the parsed command line each command is handed, and the reading
// of a file through the entry point. The table of commands is in kelxml.cpp.

#include <IXmlElement.h>
#include <XmlDocumentReader.h>

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QFile>
#include <QString>
#include <QStringList>
#include <QTextStream>

#include <functional>
#include <memory>

// Exit codes.
enum Status
{
    Valid = 0,   // every element read and valid
    Invalid = 1, // an element was read but breaks a rule of its class
    Unreadable =
        2, // a file could not be opened, is not well-formed XML, or the element is malformed
    UsageError = 64, // the command line is wrong
};

QTextStream& out();
QTextStream& err();
// Says what is wrong with the command line and how to get help; UsageError.
int usageError(const QString& message);
// "a", "a or b", "a, b or c".
QString orList(const QStringList& items);

// The options of the tool: --as, the limits of the reader and --faults.
struct ToolOptions
{
    ToolOptions();
    void addTo(QCommandLineParser& parser) const;

    QCommandLineOption as;
    QList<QCommandLineOption> limits; // in the order of the rows in ToolCommands.cpp
    QCommandLineOption faults;
};

// A command line as a command is handed it.
struct Invocation
{
    QString command;   // the command's name
    QStringList files; // the arguments after it
    const QCommandLineParser& parser;
    const ToolOptions& options;
    // Set from the limit options and --faults before a command that reads
    // files runs.
    KelXml::XmlDocumentReader documents;
    qint64 faults;

    // The value of --as; empty when it is not given.
    QString as() const { return parser.value(options.as); }
    // Sets the reader's limits and the faults from the command line; the
    // usage error when a value is wrong, empty otherwise.
    QString readOptions();
};

// One command of the tool: a row of the table in kelxml.cpp.
struct ToolCommand
{
    QString name;
    QString synopsis; // as --help shows it: "check --as CLASS FILE..."
    QString help;     // the lines --help shows beside it, already wrapped
    bool readsFiles;  // whether the limits and --faults are checked before it runs
    std::function<int(const Invocation&)> run;
    QList<QCommandLineOption> options; // the options only this command takes
};

// check's --output text|json|github.
const QCommandLineOption& outputOption();

// What reading one file gave.
struct Reading
{
    std::unique_ptr<KelXml::IXmlElement> element;
    QString elementName;
    QString className;              // the class read, named by --as or taken from the content
    QString kind;                   // the kind of document taken from the content; empty with --as
    QString error;                  // set when the file is unreadable
    KelXml::XmlReadError readError; // the same, as data; kind None when the kind is unknown
};

// Reads the file ("-": standard input) as an object of the class, or, when
// className is empty, as the kind of document its root element shows. With
// positions, every element records where it was read (XmlIssue).
Reading readFile(const Invocation& invocation, const QString& className, const QString& file,
                 bool positions = false);

// Reads the file, opens standard output and hands both to write; a file that
// cannot be read, or an output that cannot be opened, is Unreadable.
template <class Write>
int readAndWrite(const Invocation& invocation, const QString& className, const QString& file,
                 Write write)
{
    const Reading reading = readFile(invocation, className, file);
    if (!reading.error.isEmpty()) {
        err() << reading.error << "\n";
        return Unreadable;
    }
    QFile output;
    if (!output.open(stdout, QIODevice::WriteOnly))
        return Unreadable;
    return write(reading, output);
}

// JSON text of a string, as ASCII.
QString json(const QString& text);

// The class that --as names, or an empty one when --as is not given (each
// file's root element then says), for a command given at least one file, or
// exactly `files` (1 or 2) when not negative. False after a usage error, whose
// status is then in *status.
bool classToRead(const Invocation& invocation, QString* className, int* status, int files = -1);

// The commands.
int runCheck(const Invocation& invocation);
int runFormat(const Invocation& invocation);
int runClasses(const Invocation& invocation);
int runJson(const Invocation& invocation);
int runDiff(const Invocation& invocation);
