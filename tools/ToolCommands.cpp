#include "ToolCommands.h"

#include <limits>

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

Reading readFile(const Invocation& invocation, const QString& className, const QString& file)
{
    Reading reading;
    QFile device(file);
    if (!device.open(QIODevice::ReadOnly)) {
        reading.error =
            QStringLiteral("%1: error: cannot open: %2").arg(file, device.errorString());
        return reading;
    }
    KelXml::XmlReadResult result = invocation.documents.read(className, &device);
    if (result.error)
        reading.error = readError(file, result.error);
    reading.element = std::move(result.root);
    reading.elementName = result.rootName;
    return reading;
}
