#pragma once

// The map commands of the kelxml tool: the geographic objects of a document
// whose kind has a map (XmlDocumentKind::hasMap) as GeoJSON, an SVG map or
// KML, and the world file of a placed picture.

#include "ToolCommands.h"

#include <XmlDocumentKind.h>

class QIODevice;

// A picture placed on the map: the file and the box it covers, in degrees.
struct PlacedPicture
{
    QString file;
    double west = 0.0;
    double south = 0.0;
    double east = 0.0;
    double north = 0.0;
};

// A document whose kind has a map, and the title its map shows.
struct MapDocument
{
    const KelXml::XmlDocumentKind& kind;
    const KelXml::IXmlElement& root;
    QString title; // the file's name
    // The objects of the document given beside a response (--scenario); empty otherwise.
    const KelXml::XmlGeoLookup& beside;
    // The names the document gives that beside does not resolve, as visit finds them.
    QStringList* unresolved;
    // The pictures placed with --picture and --extent (KML/KMZ only).
    QVector<PlacedPicture> pictures;

    // Calls visit once per geographic object of the document.
    void visit(const KelXml::XmlGeoVisitor& visit) const
    {
        kind.visitGeoFeatures(root, beside, visit, unresolved);
    }
};

// Writes the map of a document; false when the device refused the output.
using MapWriter = bool (*)(const MapDocument& document, QIODevice& device);

// A GeoJSON FeatureCollection, one feature per line, written as the objects
// are visited.
bool writeGeoJson(const MapDocument& document, QIODevice& device);
// A self-contained SVG map titled with the document's title.
bool writeSvg(const MapDocument& document, QIODevice& device);
// A KML 2.2 document: one folder per kind, one placemark per object, and a
// ground overlay per placed picture, whose link is its name in a KMZ.
bool writeKml(const MapDocument& document, QIODevice& device);
// A KMZ: the KML as "doc.kml", then each placed picture under "files/"; an
// error message, empty when it was written.
QString writeKmz(const QString& file, const QByteArray& kml,
                 const QVector<PlacedPicture>& pictures);

// The options the map commands share.
const QCommandLineOption& besideOption();  // --scenario FILE
const QCommandLineOption& pictureOption(); // --picture IMG
const QCommandLineOption& extentOption();  // --extent area:NAME|result:NAME|W,S,E,N
const QCommandLineOption& outOption();     // -o FILE

// The row of the command table of a map command that writes with `write`:
// "NAME --as scenario|command|response FILE [--scenario FILE]", the kinds
// being those with a map; extra options add to the map commands' own.
ToolCommand mapCommand(const QString& name, const QString& help, MapWriter write,
                       const QList<QCommandLineOption>& extra = {});

// The box an --extent names: an area or a result record of the document, by
// name, or four numbers. An error message, empty when the box was found.
QString findExtent(const QString& extent, const QVector<KelXml::XmlGeoFeature>& features,
                   PlacedPicture& box);

// kelxml worldfile IMG --extent ... [--scenario FILE]: the world file and the
// .aux.xml of a picture.
int runWorldFile(const Invocation& invocation);
// The same, once --scenario is read: its objects are those an extent can name.
int writeWorldFile(const Invocation& invocation, const QVector<KelXml::XmlGeoFeature>& features);
