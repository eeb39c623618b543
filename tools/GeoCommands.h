#pragma once

// The map commands of the kelxml tool: a document's geographic objects as
// GeoJSON or as an SVG map.

#include <XmlCmdRoot.h>
#include <XmlGeoFeatures.h>
#include <XmlKelBtType.h>

class QIODevice;
class QString;

// Visits the geographic objects of a scenario snapshot or a command message;
// false, visiting nothing, for an element of any other class.
inline bool visitDocument(const KelXml::IXmlElement& document, const KelXml::XmlGeoVisitor& visit)
{
    if (const auto* scenario = dynamic_cast<const KelXml::XmlKelBtType*>(&document)) {
        KelXml::visitGeoFeatures(*scenario, visit);
        return true;
    }
    if (const auto* command = dynamic_cast<const KelXml::XmlCmdRoot*>(&document)) {
        KelXml::visitGeoFeatures(*command, visit);
        return true;
    }
    return false;
}

// Writes a GeoJSON FeatureCollection, one feature per line, as the objects
// are visited. False when the device refused the output.
bool writeGeoJson(const KelXml::IXmlElement& document, QIODevice& device);

// Writes a self-contained SVG map titled with the given text. False when the
// device refused the output.
bool writeSvg(const KelXml::IXmlElement& document, const QString& title, QIODevice& device);
