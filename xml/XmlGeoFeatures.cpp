#include "XmlGeoFeatures.h"

#include "XmlAoiType.h"
#include "XmlAutoRespType.h"
#include "XmlBestSensorType.h"
#include "XmlCepType.h"
#include "XmlCmdCreate.h"
#include "XmlCmdRoot.h"
#include "XmlDeploymentAreaType.h"
#include "XmlDetectProbType.h"
#include "XmlDfCovType.h"
#include "XmlDfType.h"
#include "XmlEmitterType.h"
#include "XmlFindSitesType.h"
#include "XmlGridResultType.h"
#include "XmlInteractRespType.h"
#include "XmlInterlinkResultType.h"
#include "XmlKelBtType.h"
#include "XmlReceiverType.h"
#include "XmlRespRoot.h"
#include "XmlResultObjectType.h"
#include "XmlStationType.h"

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <iterator>
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

// A record keeps the grid it was computed on and the range of its values; the
// values themselves are not in the message.
void addProperties(QVariantMap& properties, const XmlResInfoBase& record)
{
    static const char* const sizes[] = {"UNDEFINED", "10", "50", "100", "200", "500", "1000"};
    const int size = record.resultGrid()->size();
    const bool known = size >= 0 && size < int(std::size(sizes));
    properties.insert(QStringLiteral("grid"), QLatin1String(sizes[known ? size : 0]));
    properties.insert(QStringLiteral("unit"), record.gridValues()->unit());
    properties.insert(QStringLiteral("min"), record.gridValues()->min());
    properties.insert(QStringLiteral("max"), record.gridValues()->max());
}

template <class Object>
constexpr bool isRecord = std::is_base_of<XmlResInfoBase, Object>::value;

template <class Object>
constexpr bool isArea = std::is_same<Object, XmlAoiType>::value ||
                        std::is_same<Object, XmlDeploymentAreaType>::value || isRecord<Object>;

void setRectangle(XmlGeoFeature& feature, const XmlAreaRectType& rect)
{
    feature.shape = XmlGeoFeature::Rectangle;
    feature.positions = {position(*rect.upperLeft()), position(*rect.lowerRight())};
}

void setPolygon(XmlGeoFeature& feature, const XmlAreaPolyType& poly)
{
    feature.shape = XmlGeoFeature::Polygon;
    const QVector<XmlNumCoordType*> vertices = poly.vertices();
    feature.positions.reserve(vertices.size());
    for (const XmlNumCoordType* vertex : vertices)
        feature.positions.append(position(*vertex));
}

// The first message of an object's report, or nothing when it is valid.
void setValidity(XmlGeoFeature& feature, const XmlElementBase& object)
{
    feature.valid = object.isValid();
    if (!feature.valid) {
        FirstMessage first;
        object.reportTo(first);
        feature.problem = first.text();
    }
}

// The feature of one object: an area with the shape it holds, or a point.
template <class Object>
XmlGeoFeature makeFeature(XmlGeoFeature::Kind kind, const Object& object)
{
    XmlGeoFeature feature;
    feature.kind = kind;
    feature.name = object.objName()->objName();
    if constexpr (isRecord<Object>) {
        // A record holding both shapes is judged by its polygon, so it is
        // drawn by it too.
        if (const XmlAreaPolyType* poly = object.areaPoly())
            setPolygon(feature, *poly);
        else if (const XmlAreaRectType* rect = object.areaRect())
            setRectangle(feature, *rect);
    } else if constexpr (isArea<Object>) {
        if (const XmlAreaRectType* rect = object.areaRect())
            setRectangle(feature, *rect);
        else if (const XmlAreaPolyType* poly = object.areaPoly())
            setPolygon(feature, *poly);
    } else {
        feature.shape = XmlGeoFeature::Point;
        feature.positions = {position(*object.position())};
    }
    addProperties(feature.properties, object);
    feature.object = &object;
    setValidity(feature, object);
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

using Kinds = XmlGeoLookup::Kinds;

const Kinds areasOfInterest = {XmlGeoFeature::AreaOfInterest};
const Kinds deploymentAreas = {XmlGeoFeature::DeploymentArea};
const Kinds emitters = {XmlGeoFeature::Emitter};
// A command message creates direction finders as stations too.
const Kinds finders = {XmlGeoFeature::DirectionFinder, XmlGeoFeature::Station};
const Kinds sensors = {XmlGeoFeature::Receiver, XmlGeoFeature::DirectionFinder,
                       XmlGeoFeature::Station};
const Kinds stations = {XmlGeoFeature::Station};

QString kindNames(const Kinds& kinds)
{
    QStringList names;
    for (const XmlGeoFeature::Kind kind : kinds)
        names.append(XmlGeoFeature::kindName(kind));
    return names.join(QStringLiteral(" or "));
}

// Looks up the objects a response names and visits them, with the response's
// properties added; lists what it cannot resolve.
class ResponseWalk
{
public:
    ResponseWalk(const XmlGeoLookup& beside, const XmlGeoVisitor& visit, QStringList* unresolved)
        : m_beside(beside)
        , m_visit(visit)
        , m_unresolved(unresolved)
    {}

    // The one object of the kinds with the name; null, listed, when there is not exactly one.
    const XmlGeoFeature* resolve(const Kinds& kinds, const QString& name) const
    {
        QString problem;
        const XmlGeoFeature* found = m_beside.find(kinds, name, &problem);
        if (!found && m_unresolved) {
            m_unresolved->append(
                QStringLiteral("%1 \"%2\": %3").arg(kindNames(kinds), name, problem));
        }
        return found;
    }

    // The objects a selection names, or all of the kinds where it names none.
    void visitSelected(const XmlNameAllMultiType* selection, const Kinds& kinds,
                       const QVariantMap& properties) const
    {
        if (!selection)
            return;
        if (selection->all()) {
            for (const XmlGeoFeature* feature : m_beside.all(kinds))
                visitWith(*feature, properties);
            return;
        }
        for (const XmlObjNameType* name : selection->objNames()) {
            if (const XmlGeoFeature* feature = resolve(kinds, name->objName()))
                visitWith(*feature, properties);
        }
    }

    void visitWith(XmlGeoFeature feature, const QVariantMap& properties) const
    {
        for (auto it = properties.begin(); it != properties.end(); ++it)
            feature.properties.insert(it.key(), it.value());
        m_visit(feature);
    }

    // The areas of interest and the sensors of a request that selects both.
    template <class Request>
    void visitRequest(const Request* request,
                      const XmlNameAllMultiType* (Request::*sensorsOf)() const,
                      const Kinds& sensorKinds, const QVariantMap& properties) const
    {
        if (!request)
            return;
        visitSelected(request->AOIs(), areasOfInterest, properties);
        visitSelected((request->*sensorsOf)(), sensorKinds, properties);
    }

    void visitGrid(const XmlGridResultType& grid) const
    {
        const QVariantMap properties = {
            {QStringLiteral("result"), gridTypeName(grid.type())},
            {QStringLiteral("screenshot"), grid.screenshotFilename()},
        };
        if (const XmlFindSitesType* findSites = grid.findSites()) {
            visitSelected(findSites->deploymentAreas(), deploymentAreas, properties);
            visitSelected(findSites->knownEmitters(), emitters, properties);
        }
        visitRequest(grid.cep(), &XmlCepType::useDFs, finders, properties);
        visitRequest(grid.detectProb(), &XmlDetectProbType::useRxDFs, sensors, properties);
        visitRequest(grid.dfCov(), &XmlDfCovType::useDFs, finders, properties);
        visitRequest(grid.bestSensor(), &XmlBestSensorType::useRxDFs, sensors, properties);
    }

    // The two stations and, when both are found, the line between them.
    void visitInterlink(const XmlInterlinkResultType& interlink) const
    {
        const XmlInterlinkPlanningType& parameters = *interlink.parameters();
        const QVariantMap properties = {{QStringLiteral("result"), QStringLiteral("Interlink")}};
        const XmlGeoFeature* first = resolve(stations, parameters.firstName());
        const XmlGeoFeature* second = resolve(stations, parameters.secondName());
        if (first)
            visitWith(*first, properties);
        if (second)
            visitWith(*second, properties);
        if (!first || !second)
            return;
        XmlGeoFeature line;
        line.kind = XmlGeoFeature::Interlink;
        line.shape = XmlGeoFeature::Line;
        line.name = parameters.firstName() + QStringLiteral(" - ") + parameters.secondName();
        line.positions = {first->positions.value(0), second->positions.value(0)};
        line.properties = {
            {QStringLiteral("first"), parameters.firstName()},
            {QStringLiteral("second"), parameters.secondName()},
            {QStringLiteral("text"), interlink.resultText()},
            {QStringLiteral("screenshot"), interlink.screenshotFilename()},
        };
        line.object = &interlink;
        setValidity(line, interlink);
        m_visit(line);
    }

    void visitReported(const XmlResultObjectType& reported) const
    {
        const QVariantMap properties = {{QStringLiteral("reported"), true}};
        if (const XmlStationType* station = reported.station())
            visitWith(makeFeature(XmlGeoFeature::Station, *station), properties);
        if (const XmlEmitterType* emitter = reported.emitter())
            visitWith(makeFeature(XmlGeoFeature::Emitter, *emitter), properties);
        if (const XmlReceiverType* receiver = reported.rx())
            visitWith(makeFeature(XmlGeoFeature::Receiver, *receiver), properties);
        if (const XmlDfType* df = reported.df())
            visitWith(makeFeature(XmlGeoFeature::DirectionFinder, *df), properties);
    }

private:
    static QString gridTypeName(XmlGridResultType::ResultType type)
    {
        static const char* const names[] = {"UNDEFINED",  "FindSites",  "CEP",
                                            "DetectProb", "DfCoverage", "BestSensorCov"};
        const bool known = type >= 0 && type < int(std::size(names));
        return QLatin1String(names[known ? type : 0]);
    }

    const XmlGeoLookup& m_beside;
    const XmlGeoVisitor& m_visit;
    QStringList* m_unresolved;
};

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

namespace {

// Each kind's name and colour, in the order of XmlGeoFeature::Kind. The
// colours are told apart by most readers, the colour-blind included, and
// every format the tool writes takes them from here.
const struct
{
    const char* name;
    const char* colour;
} kindTable[] = {
    {"AreaOfInterest", "#ff7f00"},    {"DeploymentArea", "#1b9e77"},
    {"Station", "#7570b3"},           {"DirectionFinder", "#1f78b4"},
    {"Receiver", "#33a02c"},          {"Emitter", "#e7298a"},
    {"Result_FindSites", "#a6761d"},  {"Result_CEP", "#6a3d9a"},
    {"Result_DetectProb", "#b15928"}, {"Result_DfCoverage", "#0e8f9e"},
    {"Interlink", "#e31a1c"},
};
static_assert(std::size(kindTable) == XmlGeoFeature::kindCount, "one row per kind");

} // namespace

QString XmlGeoFeature::kindName(Kind kind)
{
    if (kind < 0 || kind >= kindCount)
        return QString();
    return QLatin1String(kindTable[kind].name);
}

QString XmlGeoFeature::kindColour(Kind kind)
{
    if (kind < 0 || kind >= kindCount)
        return QString();
    return QLatin1String(kindTable[kind].colour);
}

XmlGeoLookup::XmlGeoLookup(const QVector<XmlGeoFeature>& features)
    : m_features(features)
{
    m_byName.reserve(features.size());
    for (int i = 0; i < m_features.size(); ++i)
        m_byName.insert(m_features[i].name, i);
}

const XmlGeoFeature* XmlGeoLookup::find(const Kinds& kinds, const QString& name,
                                        QString* problem) const
{
    const XmlGeoFeature* found = nullptr;
    int count = 0;
    for (auto it = m_byName.constFind(name); it != m_byName.constEnd() && it.key() == name; ++it) {
        const XmlGeoFeature& feature = m_features[it.value()];
        if (kinds.contains(feature.kind)) {
            found = &feature;
            ++count;
        }
    }
    if (count == 1)
        return found;
    if (problem) {
        *problem = count == 0 ? QStringLiteral("no object of that name")
                              : QStringLiteral("%1 objects of that name").arg(count);
    }
    return nullptr;
}

QVector<const XmlGeoFeature*> XmlGeoLookup::all(const Kinds& kinds) const
{
    QVector<const XmlGeoFeature*> found;
    for (const XmlGeoFeature& feature : m_features) {
        if (kinds.contains(feature.kind))
            found.append(&feature);
    }
    return found;
}

void visitGeoFeatures(const XmlKelBtType& scenario, const XmlGeoVisitor& visit)
{
    visitAll(XmlGeoFeature::DeploymentArea, scenario.deployments(), visit);
    visitAll(XmlGeoFeature::AreaOfInterest, scenario.aois(), visit);
    visitAll(XmlGeoFeature::Emitter, scenario.knownEmitters(), visit);
    visitAll(XmlGeoFeature::Receiver, scenario.receivers(), visit);
    visitAll(XmlGeoFeature::DirectionFinder, scenario.dfs(), visit);
    visitAll(XmlGeoFeature::ResultFindSites, scenario.resFindSite(), visit);
    visitAll(XmlGeoFeature::ResultCep, scenario.resCep(), visit);
    visitAll(XmlGeoFeature::ResultDetectProb, scenario.resDetectProb(), visit);
    visitAll(XmlGeoFeature::ResultDfCoverage, scenario.resDfCov(), visit);
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

void visitGeoFeatures(const XmlRespRoot& response, const XmlGeoLookup& beside,
                      const XmlGeoVisitor& visit, QStringList* unresolved)
{
    const ResponseWalk walk(beside, visit, unresolved);
    const XmlGridResultType* grid = nullptr;
    const XmlInterlinkResultType* interlink = nullptr;
    const XmlResultObjectType* reported = nullptr;
    if (const XmlAutoRespType* automatic = response.autoResp()) {
        grid = automatic->gridResult();
        interlink = automatic->interlinkResult();
    } else if (const XmlInteractRespType* interactive = response.interactResp()) {
        grid = interactive->gridResult();
        interlink = interactive->interlinkResult();
        reported = interactive->result();
    }
    if (grid)
        walk.visitGrid(*grid);
    if (interlink)
        walk.visitInterlink(*interlink);
    if (reported)
        walk.visitReported(*reported);
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
