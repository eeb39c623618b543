#include "ToolCommands.h"

#include <XmlDocumentKind.h>
#include <XmlElementRegistry.h>

#include <limits>

using KelXml::XmlElementRegistry;
using KelXml::XmlReadError;
using KelXml::XmlReadLimits;

namespace {

// How many faults of a report are printed unless --faults says otherwise.
constexpr qint64 defaultFaults = 100;

// An option that changes a limit of the reader, and the limit: one of the
// two members is set.
struct LimitOption
{
    const char* option; // "max-bytes"
    const char* limit;  // "maxBytes", as XmlReadError::limit names it
    const char* help;   // %1: the default
    qint64 XmlReadLimits::*wide;
    int XmlReadLimits::*narrow;

    qint64 get(const XmlReadLimits& limits) const { return wide ? limits.*wide : limits.*narrow; }
    void set(XmlReadLimits& limits, qint64 value) const
    {
        if (wide)
            limits.*wide = value;
        else
            limits.*narrow = int(value);
    }
    qint64 largest() const
    {
        return wide ? std::numeric_limits<qint64>::max() : std::numeric_limits<int>::max();
    }
};

const LimitOption limitOptions[] = {
    {"max-bytes", "maxBytes", "Refuse a file larger than N bytes (default %1).",
     &XmlReadLimits::maxBytes, nullptr},
    {"max-depth", "maxDepth", "Refuse elements nested deeper than N (default %1).", nullptr,
     &XmlReadLimits::maxDepth},
    {"max-attributes", "maxAttributes",
     "Refuse a start tag with more than N attributes (default %1).", nullptr,
     &XmlReadLimits::maxAttributes},
    {"max-value-length", "maxValueLength",
     "Refuse a text, attribute value, name or comment longer than N bytes (default %1).",
     &XmlReadLimits::maxValueLength, nullptr},
};

// The option that raises the limit of the given name.
QString optionOf(const QString& limit)
{
    for (const LimitOption& row : limitOptions) {
        if (limit == QLatin1String(row.limit))
            return QStringLiteral("--") + QLatin1String(row.option);
    }
    return QString();
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

} // namespace

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

QString orList(const QStringList& items)
{
    if (items.size() < 2)
        return items.join(QString());
    return items.mid(0, items.size() - 1).join(QLatin1String(", ")) + QLatin1String(" or ") +
           items.last();
}

ToolOptions::ToolOptions()
    : as(QStringList{QStringLiteral("a"), QStringLiteral("as")},
         QStringLiteral("The element class (or alias) to read as."), QStringLiteral("CLASS"))
    , faults(QStringLiteral("faults"),
             QStringLiteral("Print the first N faults of an invalid element's report and count "
                            "the rest; 'all' prints the whole report (default %1).")
                 .arg(defaultFaults),
             QStringLiteral("N|all"))
{
    const XmlReadLimits defaults;
    for (const LimitOption& row : limitOptions) {
        limits.append(QCommandLineOption(QLatin1String(row.option),
                                         QString::fromLatin1(row.help).arg(row.get(defaults)),
                                         QStringLiteral("N")));
    }
}

void ToolOptions::addTo(QCommandLineParser& parser) const
{
    parser.addOption(as);
    parser.addOptions(limits);
    parser.addOption(faults);
}

QString Invocation::readOptions()
{
    XmlReadLimits limits;
    QString bad; // the first option whose value is wrong
    for (int i = 0; i < options.limits.size(); ++i) {
        const LimitOption& row = limitOptions[i];
        if (!parser.isSet(options.limits[i]))
            continue;
        bool ok = false;
        const qint64 value = parser.value(options.limits[i]).toLongLong(&ok);
        if (ok && value > 0 && value <= row.largest())
            row.set(limits, value);
        else if (bad.isEmpty())
            bad = QLatin1String(row.option);
    }
    if (!bad.isEmpty()) {
        return QStringLiteral("--%1 needs a positive integer, not '%2'.")
            .arg(bad, parser.value(bad));
    }
    documents.setLimits(limits);

    faults = defaultFaults;
    if (parser.isSet(options.faults)) {
        const QString value = parser.value(options.faults);
        bool ok = true;
        if (value == QLatin1String("all")) {
            faults = -1;
        } else {
            faults = value.toLongLong(&ok);
            ok = ok && faults >= 0;
        }
        if (!ok)
            return QStringLiteral("--faults needs a number of faults or 'all', not '%1'.")
                .arg(value);
    }
    return QString();
}

const QCommandLineOption& outputOption()
{
    static const QCommandLineOption option(
        QStringLiteral("output"),
        QStringLiteral("check: print 'text' (the default), 'json' (one JSON record a file, "
                       "a line each) or 'github' (one workflow annotation a fault); diff: "
                       "'text' or 'json' (one JSON record a difference)."),
        QStringLiteral("text|json|github"), QStringLiteral("text"));
    return option;
}

namespace {

// The bytes of a stream, up to one past the limit (the reader then refuses it).
QByteArray readStream(QIODevice& device, qint64 maxBytes)
{
    QByteArray bytes;
    while (bytes.size() <= maxBytes) {
        const QByteArray part = device.read(64 * 1024);
        if (part.isEmpty())
            break;
        bytes += part;
    }
    return bytes;
}

} // namespace

Reading readFile(const Invocation& invocation, const QString& className, const QString& file,
                 bool positions)
{
    Reading reading;
    reading.className = className;
    QFile device;
    bool opened = false;
    if (file == QLatin1String("-")) {
        opened = device.open(stdin, QIODevice::ReadOnly);
    } else {
        device.setFileName(file);
        opened = device.open(QIODevice::ReadOnly);
    }
    if (!opened) {
        reading.error =
            QStringLiteral("%1: error: cannot open: %2").arg(file, device.errorString());
        reading.readError.kind = XmlReadError::Device;
        reading.readError.message = QStringLiteral("cannot open: ") + device.errorString();
        return reading;
    }
    KelXml::XmlDocumentReader documents = invocation.documents;
    documents.setRecordsPositions(positions);
    // Without a class the root element is read twice: once for the kind,
    // then as a document of that kind. A stream is held for that.
    QByteArray bytes;
    const bool held = className.isEmpty() && device.isSequential();
    if (held)
        bytes = readStream(device, documents.limits().maxBytes);
    if (className.isEmpty()) {
        XmlReadError error;
        const KelXml::XmlRootShape shape = held ? documents.readRootShape(bytes, &error)
                                                : documents.readRootShape(&device, &error);
        const KelXml::XmlDocumentKind* kind =
            error ? nullptr : KelXml::XmlDocumentKind::recognise(shape);
        if (error) {
            reading.error = readError(file, error);
            reading.readError = error;
            return reading;
        }
        if (!kind) {
            reading.error = QStringLiteral("%1: error: the root element does not show which "
                                           "document this is; name its class with --as")
                                .arg(file);
            return reading;
        }
        reading.kind = QLatin1String(kind->name);
        reading.className = QLatin1String(kind->rootClass);
        if (!held)
            device.seek(0);
    }
    KelXml::XmlReadResult result = held ? documents.read(reading.className, bytes)
                                        : documents.read(reading.className, &device);
    if (result.error) {
        reading.error = readError(file, result.error);
        reading.readError = result.error;
    }
    reading.element = std::move(result.root);
    reading.elementName = result.rootName;
    return reading;
}

QString json(const QString& text)
{
    QString quoted = QStringLiteral("\"");
    for (const QChar c : text) {
        switch (c.unicode()) {
        case '"':
            quoted += QLatin1String("\\\"");
            break;
        case '\\':
            quoted += QLatin1String("\\\\");
            break;
        case '\n':
            quoted += QLatin1String("\\n");
            break;
        case '\r':
            quoted += QLatin1String("\\r");
            break;
        case '\t':
            quoted += QLatin1String("\\t");
            break;
        default:
            if (c.unicode() < 0x20 || c.unicode() > 0x7e)
                quoted += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
            else
                quoted += c;
        }
    }
    return quoted + QLatin1Char('"');
}

bool classToRead(const Invocation& invocation, QString* className, int* status, int files)
{
    const QString& command = invocation.command;
    if (invocation.parser.isSet(invocation.options.as)) {
        *className = XmlElementRegistry::resolve(invocation.as());
        if (className->isEmpty()) {
            *status = usageError(
                QStringLiteral("unknown element class '%1' (see '" KELXML_TOOL_NAME " classes').")
                    .arg(invocation.as()));
            return false;
        }
    }
    if (invocation.files.isEmpty()) {
        *status = usageError(QStringLiteral("'%1' needs a file.").arg(command));
        return false;
    }
    if (files >= 0 && invocation.files.size() != files) {
        *status = usageError(QStringLiteral("'%1' takes exactly %2.")
                                 .arg(command, files == 1 ? QStringLiteral("one file")
                                                          : QStringLiteral("two files")));
        return false;
    }
    return true;
}
