#include "GeoCommands.h"

#include <XmlElementRegistry.h>

#include <QFileInfo>

using KelXml::XmlDocumentKind;

namespace {

// The names of the kinds that have a map, in the table's order.
QStringList mapKinds()
{
    QStringList names;
    for (const XmlDocumentKind& kind : XmlDocumentKind::all()) {
        if (kind.hasMap())
            names.append(QLatin1String(kind.name));
    }
    return names;
}

// Objects that are invalid are drawn all the same. Without --as the root
// element says which document it is, and it must be one with a map.
int runMap(const Invocation& invocation, MapWriter write)
{
    const QString& command = invocation.command;
    const bool byContent = !invocation.parser.isSet(invocation.options.as);
    const XmlDocumentKind* kind =
        XmlDocumentKind::find(KelXml::XmlElementRegistry::resolve(invocation.as()));
    if (!byContent && (!kind || !kind->hasMap())) {
        QStringList options;
        for (const QString& name : mapKinds())
            options.append(QStringLiteral("--as ") + name);
        return usageError(QStringLiteral("'%1' needs %2.").arg(command, orList(options)));
    }
    if (invocation.files.size() != 1)
        return usageError(QStringLiteral("'%1' takes exactly one file.").arg(command));
    const QString& file = invocation.files.first();
    return readAndWrite(
        invocation, byContent ? QString() : QLatin1String(kind->rootClass), file,
        [&](const Reading& reading, QFile& output) {
            const XmlDocumentKind* read = byContent ? XmlDocumentKind::find(reading.kind) : kind;
            if (!read || !read->hasMap()) {
                err() << file << ": error: " << command << " draws " << orList(mapKinds())
                      << " documents, not a " << reading.kind << " document\n";
                return Unreadable;
            }
            const MapDocument document{*read, *reading.element, QFileInfo(file).fileName()};
            const bool written = write(document, output);
            output.close();
            if (!written) {
                err() << KELXML_TOOL_NAME ": cannot write the " << command << " of " << file
                      << "\n";
                return Unreadable;
            }
            return Valid;
        });
}

} // namespace

ToolCommand mapCommand(const QString& name, const QString& help, MapWriter write)
{
    return {name,
            name + QStringLiteral(" [--as ") + mapKinds().join(QLatin1Char('|')) +
                QStringLiteral("] FILE"),
            help,
            true,
            [write](const Invocation& invocation) { return runMap(invocation, write); },
            {}};
}
