// kelxml geojson: a document's geographic objects as a GeoJSON
// FeatureCollection. Positions are [longitude, latitude]; an area is a
// Polygon whose one ring is closed and runs counter-clockwise, an interlink a
// LineString. An object
// without a usable position (a polygon of fewer than three vertices, a
// coordinate that is not a finite number) keeps its properties under a null
// geometry.

#include "GeoCommands.h"

#include <QIODevice>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

using KelXml::XmlGeoFeature;

namespace {

bool finite(const XmlGeoFeature::Position& position)
{
    return std::isfinite(position.longitude) && std::isfinite(position.latitude);
}

QJsonArray coordinates(const XmlGeoFeature::Position& position)
{
    return QJsonArray{position.longitude, position.latitude};
}

QJsonValue geometry(const XmlGeoFeature& feature)
{
    if (feature.shape == XmlGeoFeature::Line) {
        if (feature.positions.size() != 2 || !finite(feature.positions[0]) ||
            !finite(feature.positions[1]))
            return QJsonValue::Null;
        return QJsonObject{
            {QStringLiteral("type"), QStringLiteral("LineString")},
            {QStringLiteral("coordinates"),
             QJsonArray{coordinates(feature.positions[0]), coordinates(feature.positions[1])}}};
    }
    if (feature.shape == XmlGeoFeature::Point) {
        if (feature.positions.size() != 1 || !finite(feature.positions.first()))
            return QJsonValue::Null;
        return QJsonObject{{QStringLiteral("type"), QStringLiteral("Point")},
                           {QStringLiteral("coordinates"), coordinates(feature.positions.first())}};
    }
    const QVector<XmlGeoFeature::Position> ring = feature.ring();
    if (ring.isEmpty())
        return QJsonValue::Null;
    QJsonArray positions;
    for (const XmlGeoFeature::Position& position : ring)
        positions.append(coordinates(position));
    QJsonArray rings;
    rings.append(positions);
    return QJsonObject{{QStringLiteral("type"), QStringLiteral("Polygon")},
                       {QStringLiteral("coordinates"), rings}};
}

QJsonObject properties(const XmlGeoFeature& feature)
{
    QJsonObject properties = QJsonObject::fromVariantMap(feature.properties);
    properties.insert(QStringLiteral("kind"), XmlGeoFeature::kindName(feature.kind));
    properties.insert(QStringLiteral("name"), feature.name);
    properties.insert(QStringLiteral("valid"), feature.valid);
    if (!feature.valid)
        properties.insert(QStringLiteral("problem"), feature.problem);
    // The simplestyle keys that GIS tools and web maps style features by, in
    // the kind's colour.
    const QString colour = XmlGeoFeature::kindColour(feature.kind);
    if (feature.shape == XmlGeoFeature::Point) {
        properties.insert(QStringLiteral("marker-color"), colour);
    } else {
        properties.insert(QStringLiteral("stroke"), colour);
        if (feature.shape != XmlGeoFeature::Line) {
            properties.insert(QStringLiteral("fill"), colour);
            properties.insert(QStringLiteral("fill-opacity"), 0.25);
        }
    }
    return properties;
}

} // namespace

bool writeGeoJson(const MapDocument& document, QIODevice& device)
{
    // Each feature is serialised on its own as it comes, so a large document
    // costs time in proportion to its size and never a whole second tree.
    bool written = device.write("{\"type\":\"FeatureCollection\",\"features\":[") > 0;
    bool first = true;
    document.visit([&](const XmlGeoFeature& feature) {
        const QJsonObject object{{QStringLiteral("type"), QStringLiteral("Feature")},
                                 {QStringLiteral("geometry"), geometry(feature)},
                                 {QStringLiteral("properties"), properties(feature)}};
        written = device.write(first ? "\n" : ",\n") > 0 && written;
        written = device.write(QJsonDocument(object).toJson(QJsonDocument::Compact)) > 0 && written;
        first = false;
    });
    written = device.write("\n]}\n") > 0 && written;
    return written;
}
