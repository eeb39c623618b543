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

template <class T>
void setValidity(XmlGeoFeature& feature, const T& object)
{
    feature.object = &object;
    feature.valid = object.isValid();
    if (!feature.valid) {
        FirstMessage first;
        object.reportTo(first);
        feature.problem = first.text();
    }
}

Position position(const XmlCoordinateType& coordinate)
{
    return {coordinate.longitude(), coordinate.latitude()};
}

template <class Area>
void setShape(XmlGeoFeature& feature, const Area& area)
{
    if (const XmlAreaRectType* rect = area.areaRect()) {
        feature.shape = XmlGeoFeature::Rectangle;
        feature.positions = {position(*rect->upperLeft()), position(*rect->lowerRight())};
    } else if (const XmlAreaPolyType* poly = area.areaPoly()) {
        feature.shape = XmlGeoFeature::Polygon;
        const QVector<XmlNumCoordType*> vertices = poly->vertices();
        feature.positions.reserve(vertices.size());
        for (const XmlNumCoordType* vertex : vertices)
            feature.positions.append(position(*vertex));
    }
}

void setPoint(XmlGeoFeature& feature, const XmlObjNameType& name,
              const XmlCoordinateType& coordinate)
{
    feature.name = name.objName();
    feature.shape = XmlGeoFeature::Point;
    feature.positions = {position(coordinate)};
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

XmlGeoFeature makeFeature(const XmlAoiType& aoi)
{
    XmlGeoFeature feature;
    feature.kind = XmlGeoFeature::AreaOfInterest;
    feature.name = aoi.objName()->objName();
    setShape(feature, aoi);
    addTxParameters(feature.properties, *aoi.txParam());
    if (const XmlFieldstrengthType* threshold = aoi.RxThres())
        feature.properties.insert(QStringLiteral("threshold_dBm"), threshold->fieldstrength());
    setValidity(feature, aoi);
    return feature;
}

XmlGeoFeature makeFeature(const XmlDeploymentAreaType& area)
{
    XmlGeoFeature feature;
    feature.kind = XmlGeoFeature::DeploymentArea;
    feature.name = area.objName()->objName();
    setShape(feature, area);
    QVariantMap& properties = feature.properties;
    properties.insert(QStringLiteral("frequency_MHz"), area.txFreq()->frequency_MHz());
    properties.insert(QStringLiteral("power_W"), area.txPower()->power());
    properties.insert(QStringLiteral("antennaHeight_m"), area.antHgt()->length());
    properties.insert(QStringLiteral("threshold_dBm"), area.rxThresh()->fieldstrength());
    setValidity(feature, area);
    return feature;
}

XmlGeoFeature makeFeature(const XmlStationType& station)
{
    XmlGeoFeature feature;
    feature.kind = XmlGeoFeature::Station;
    setPoint(feature, *station.objName(), *station.position());
    if (const XmlRxParamType* parameters = station.rxParam())
        addRxParameters(feature.properties, *parameters);
    if (const XmlDfPrecisionType* precision = station.dfPrecision())
        addPrecision(feature.properties, *precision);
    setValidity(feature, station);
    return feature;
}

XmlGeoFeature makeFeature(const XmlDfType& df)
{
    XmlGeoFeature feature;
    feature.kind = XmlGeoFeature::DirectionFinder;
    setPoint(feature, *df.objName(), *df.position());
    addRxParameters(feature.properties, *df.rxParam());
    addPrecision(feature.properties, *df.dfPrecision());
    setValidity(feature, df);
    return feature;
}

XmlGeoFeature makeFeature(const XmlReceiverType& receiver)
{
    XmlGeoFeature feature;
    feature.kind = XmlGeoFeature::Receiver;
    setPoint(feature, *receiver.objName(), *receiver.position());
    addRxParameters(feature.properties, *receiver.rxParam());
    setValidity(feature, receiver);
    return feature;
}

XmlGeoFeature makeFeature(const XmlEmitterType& emitter)
{
    XmlGeoFeature feature;
    feature.kind = XmlGeoFeature::Emitter;
    setPoint(feature, *emitter.objName(), *emitter.position());
    addTxParameters(feature.properties, *emitter.txParam());
    setValidity(feature, emitter);
    return feature;
}

template <class T>
void visitAll(const QList<T*>& objects, const XmlGeoVisitor& visit)
{
    for (const T* object : objects)
        visit(makeFeature(*object));
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
    visitAll(scenario.deployments(), visit);
    visitAll(scenario.aois(), visit);
    visitAll(scenario.knownEmitters(), visit);
    visitAll(scenario.receivers(), visit);
    visitAll(scenario.dfs(), visit);
}

void visitGeoFeatures(const XmlCmdRoot& command, const XmlGeoVisitor& visit)
{
    for (const XmlCmdCreate* create : command.getCreateCmds()) {
        if (const XmlDeploymentAreaType* area = create->deploymentArea())
            visit(makeFeature(*area));
        if (const XmlAoiType* aoi = create->aoi())
            visit(makeFeature(*aoi));
        if (const XmlEmitterType* emitter = create->emitter())
            visit(makeFeature(*emitter));
        if (const XmlReceiverType* receiver = create->receiver())
            visit(makeFeature(*receiver));
        if (const XmlDfType* df = create->df())
            visit(makeFeature(*df));
        if (const XmlStationType* station = create->station())
            visit(makeFeature(*station));
    }
}

QVector<XmlGeoFeature> geoFeatures(const XmlKelBtType& scenario)
{
    QVector<XmlGeoFeature> features;
    visitGeoFeatures(scenario, [&features](const XmlGeoFeature& f) { features.append(f); });
    return features;
}

QVector<XmlGeoFeature> geoFeatures(const XmlCmdRoot& command)
{
    QVector<XmlGeoFeature> features;
    visitGeoFeatures(command, [&features](const XmlGeoFeature& f) { features.append(f); });
    return features;
}

} // namespace KelXml
