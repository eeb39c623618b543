#pragma once

#include "KelXmlGlobal.h"

#include <QMultiHash>
#include <QString>
#include <QStringList>
#include <QVariantMap>
#include <QVector>

#include <functional>

namespace KelXml {

class IXmlElement;
class XmlCmdRoot;
class XmlKelBtType;
class XmlRespRoot;

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
        ResultFindSites,  ///< a site-finding record of a snapshot
        ResultCep,        ///< a CEP record of a snapshot
        ResultDetectProb, ///< a detection-probability record of a snapshot
        ResultDfCoverage, ///< a direction-finding coverage record of a snapshot
        Interlink,        ///< the link between the two stations of an interlink result
    };
    /// The number of kinds: Kind values run from 0 to kindCount - 1.
    static constexpr int kindCount = Interlink + 1;

    enum Shape
    {
        NoShape,   ///< an area that holds neither a rectangle nor a polygon
        Point,     ///< one position
        Rectangle, ///< two corners: upper left, then lower right
        Polygon,   ///< the vertices in ascending number
        Line,      ///< two positions: from the first to the second
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
    /// A result record adds "grid" (the grid size's text, "100"), "unit",
    /// "min" and "max"; an object a response names adds "result" (the
    /// calculation's type, "CEP") and "screenshot"; an interlink "first",
    /// "second", "text" and "screenshot"; an object a response reports
    /// "reported" (true).
    QVariantMap properties;
    bool valid = true;
    /// For an invalid object, the first message of its report, prefixed with
    /// the class that gave it unless the message names it already
    /// ("XmlCoordinateType: Longitude out of bounds").
    QString problem;
    const IXmlElement* object = nullptr;

    bool isArea() const { return kind == AreaOfInterest || kind == DeploymentArea; }
    /// A result record of a snapshot: an area with a grid and its values.
    bool isResultRecord() const { return kind >= ResultFindSites && kind <= ResultDfCoverage; }

    /// The area's outline as a closed ring (the first position repeated at the
    /// end) running counter-clockwise in longitude/latitude: a rectangle
    /// becomes its four corners, a polygon its vertices, reversed when they
    /// run clockwise. Empty for a point, an area without a shape, or a polygon
    /// of fewer than three vertices.
    QVector<Position> ring() const;

    /// "AreaOfInterest", "DeploymentArea", "Station", "DirectionFinder",
    /// "Receiver", "Emitter", "Result_FindSites", "Result_CEP",
    /// "Result_DetectProb", "Result_DfCoverage" or "Interlink".
    static QString kindName(Kind kind);
    /// The kind's colour as "#rrggbb", the same on every map the tool draws.
    static QString kindColour(Kind kind);
};

using XmlGeoVisitor = std::function<void(const XmlGeoFeature& feature)>;

/// The geographic objects of a scenario snapshot or a command message, found
/// by kind and name, so that the names a response gives can be drawn where
/// that document puts them. The lookup keeps copies of the features; their
/// object pointers point into that document.
/// \ingroup framework
class KELXML_EXPORT XmlGeoLookup
{
public:
    using Kinds = QVector<XmlGeoFeature::Kind>;

    XmlGeoLookup() = default;
    explicit XmlGeoLookup(const QVector<XmlGeoFeature>& features);

    const QVector<XmlGeoFeature>& features() const { return m_features; }

    /// The one object of one of the kinds that has the name; null when no
    /// object or more than one has it, and then problem (when given) says
    /// which: "no object of that name" or "2 objects of that name". A name is
    /// never guessed.
    const XmlGeoFeature* find(const Kinds& kinds, const QString& name,
                              QString* problem = nullptr) const;
    /// Every object of the kinds, in the document's order.
    QVector<const XmlGeoFeature*> all(const Kinds& kinds) const;

private:
    QVector<XmlGeoFeature> m_features;
    QMultiHash<QString, int> m_byName; // name to index into m_features
};

/// Calls visit once per geographic object of a scenario snapshot: deployment
/// areas, areas of interest, known emitters, receivers and direction finders,
/// in document order, then its result records (site finding, CEP, detection
/// probability, direction-finding coverage), each as the area it was
/// computed over.
KELXML_EXPORT void visitGeoFeatures(const XmlKelBtType& scenario, const XmlGeoVisitor& visit);

/// Calls visit once per geographic object that the create commands of a
/// command message carry, command by command (a command holding several
/// objects gives them in its writing order). Signal paths and devices have no
/// position and are not visited.
KELXML_EXPORT void visitGeoFeatures(const XmlCmdRoot& command, const XmlGeoVisitor& visit);

/// Calls visit once per geographic object a response gives or names: the
/// areas and sensors a grid result's parameters select (all of a kind where
/// they select all), each looked up in beside; an interlink result's two
/// stations, looked up in beside, and the line between them; a reported
/// object at its own position. The response may hold only part of what it
/// was meant to (its reading stopped at an error): what it holds is visited.
/// Each name that beside does not resolve to exactly one object is appended
/// to unresolved (when given) as `Kind "name": problem`, and not visited.
KELXML_EXPORT void visitGeoFeatures(const XmlRespRoot& response, const XmlGeoLookup& beside,
                                    const XmlGeoVisitor& visit, QStringList* unresolved = nullptr);

/// The same walks, collected into a list.
KELXML_EXPORT QVector<XmlGeoFeature> geoFeatures(const XmlKelBtType& scenario);
KELXML_EXPORT QVector<XmlGeoFeature> geoFeatures(const XmlCmdRoot& command);

} // namespace KelXml
