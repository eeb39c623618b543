#include "GeoCommands.h"

#include <XmlElementRegistry.h>

#include <QBuffer>
#include <QFileInfo>

#include <algorithm>
#include <cmath>

using KelXml::XmlDocumentKind;
using KelXml::XmlGeoFeature;
using KelXml::XmlGeoLookup;

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

QVector<XmlGeoFeature> collect(const XmlDocumentKind& kind, const KelXml::IXmlElement& root)
{
    QVector<XmlGeoFeature> features;
    kind.visitGeoFeatures(
        root, XmlGeoLookup(), [&features](const XmlGeoFeature& f) { features.append(f); }, nullptr);
    return features;
}

// The document given with --scenario: a scenario snapshot or a command
// message, read by its content. It holds the objects a response names.
struct Beside
{
    Reading reading;
    XmlGeoLookup lookup;
};

// Reads --scenario when it is given; Valid, or the status to exit with.
int readBeside(const Invocation& invocation, Beside& beside)
{
    if (!invocation.parser.isSet(besideOption()))
        return Valid;
    const QString file = invocation.parser.value(besideOption());
    beside.reading = readFile(invocation, QString(), file);
    if (!beside.reading.error.isEmpty()) {
        err() << beside.reading.error << "\n";
        return Unreadable;
    }
    const XmlDocumentKind* kind = XmlDocumentKind::find(beside.reading.kind);
    if (!kind || !kind->hasMap() || QLatin1String(kind->name) == QLatin1String("response")) {
        err() << file << ": error: --scenario takes a scenario or command document, not a "
              << beside.reading.kind << " document\n";
        return Unreadable;
    }
    beside.lookup = XmlGeoLookup(collect(*kind, *beside.reading.element));
    return Valid;
}

// The pictures of --picture, each placed on its --extent; Valid, or the
// status to exit with.
int readPictures(const Invocation& invocation, const QVector<XmlGeoFeature>& features,
                 QVector<PlacedPicture>& pictures)
{
    const QStringList files = invocation.parser.values(pictureOption());
    const QStringList extents = invocation.parser.values(extentOption());
    if (files.size() != extents.size()) {
        return usageError(
            QStringLiteral("'%1' needs one --extent for each --picture.").arg(invocation.command));
    }
    for (int i = 0; i < files.size(); ++i) {
        PlacedPicture picture;
        const QString problem = findExtent(extents[i], features, picture);
        if (!problem.isEmpty())
            return usageError(problem);
        picture.file = files[i];
        if (!QFileInfo(picture.file).isFile()) {
            err() << picture.file << ": error: cannot open: no such file\n";
            return Unreadable;
        }
        pictures.append(picture);
    }
    return Valid;
}

bool isKmz(const QString& file)
{
    return file.endsWith(QLatin1String(".kmz"), Qt::CaseInsensitive);
}

// Writes the map to -o's file or standard output; a KMZ packs the KML with
// its pictures.
bool writeMap(const MapDocument& document, MapWriter write, const QString& out, QString& problem)
{
    if (isKmz(out)) {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        if (!write(document, buffer))
            return false;
        problem = writeKmz(out, buffer.data(), document.pictures);
        return problem.isEmpty();
    }
    QFile output(out);
    const bool opened = out.isEmpty() ? output.open(stdout, QIODevice::WriteOnly)
                                      : output.open(QIODevice::WriteOnly);
    if (!opened) {
        problem = out + QStringLiteral(": cannot open: ") + output.errorString();
        return false;
    }
    const bool written = write(document, output);
    output.close();
    return written;
}

// Objects that are invalid are drawn all the same. Without --as the root
// element says which document it is, and it must be one with a map. A
// response whose reading stopped at an element's error is drawn as far as
// it was read, with a warning.
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
    const QString out = invocation.parser.value(outOption());
    if (isKmz(out) && write != &writeKml)
        return usageError(QStringLiteral("only 'kml' writes a KMZ."));
    if (!invocation.parser.values(pictureOption()).isEmpty() && !isKmz(out))
        return usageError(QStringLiteral("--picture needs -o FILE.kmz, which holds the picture."));
    const QString& file = invocation.files.first();
    const Reading reading =
        readFile(invocation, byContent ? QString() : QLatin1String(kind->rootClass), file);
    const XmlDocumentKind* read = byContent ? XmlDocumentKind::find(reading.kind) : kind;
    const bool partial = reading.element &&
                         reading.readError.kind == KelXml::XmlReadError::Element && read &&
                         QLatin1String(read->name) == QLatin1String("response");
    if (!reading.error.isEmpty() && !partial) {
        err() << reading.error << "\n";
        return Unreadable;
    }
    if (!read || !read->hasMap()) {
        err() << file << ": error: " << command << " draws " << orList(mapKinds())
              << " documents, not a " << reading.kind << " document\n";
        return Unreadable;
    }
    Beside beside;
    if (const int status = readBeside(invocation, beside))
        return status;
    if (partial) {
        // Drawn when its reading reached an object or a name; a response
        // that stopped before either is unreadable like any other file.
        bool reached = false;
        QStringList names;
        read->visitGeoFeatures(
            *reading.element, beside.lookup, [&reached](const XmlGeoFeature&) { reached = true; },
            &names);
        if (!reached && names.isEmpty()) {
            err() << reading.error << "\n";
            return Unreadable;
        }
        err() << file << ": warning: drawn as far as it was read: " << reading.readError.message
              << "\n";
    }
    QStringList unresolved;
    MapDocument document{*read,         *reading.element, QFileInfo(file).fileName(),
                         beside.lookup, &unresolved,      {}};
    QVector<XmlGeoFeature> features = beside.lookup.features();
    if (invocation.parser.isSet(pictureOption())) {
        features += collect(*read, *reading.element);
        if (const int status = readPictures(invocation, features, document.pictures))
            return status;
    }
    QString problem;
    if (!writeMap(document, write, out, problem)) {
        err() << KELXML_TOOL_NAME ": cannot write the " << command << " of " << file
              << (problem.isEmpty() ? QString() : QStringLiteral(": ") + problem) << "\n";
        return Unreadable;
    }
    unresolved.removeDuplicates();
    for (const QString& name : std::as_const(unresolved))
        err() << file << ": warning: not drawn, unresolved: " << name << "\n";
    return Valid;
}

bool parseNumbers(const QString& text, double (&numbers)[4])
{
    const QStringList parts = text.split(QLatin1Char(','));
    if (parts.size() != 4)
        return false;
    for (int i = 0; i < 4; ++i) {
        bool ok = false;
        numbers[i] = parts[i].trimmed().toDouble(&ok);
        if (!ok || !std::isfinite(numbers[i]))
            return false;
    }
    return true;
}

} // namespace

const QCommandLineOption& besideOption()
{
    static const QCommandLineOption option(
        QStringLiteral("scenario"),
        QStringLiteral("The scenario snapshot or command message that holds the objects a "
                       "response names (geojson, svg, kml; worldfile's area: and result:)."),
        QStringLiteral("FILE"));
    return option;
}

const QCommandLineOption& pictureOption()
{
    static const QCommandLineOption option(
        QStringLiteral("picture"),
        QStringLiteral("kml: a picture to place in the KMZ on the next --extent."),
        QStringLiteral("IMG"));
    return option;
}

const QCommandLineOption& extentOption()
{
    static const QCommandLineOption option(
        QStringLiteral("extent"),
        QStringLiteral("kml, worldfile: the box a picture covers: area:NAME or result:NAME, "
                       "an area or result record of the document, or W,S,E,N in degrees."),
        QStringLiteral("EXTENT"));
    return option;
}

const QCommandLineOption& outOption()
{
    static const QCommandLineOption option(
        QStringLiteral("o"),
        QStringLiteral("geojson, svg, kml: write to FILE instead of standard output; kml writes "
                       "a KMZ to a FILE named *.kmz."),
        QStringLiteral("FILE"));
    return option;
}

QString findExtent(const QString& extent, const QVector<XmlGeoFeature>& features,
                   PlacedPicture& box)
{
    const bool area = extent.startsWith(QLatin1String("area:"));
    const bool result = extent.startsWith(QLatin1String("result:"));
    if (!area && !result) {
        double numbers[4];
        if (!parseNumbers(extent, numbers))
            return QStringLiteral("--extent '%1' is neither area:NAME, result:NAME nor "
                                  "W,S,E,N.")
                .arg(extent);
        box.west = numbers[0];
        box.south = numbers[1];
        box.east = numbers[2];
        box.north = numbers[3];
        if (!(box.west < box.east && box.south < box.north && box.west >= -180.0 &&
              box.east <= 180.0 && box.south >= -90.0 && box.north <= 90.0))
            return QStringLiteral("--extent '%1' needs -180 <= W < E <= 180 and "
                                  "-90 <= S < N <= 90.")
                .arg(extent);
        return QString();
    }
    const QString name = extent.mid(extent.indexOf(QLatin1Char(':')) + 1);
    const XmlGeoFeature* found = nullptr;
    int count = 0;
    for (const XmlGeoFeature& feature : features) {
        if (feature.name == name && (area ? feature.isArea() : feature.isResultRecord())) {
            found = &feature;
            ++count;
        }
    }
    const QString what = area ? QStringLiteral("area") : QStringLiteral("result record");
    if (count != 1)
        return QStringLiteral("--extent %1: %2 %3 named '%4'.")
            .arg(extent, count == 0 ? QStringLiteral("no") : QString::number(count), what, name);
    const QVector<XmlGeoFeature::Position> ring = found->ring();
    if (ring.isEmpty())
        return QStringLiteral("--extent %1: the %2 has no outline.").arg(extent, what);
    box.west = box.east = ring.first().longitude;
    box.south = box.north = ring.first().latitude;
    for (const XmlGeoFeature::Position& corner : ring) {
        box.west = std::min(box.west, corner.longitude);
        box.east = std::max(box.east, corner.longitude);
        box.south = std::min(box.south, corner.latitude);
        box.north = std::max(box.north, corner.latitude);
    }
    return QString();
}

ToolCommand mapCommand(const QString& name, const QString& help, MapWriter write,
                       const QList<QCommandLineOption>& extra)
{
    return {name,
            name + QStringLiteral(" [--as ") + mapKinds().join(QLatin1Char('|')) +
                QStringLiteral("] FILE [--scenario FILE] [-o OUT]"),
            help,
            true,
            [write](const Invocation& invocation) { return runMap(invocation, write); },
            QList<QCommandLineOption>{besideOption(), outOption()} + extra};
}

int runWorldFile(const Invocation& invocation)
{
    if (invocation.files.size() != 1)
        return usageError(QStringLiteral("'worldfile' takes exactly one picture."));
    if (!invocation.parser.isSet(extentOption()))
        return usageError(QStringLiteral("'worldfile' needs --extent: without it nothing is "
                                         "georeferenced."));
    Beside beside;
    if (const int status = readBeside(invocation, beside))
        return status;
    return writeWorldFile(invocation, beside.lookup.features());
}
