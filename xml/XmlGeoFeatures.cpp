#include "XmlGeoFeatures.h"

#include "XmlAoiType.h"
#include "XmlCmdCreate.h"
#include "XmlCmdRoot.h"
#include "XmlDeploymentAreaType.h"
#include "XmlDfType.h"
#include "XmlEmitterType.h"
#include "XmlKelBtType.h"
#include "XmlReceiverType.h"
#include "XmlStationType.h"

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <type_traits>
#include <vector>

namespace KelXml {

namespace {

using Position = XmlGeoFeature::Position;

// The first message of an object's report, as its first line, prefixed with
// the class whose block holds it unless it names that class already. The walk
// stops at it, so an object with many faults costs no more than one.
class FirstMessage : public XmlReportSink
{
public:
    void enter(const QString& classname) override { m_classes.push_back(&classname); }
    void message(const QString& text) override
    {
        const QString line = text.left(text.indexOf(QLatin1Char('\n')));
        const QString& holder = *m_classes.back();
        const bool named = line.size() > holder.size() && line.startsWith(holder) &&
                           line.at(holder.size()) == QLatin1Char(':');
        m_text = named ? line : holder + QLatin1String(": ") + line;
        m_found = true;
    }
    void leave() override { m_classes.pop_back(); }
    bool wantsMore() const override { return !m_found; }

    const QString& text() const { return m_text; }

private:
    std::vector<const QString*> m_classes; // the frames entered, innermost last
    QString m_text;
    bool m_found = false;
};

Position position(const XmlCoordinateType& coordinate)
{
    return {coordinate.longitude(), coordinate.latitude()};
}

void addTxParameters(QVariantMap& properties, const XmlTxParamType& parameters)
{
    properties.insert(QStringLiteral("frequency_MHz"), parameters.frequency()->frequency_MHz());
    properties.insert(QStringLiteral("power_W"), parameters.txPower()->power());
    properties.insert(QStringLiteral("antennaHeight_m"), parameters.antennaHeight()->length());
    properties.insert(QStringLiteral("bandwidth_kHz"), parameters.bandwidth()->bandwidth_khz());
}

void addRxParameters(QVariantMap& properties, const XmlRxParamType& parameters)
{
    properties.insert(QStringLiteral("antennaHeight_m"), parameters.antennaHeight()->length());
    properties.insert(QStringLiteral("threshold_dBm"), parameters.rxThres()->fieldstrength());
}

void addPrecision(QVariantMap& properties, const XmlDfPrecisionType& precision)
{
    properties.insert(QStringLiteral("precision_deg"), precision.precision());
}

// The radio parameters of each kind of object, those it has.

void addProperties(QVariantMap& properties, const XmlAoiType& aoi)
{
    addTxParameters(properties, *aoi.txParam());
    if (const XmlFieldstrengthType* threshold = aoi.RxThres())
        properties.insert(QStringLiteral("threshold_dBm"), threshold->fieldstrength());
}

void addProperties(QVariantMap& properties, const XmlDeploymentAreaType& area)
{
    properties.insert(QStringLiteral("frequency_MHz"), area.txFreq()->frequency_MHz());
    properties.insert(QStringLiteral("power_W"), area.txPower()->power());
    properties.insert(QStringLiteral("antennaHeight_m"), area.antHgt()->length());
    properties.insert(QStringLiteral("threshold_dBm"), area.rxThresh()->fieldstrength());
}

void addProperties(QVariantMap& properties, const XmlStationType& station)
{
    if (const XmlRxParamType* parameters = station.rxParam())
        addRxParameters(properties, *parameters);
    if (const XmlDfPrecisionType* precision = station.dfPrecision())
        addPrecision(properties, *precision);
}

void addProperties(QVariantMap& properties, const XmlDfType& df)
{
    addRxParameters(properties, *df.rxParam());
    addPrecision(properties, *df.dfPrecision());
}

void addProperties(QVariantMap& properties, const XmlReceiverType& receiver)
{
    addRxParameters(properties, *receiver.rxParam());
}

void addProperties(QVariantMap& properties, const XmlEmitterType& emitter)
{
    addTxParameters(properties, *emitter.txParam());
}

template <class Object>
constexpr bool isArea =
    std::is_same<Object, XmlAoiType>::value || std::is_same<Object, XmlDeploymentAreaType>::value;

// The feature of one object: an area with the shape it holds, or a point.
template <class Object>
XmlGeoFeature makeFeature(XmlGeoFeature::Kind kind, const Object& object)
{
    XmlGeoFeature feature;
    feature.kind = kind;
    feature.name = object.objName()->objName();
    if constexpr (isArea<Object>) {
        if (const XmlAreaRectType* rect = object.areaRect()) {
            feature.shape = XmlGeoFeature::Rectangle;
            feature.positions = {position(*rect->upperLeft()), position(*rect->lowerRight())};
        } else if (const XmlAreaPolyType* poly = object.areaPoly()) {
            feature.shape = XmlGeoFeature::Polygon;
            const QVector<XmlNumCoordType*> vertices = poly->vertices();
            feature.positions.reserve(vertices.size());
            for (const XmlNumCoordType* vertex : vertices)
                feature.positions.append(position(*vertex));
        }
    } else {
        feature.shape = XmlGeoFeature::Point;
        feature.positions = {position(*object.position())};
    }
    addProperties(feature.properties, object);
    feature.object = &object;
    feature.valid = object.isValid();
    if (!feature.valid) {
        FirstMessage first;
        object.reportTo(first);
        feature.problem = first.text();
    }
    return feature;
}

template <class Object>
void visitOne(XmlGeoFeature::Kind kind, const Object* object, const XmlGeoVisitor& visit)
{
    if (object)
        visit(makeFeature(kind, *object));
}

template <class Object>
void visitAll(XmlGeoFeature::Kind kind, const QList<Object*>& objects, const XmlGeoVisitor& visit)
{
    for (const Object* object : objects)
        visit(makeFeature(kind, *object));
}

template <class Document>
QVector<XmlGeoFeature> collect(const Document& document)
{
    QVector<XmlGeoFeature> features;
    visitGeoFeatures(document, [&features](const XmlGeoFeature& f) { features.append(f); });
    return features;
}

// Twice the signed area of a closed ring: positive when it runs
// counter-clockwise with longitude to the right and latitude upwards.
double twiceSignedArea(const QVector<Position>& ring)
{
    double sum = 0.0;
    for (int i = 0; i + 1 < ring.size(); ++i)
        sum += ring[i].longitude * ring[i + 1].latitude - ring[i + 1].longitude * ring[i].latitude;
    return sum;
}

bool samePosition(const Position& a, const Position& b)
{
    return a.longitude == b.longitude && a.latitude == b.latitude;
}

} // namespace

QVector<XmlGeoFeature::Position> XmlGeoFeature::ring() const
{
    QVector<Position> ring;
    if (shape == Rectangle && positions.size() == 2) {
        const Position upperLeft = positions[0];
        const Position lowerRight = positions[1];
        ring = {upperLeft,
                {upperLeft.longitude, lowerRight.latitude},
                lowerRight,
                {lowerRight.longitude, upperLeft.latitude},
                upperLeft};
    } else if (shape == Polygon && positions.size() >= 3) {
        ring = positions;
        if (!samePosition(ring.first(), ring.last()))
            ring.append(ring.first());
        if (ring.size() < 4)
            return {};
    } else {
        return {};
    }
    for (const Position& corner : ring) {
        if (!std::isfinite(corner.longitude) || !std::isfinite(corner.latitude))
            return {};
    }
    if (twiceSignedArea(ring) < 0.0)
        std::reverse(ring.begin(), ring.end());
    return ring;
}

QString XmlGeoFeature::kindName(Kind kind)
{
    switch (kind) {
    case AreaOfInterest:
        return QStringLiteral("AreaOfInterest");
    case DeploymentArea:
        return QStringLiteral("DeploymentArea");
    case Station:
        return QStringLiteral("Station");
    case DirectionFinder:
        return QStringLiteral("DirectionFinder");
    case Receiver:
        return QStringLiteral("Receiver");
    case Emitter:
        return QStringLiteral("Emitter");
    }
    return QString();
}

void visitGeoFeatures(const XmlKelBtType& scenario, const XmlGeoVisitor& visit)
{
    visitAll(XmlGeoFeature::DeploymentArea, scenario.deployments(), visit);
    visitAll(XmlGeoFeature::AreaOfInterest, scenario.aois(), visit);
    visitAll(XmlGeoFeature::Emitter, scenario.knownEmitters(), visit);
    visitAll(XmlGeoFeature::Receiver, scenario.receivers(), visit);
    visitAll(XmlGeoFeature::DirectionFinder, scenario.dfs(), visit);
}

void visitGeoFeatures(const XmlCmdRoot& command, const XmlGeoVisitor& visit)
{
    for (const XmlCmdCreate* create : command.getCreateCmds()) {
        visitOne(XmlGeoFeature::DeploymentArea, create->deploymentArea(), visit);
        visitOne(XmlGeoFeature::AreaOfInterest, create->aoi(), visit);
        visitOne(XmlGeoFeature::Emitter, create->emitter(), visit);
        visitOne(XmlGeoFeature::Receiver, create->receiver(), visit);
        visitOne(XmlGeoFeature::DirectionFinder, create->df(), visit);
        visitOne(XmlGeoFeature::Station, create->station(), visit);
    }
}

QVector<XmlGeoFeature> geoFeatures(const XmlKelBtType& scenario)
{
    return collect(scenario);
}

QVector<XmlGeoFeature> geoFeatures(const XmlCmdRoot& command)
{
    return collect(command);
}

} // namespace KelXml
