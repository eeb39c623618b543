#pragma once

#include "KelXmlGlobal.h"

#include <QString>
#include <QVariantMap>
#include <QVector>

#include <functional>

namespace KelXml {

class IXmlElement;
class XmlCmdRoot;
class XmlKelBtType;

/// One geographic object of a document, as a map needs it: what it is, its
/// name, where it lies, its own radio parameters and whether it is valid.
///
/// The feature points into the document it came from (object) and is meant to
/// be used while that document lives unchanged; everything else it holds is a
/// copy.
/// \ingroup framework
struct KELXML_EXPORT XmlGeoFeature
{
    enum Kind
    {
        AreaOfInterest,
        DeploymentArea,
        Station,
        DirectionFinder,
        Receiver,
        Emitter,
    };

    enum Shape
    {
        NoShape,   ///< an area that holds neither a rectangle nor a polygon
        Point,     ///< one position
        Rectangle, ///< two corners: upper left, then lower right
        Polygon,   ///< the vertices in ascending number
    };

    /// A point in decimal degrees.
    struct Position
    {
        double longitude;
        double latitude;
    };

    Kind kind = AreaOfInterest;
    Shape shape = NoShape;
    QString name;
    /// Exactly the degrees the object holds, in its own order.
    QVector<Position> positions;
    /// The object's radio parameters, keyed by name and unit:
    /// "frequency_MHz", "power_W", "antennaHeight_m", "threshold_dBm",
    /// "bandwidth_kHz", "precision_deg". Only those the object has.
    QVariantMap properties;
    bool valid = true;
    /// For an invalid object, the first message of its report, prefixed with
    /// the class that gave it unless the message names it already
    /// ("XmlCoordinateType: Longitude out of bounds").
    QString problem;
    const IXmlElement* object = nullptr;

    bool isArea() const { return kind == AreaOfInterest || kind == DeploymentArea; }

    /// The area's outline as a closed ring (the first position repeated at the
    /// end) running counter-clockwise in longitude/latitude: a rectangle
    /// becomes its four corners, a polygon its vertices, reversed when they
    /// run clockwise. Empty for a point, an area without a shape, or a polygon
    /// of fewer than three vertices.
    QVector<Position> ring() const;

    /// "AreaOfInterest", "DeploymentArea", "Station", "DirectionFinder",
    /// "Receiver" or "Emitter".
    static QString kindName(Kind kind);
};

using XmlGeoVisitor = std::function<void(const XmlGeoFeature& feature)>;

/// Calls visit once per geographic object of a scenario snapshot: deployment
/// areas, areas of interest, known emitters, receivers and direction finders,
/// in document order. The result records are not visited.
KELXML_EXPORT void visitGeoFeatures(const XmlKelBtType& scenario, const XmlGeoVisitor& visit);

/// Calls visit once per geographic object that the create commands of a
/// command message carry, command by command (a command holding several
/// objects gives them in its writing order). Signal paths and devices have no
/// position and are not visited.
KELXML_EXPORT void visitGeoFeatures(const XmlCmdRoot& command, const XmlGeoVisitor& visit);

/// The same walks, collected into a list.
KELXML_EXPORT QVector<XmlGeoFeature> geoFeatures(const XmlKelBtType& scenario);
KELXML_EXPORT QVector<XmlGeoFeature> geoFeatures(const XmlCmdRoot& command);

} // namespace KelXml
