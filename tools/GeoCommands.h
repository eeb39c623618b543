#pragma once

// The map commands of the kelxml tool: the geographic objects of a document
// whose kind has a map (XmlDocumentKind::hasMap) as GeoJSON or as an SVG map.

#include "ToolCommands.h"

#include <XmlDocumentKind.h>

class QIODevice;

// A document whose kind has a map, and the title its map shows.
struct MapDocument
{
    const KelXml::XmlDocumentKind& kind;
    const KelXml::IXmlElement& root;
    QString title; // the file's name

    // Calls visit once per geographic object of the document.
    void visit(const KelXml::XmlGeoVisitor& visit) const
    {
        kind.visitGeoFeatures(root, KelXml::XmlGeoLookup(), visit, nullptr);
    }
};

// Writes the map of a document; false when the device refused the output.
using MapWriter = bool (*)(const MapDocument& document, QIODevice& device);

// A GeoJSON FeatureCollection, one feature per line, written as the objects
// are visited.
bool writeGeoJson(const MapDocument& document, QIODevice& device);
// A self-contained SVG map titled with the document's title.
bool writeSvg(const MapDocument& document, QIODevice& device);

// The row of the command table of a map command that writes with `write`:
// "NAME --as scenario|command FILE", the kinds being those with a map.
ToolCommand mapCommand(const QString& name, const QString& help, MapWriter write);
