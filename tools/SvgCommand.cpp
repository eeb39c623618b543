// kelxml svg: a self-contained SVG map of a document's geographic objects.
//
// The projection is equirectangular about the middle latitude of the objects'
// bounding box: x grows with longitude scaled by the cosine of that latitude,
// y with latitude, so shapes keep their look at the scenario's latitude. The
// box is widened a little on every side and never left empty, flat or very
// narrow. A graticule at a round step in degrees, the finest whose labels do
// not touch, is labelled on the left and bottom edges; areas are outlined
// (areas of interest solid, deployment areas dashed), every placed object gets
// its kind's marker and its name where one is free (SvgLayout.h), and a
// legend counts the objects of each kind. Invalid objects are outlined in red
// and their first problem is their tooltip. Objects without a position the
// map can show (not a number, far off the globe, a polygon of fewer than three
// vertices) are counted in the legend only.

#include "GeoCommands.h"
#include "SvgLayout.h"

#include <QIODevice>
#include <QPair>
#include <QStringList>
#include <QXmlStreamWriter>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <utility>

using KelXml::XmlGeoFeature;
using Position = XmlGeoFeature::Position;

namespace {

constexpr double pi = 3.14159265358979323846;

// Page layout in SVG units.
constexpr double maxPlotWidth = 760.0;
constexpr double maxPlotHeight = 560.0;
constexpr double leftMargin = 90.0;
constexpr double topMargin = 56.0;
constexpr double bottomMargin = 48.0;
constexpr double legendGap = 28.0;
constexpr double legendWidth = 200.0;
constexpr double markerSize = 6.5;
// The font sizes of the style sheet's names (.label) and tick labels (.axis),
// and half the width of the outline names are painted with.
constexpr double labelFontSize = 12.0;
constexpr double axisFontSize = 11.0;
constexpr double labelHalo = 1.5;

const char* const styleSheet = R"(
text { font-family: 'DejaVu Sans', Arial, Helvetica, sans-serif; font-size: 12px; fill: #222; }
.title { font-size: 16px; font-weight: bold; }
.axis { font-size: 11px; fill: #555; }
.grid { stroke: #d8d8d8; stroke-width: 1; }
.frame { fill: #fbfbf8; stroke: #888; stroke-width: 1; }
.label { paint-order: stroke; stroke: #fff; stroke-width: 3px; stroke-linejoin: round; }
.name-aoi { fill: #a6430a; font-style: italic; }
.name-deployment { fill: #126b51; font-style: italic; }
.area { fill-opacity: 0.15; stroke-width: 2; }
.deployment { fill-opacity: 0.10; stroke-dasharray: 8 4; }
.result { fill-opacity: 0.08; stroke-dasharray: 2 3; }
.marker { stroke: #222; stroke-width: 1; }
.link { fill: none; stroke-width: 2.5; }
.invalid { stroke: #e00000; stroke-width: 2.5; }
.legend { fill: #fff; stroke: #bbb; stroke-width: 1; }
)";

// Positions far outside the globe (still readable, though invalid) would
// squeeze the map to nothing; they are left off it.
bool drawable(const Position& p)
{
    return std::isfinite(p.longitude) && std::isfinite(p.latitude) &&
           std::abs(p.longitude) <= 360.0 && std::abs(p.latitude) <= 180.0;
}

// Whether the map shows the feature: a point at a drawable position, or an
// area whose outline has only drawable corners.
bool shown(const XmlGeoFeature& feature)
{
    if (feature.shape == XmlGeoFeature::Point)
        return feature.positions.size() == 1 && drawable(feature.positions.first());
    if (feature.shape == XmlGeoFeature::Line)
        return feature.positions.size() == 2 &&
               std::all_of(feature.positions.begin(), feature.positions.end(), drawable);
    const QVector<Position> ring = feature.ring();
    return !ring.isEmpty() && std::all_of(ring.begin(), ring.end(), drawable);
}

struct Box
{
    double west = std::numeric_limits<double>::infinity();
    double east = -std::numeric_limits<double>::infinity();
    double south = std::numeric_limits<double>::infinity();
    double north = -std::numeric_limits<double>::infinity();

    bool isEmpty() const { return west > east; }
    void add(const Position& p)
    {
        if (!drawable(p))
            return;
        west = std::min(west, p.longitude);
        east = std::max(east, p.longitude);
        south = std::min(south, p.latitude);
        north = std::max(north, p.latitude);
    }
};

// The projection from degrees to page units.
class Projection
{
public:
    explicit Projection(Box box)
    {
        if (box.isEmpty())
            box = {-1.0, 1.0, -1.0, 1.0};
        const double middle = (box.south + box.north) / 2.0;
        m_cos = std::max(0.05, std::min(1.0, std::cos(middle * pi / 180.0)));
        // A lone point or a line still gets a box of some size, and neither
        // side is let fall below a third of the other on the ground.
        widen(box.west, box.east, 0.01 / m_cos);
        widen(box.south, box.north, 0.01);
        const double groundWidth = (box.east - box.west) * m_cos;
        const double groundHeight = box.north - box.south;
        widen(box.west, box.east, groundHeight / 3.0 / m_cos);
        widen(box.south, box.north, groundWidth / 3.0);
        // A margin of a tenth on every side keeps markers and names off the frame.
        const double marginLon = (box.east - box.west) / 10.0;
        const double marginLat = (box.north - box.south) / 10.0;
        m_box = {box.west - marginLon, box.east + marginLon, box.south - marginLat,
                 box.north + marginLat};
        m_scale = std::min(maxPlotWidth / ((m_box.east - m_box.west) * m_cos),
                           maxPlotHeight / (m_box.north - m_box.south));
    }

    const Box& box() const { return m_box; }
    double width() const { return (m_box.east - m_box.west) * m_cos * m_scale; }
    double height() const { return (m_box.north - m_box.south) * m_scale; }
    double x(double longitude) const
    {
        return leftMargin + (longitude - m_box.west) * m_cos * m_scale;
    }
    double y(double latitude) const { return topMargin + (m_box.north - latitude) * m_scale; }

private:
    static void widen(double& low, double& high, double least)
    {
        if (high - low >= least)
            return;
        const double middle = (low + high) / 2.0;
        low = middle - least / 2.0;
        high = middle + least / 2.0;
    }

    Box m_box;
    double m_cos = 1.0;
    double m_scale = 1.0;
};

QString number(double value)
{
    return QString::number(value, 'f', 1);
}

// The style class and the legend's label of each kind, in the order of
// XmlGeoFeature::Kind.
const struct
{
    const char* cssClass;
    const char* label;
} kindStyles[] = {
    {"aoi", "Area of interest"},
    {"deployment", "Deployment area"},
    {"station", "Station"},
    {"finder", "Direction finder"},
    {"receiver", "Receiver"},
    {"emitter", "Emitter"},
    {"result-findsites", "Site finding"},
    {"result-cep", "Circular error probable"},
    {"result-detectprob", "Detection probability"},
    {"result-dfcoverage", "DF coverage"},
    {"interlink", "Interlink"},
};
static_assert(std::size(kindStyles) == XmlGeoFeature::kindCount, "one style per kind");

// Each kind's class in the kind's colour, the colour every map format shares:
// an outline and a light fill for areas, a fill for markers, a stroke for lines.
QString kindRules()
{
    QString rules;
    for (int kind = 0; kind < XmlGeoFeature::kindCount; ++kind) {
        const QString colour = XmlGeoFeature::kindColour(XmlGeoFeature::Kind(kind));
        rules += QStringLiteral(".%1 { fill: %2; stroke: %2; }\n")
                     .arg(QLatin1String(kindStyles[kind].cssClass), colour);
    }
    // Markers keep their dark outline, invalid objects their red one.
    return rules + QStringLiteral(".marker { stroke: #222; }\n.invalid { stroke: #e00000; }\n");
}

QString kindClass(XmlGeoFeature::Kind kind)
{
    return QLatin1String(kindStyles[kind].cssClass);
}

QString kindLabel(XmlGeoFeature::Kind kind)
{
    return QLatin1String(kindStyles[kind].label);
}

QString points(const QVector<QPair<double, double>>& corners)
{
    QStringList list;
    list.reserve(corners.size());
    for (const auto& corner : corners)
        list.append(number(corner.first) + QLatin1Char(',') + number(corner.second));
    return list.join(QLatin1Char(' '));
}

// The marker of a placed object's kind, centred on (x, y), with the given
// classes: a square for a station, a triangle for a direction finder, a
// circle for a receiver, a star for an emitter.
void writeMarker(QXmlStreamWriter& svg, XmlGeoFeature::Kind kind, double x, double y,
                 const QString& classes)
{
    const double s = markerSize;
    switch (kind) {
    case XmlGeoFeature::Station:
        svg.writeEmptyElement(QStringLiteral("rect"));
        svg.writeAttribute(QStringLiteral("x"), number(x - s));
        svg.writeAttribute(QStringLiteral("y"), number(y - s));
        svg.writeAttribute(QStringLiteral("width"), number(2 * s));
        svg.writeAttribute(QStringLiteral("height"), number(2 * s));
        break;
    case XmlGeoFeature::DirectionFinder:
        svg.writeEmptyElement(QStringLiteral("polygon"));
        svg.writeAttribute(QStringLiteral("points"),
                           points({{x, y - 1.3 * s}, {x + 1.2 * s, y + s}, {x - 1.2 * s, y + s}}));
        break;
    case XmlGeoFeature::Receiver:
        svg.writeEmptyElement(QStringLiteral("circle"));
        svg.writeAttribute(QStringLiteral("cx"), number(x));
        svg.writeAttribute(QStringLiteral("cy"), number(y));
        svg.writeAttribute(QStringLiteral("r"), number(s));
        break;
    default: {
        QVector<QPair<double, double>> star;
        for (int i = 0; i < 10; ++i) {
            const double radius = (i % 2 == 0 ? 1.5 : 0.65) * s;
            const double angle = pi * i / 5.0;
            star.append({x + radius * std::sin(angle), y - radius * std::cos(angle)});
        }
        svg.writeEmptyElement(QStringLiteral("polygon"));
        svg.writeAttribute(QStringLiteral("points"), points(star));
        break;
    }
    }
    svg.writeAttribute(QStringLiteral("class"), classes);
}

void writeText(QXmlStreamWriter& svg, double x, double y, const QString& text,
               const QString& classes, const QString& anchor = QString())
{
    svg.writeStartElement(QStringLiteral("text"));
    svg.writeAttribute(QStringLiteral("x"), number(x));
    svg.writeAttribute(QStringLiteral("y"), number(y));
    if (!classes.isEmpty())
        svg.writeAttribute(QStringLiteral("class"), classes);
    if (!anchor.isEmpty())
        svg.writeAttribute(QStringLiteral("text-anchor"), anchor);
    svg.writeCharacters(text);
    svg.writeEndElement();
}

void writeLine(QXmlStreamWriter& svg, double x1, double y1, double x2, double y2)
{
    svg.writeEmptyElement(QStringLiteral("line"));
    svg.writeAttribute(QStringLiteral("x1"), number(x1));
    svg.writeAttribute(QStringLiteral("y1"), number(y1));
    svg.writeAttribute(QStringLiteral("x2"), number(x2));
    svg.writeAttribute(QStringLiteral("y2"), number(y2));
    svg.writeAttribute(QStringLiteral("class"), QStringLiteral("grid"));
}

// The longitude axis (or the latitude axis) from low to high degrees over
// that many pixels.
SvgLayout::Axis axis(double low, double high, double pixels, bool longitude)
{
    return {low,
            high,
            longitude ? 180.0 : 90.0,
            pixels / (high - low),
            longitude,
            axisFontSize,
            QLatin1Char(longitude ? 'E' : 'N'),
            QLatin1Char(longitude ? 'W' : 'S')};
}

void writeGraticule(QXmlStreamWriter& svg, const Projection& projection)
{
    const Box& box = projection.box();
    const double left = projection.x(box.west);
    const double right = projection.x(box.east);
    const double top = projection.y(box.north);
    const double bottom = projection.y(box.south);

    svg.writeStartElement(QStringLiteral("g"));
    svg.writeAttribute(QStringLiteral("id"), QStringLiteral("graticule"));
    svg.writeEmptyElement(QStringLiteral("rect"));
    svg.writeAttribute(QStringLiteral("x"), number(left));
    svg.writeAttribute(QStringLiteral("y"), number(top));
    svg.writeAttribute(QStringLiteral("width"), number(right - left));
    svg.writeAttribute(QStringLiteral("height"), number(bottom - top));
    svg.writeAttribute(QStringLiteral("class"), QStringLiteral("frame"));

    // Longitude labels stand below the frame, clear of the lowest latitude
    // label, and never reach into the legend's column.
    for (const SvgLayout::Tick& tick :
         SvgLayout::ticks(axis(box.west, box.east, right - left, true))) {
        const double x = projection.x(tick.degrees);
        writeLine(svg, x, top, x, bottom);
        const double baseline = bottom + 18;
        if (SvgLayout::textBox(tick.label, axisFontSize, x, baseline, SvgLayout::Anchor::Middle)
                .right <= right + legendGap - 4) {
            writeText(svg, x, baseline, tick.label, QStringLiteral("axis"),
                      QStringLiteral("middle"));
        }
    }
    for (const SvgLayout::Tick& tick :
         SvgLayout::ticks(axis(box.south, box.north, bottom - top, false))) {
        const double y = projection.y(tick.degrees);
        writeLine(svg, left, y, right, y);
        writeText(svg, left - 6, y + 4, tick.label, QStringLiteral("axis"), QStringLiteral("end"));
    }
    writeText(svg, (left + right) / 2, bottom + 36, QStringLiteral("Longitude"),
              QStringLiteral("axis"), QStringLiteral("middle"));
    svg.writeStartElement(QStringLiteral("text"));
    svg.writeAttribute(QStringLiteral("transform"), QStringLiteral("translate(%1,%2) rotate(-90)")
                                                        .arg(number(left - 76))
                                                        .arg(number((top + bottom) / 2)));
    svg.writeAttribute(QStringLiteral("class"), QStringLiteral("axis"));
    svg.writeAttribute(QStringLiteral("text-anchor"), QStringLiteral("middle"));
    svg.writeCharacters(QStringLiteral("Latitude"));
    svg.writeEndElement();
    svg.writeEndElement();
}

// What a result record holds of its values: their unit and range and the
// grid they were computed on ("-95 to -40 dBm, grid 100"). The values of the
// cells are not in the messages.
QString recordSummary(const XmlGeoFeature& feature)
{
    const QVariantMap& p = feature.properties;
    return QStringLiteral("%1 to %2 %3, grid %4")
        .arg(QString::number(p.value(QStringLiteral("min")).toDouble(), 'g', 6),
             QString::number(p.value(QStringLiteral("max")).toDouble(), 'g', 6),
             p.value(QStringLiteral("unit")).toString(),
             p.value(QStringLiteral("grid")).toString());
}

QString tooltip(const XmlGeoFeature& feature)
{
    QString text =
        kindLabel(feature.kind) + QStringLiteral(" \"") + feature.name + QLatin1Char('"');
    if (feature.isResultRecord())
        text += QLatin1Char('\n') + recordSummary(feature);
    const QString resultText = feature.properties.value(QStringLiteral("text")).toString();
    if (!resultText.isEmpty())
        text += QLatin1Char('\n') + resultText;
    if (!feature.valid)
        text += QStringLiteral("\ninvalid: ") + feature.problem;
    return text;
}

QString classes(const QString& base, const XmlGeoFeature& feature)
{
    QString result = base + QLatin1Char(' ') + kindClass(feature.kind);
    if (feature.isResultRecord())
        result += QStringLiteral(" result");
    if (!feature.valid)
        result += QStringLiteral(" invalid");
    return result;
}

// How far a marker of the kind reaches from its centre, its outline included.
double markerReach(XmlGeoFeature::Kind kind)
{
    const double outline = 1.5;
    switch (kind) {
    case XmlGeoFeature::DirectionFinder:
        return 1.3 * markerSize + outline;
    case XmlGeoFeature::Emitter:
        return 1.5 * markerSize + outline;
    default:
        return markerSize + outline;
    }
}

// The box a placed object's marker covers on the page.
SvgLayout::Rect markerBox(const XmlGeoFeature& feature, const Projection& projection)
{
    const double x = projection.x(feature.positions.first().longitude);
    const double y = projection.y(feature.positions.first().latitude);
    const double reach = markerReach(feature.kind);
    return {x - reach, y - reach, x + reach, y + reach};
}

// The places a feature's name may go, best first: around a marker; for an
// area or an interlink, about its middle (the mean of an area's corners, the
// middle of a line), then around that point as around a small marker. None
// when the feature has no position to show, and none for a result record: it
// mostly covers an area that is named already, and the legend names it.
QVector<SvgLayout::Placement> labelPlacements(const XmlGeoFeature& feature,
                                              const Projection& projection)
{
    if (!shown(feature) || feature.isResultRecord())
        return {};
    if (feature.shape == XmlGeoFeature::Point) {
        return SvgLayout::markerPlacements(feature.name, labelFontSize, labelHalo,
                                           projection.x(feature.positions.first().longitude),
                                           projection.y(feature.positions.first().latitude),
                                           markerReach(feature.kind));
    }
    double x = 0.0;
    double y = 0.0;
    if (feature.shape == XmlGeoFeature::Line) {
        x = projection.x((feature.positions[0].longitude + feature.positions[1].longitude) / 2);
        y = projection.y((feature.positions[0].latitude + feature.positions[1].latitude) / 2) - 6;
    } else {
        const QVector<Position> ring = feature.ring();
        double longitude = 0.0;
        double latitude = 0.0;
        for (int i = 0; i + 1 < ring.size(); ++i) {
            longitude += ring[i].longitude;
            latitude += ring[i].latitude;
        }
        x = projection.x(longitude / (ring.size() - 1));
        y = projection.y(latitude / (ring.size() - 1));
    }
    QVector<SvgLayout::Placement> places =
        SvgLayout::areaPlacements(feature.name, labelFontSize, labelHalo, x, y);
    places += SvgLayout::markerPlacements(feature.name, labelFontSize, labelHalo, x, y, 4.0);
    return places;
}

void writeArea(QXmlStreamWriter& svg, const XmlGeoFeature& feature, const Projection& projection)
{
    const QVector<Position> ring = feature.ring();
    if (ring.isEmpty() || !std::all_of(ring.begin(), ring.end(), drawable))
        return;
    QVector<QPair<double, double>> corners;
    corners.reserve(ring.size() - 1);
    for (int i = 0; i + 1 < ring.size(); ++i)
        corners.append({projection.x(ring[i].longitude), projection.y(ring[i].latitude)});
    svg.writeStartElement(QStringLiteral("polygon"));
    svg.writeAttribute(QStringLiteral("points"), points(corners));
    svg.writeAttribute(QStringLiteral("class"), classes(QStringLiteral("area"), feature));
    svg.writeTextElement(QStringLiteral("title"), tooltip(feature));
    svg.writeEndElement();
}

// An interlink: a line between its two stations.
void writeLink(QXmlStreamWriter& svg, const XmlGeoFeature& feature, const Projection& projection)
{
    if (!shown(feature))
        return;
    svg.writeStartElement(QStringLiteral("line"));
    svg.writeAttribute(QStringLiteral("x1"), number(projection.x(feature.positions[0].longitude)));
    svg.writeAttribute(QStringLiteral("y1"), number(projection.y(feature.positions[0].latitude)));
    svg.writeAttribute(QStringLiteral("x2"), number(projection.x(feature.positions[1].longitude)));
    svg.writeAttribute(QStringLiteral("y2"), number(projection.y(feature.positions[1].latitude)));
    svg.writeAttribute(QStringLiteral("class"), classes(QStringLiteral("link"), feature));
    svg.writeTextElement(QStringLiteral("title"), tooltip(feature));
    svg.writeEndElement();
}

void writePlaced(QXmlStreamWriter& svg, const XmlGeoFeature& feature, const Projection& projection)
{
    if (feature.positions.size() != 1 || !drawable(feature.positions.first()))
        return;
    const double x = projection.x(feature.positions.first().longitude);
    const double y = projection.y(feature.positions.first().latitude);
    svg.writeStartElement(QStringLiteral("g"));
    svg.writeTextElement(QStringLiteral("title"), tooltip(feature));
    writeMarker(svg, feature.kind, x, y, classes(QStringLiteral("marker"), feature));
    svg.writeEndElement();
}

constexpr double legendRowHeight = 24.0;
// A result record's block: its name on a row, then two small lines below it.
constexpr double legendSubLine = 14.0;
constexpr double legendRecordHeight = legendRowHeight + 2 * legendSubLine + 4.0;

// The legend's height: a row for each of the six kinds of objects, a block
// per result record (its name; its kind; its unit, range and grid), and a
// row for the interlinks, the invalid and the hidden objects and the names left
// out when there are any.
double legendHeight(const QVector<XmlGeoFeature>& features, int leftOut)
{
    int records = 0;
    bool links = false;
    bool invalid = false;
    bool hidden = false;
    for (const XmlGeoFeature& feature : features) {
        records += feature.isResultRecord();
        links = links || feature.kind == XmlGeoFeature::Interlink;
        invalid = invalid || !feature.valid;
        hidden = hidden || !shown(feature);
    }
    return 36.0 +
           (6 + int(links) + int(invalid) + int(hidden) + int(leftOut > 0)) * legendRowHeight +
           records * legendRecordHeight;
}

void writeLegend(QXmlStreamWriter& svg, const QVector<XmlGeoFeature>& features, int leftOut,
                 double left, double top)
{
    const XmlGeoFeature::Kind kinds[] = {
        XmlGeoFeature::AreaOfInterest,  XmlGeoFeature::DeploymentArea, XmlGeoFeature::Station,
        XmlGeoFeature::DirectionFinder, XmlGeoFeature::Receiver,       XmlGeoFeature::Emitter,
    };
    int counts[XmlGeoFeature::kindCount] = {};
    int invalid = 0;
    int hidden = 0;
    for (const XmlGeoFeature& feature : features) {
        ++counts[feature.kind];
        if (!feature.valid)
            ++invalid;
        if (!shown(feature))
            ++hidden;
    }
    const double rowHeight = legendRowHeight;

    svg.writeStartElement(QStringLiteral("g"));
    svg.writeAttribute(QStringLiteral("id"), QStringLiteral("legend"));
    svg.writeEmptyElement(QStringLiteral("rect"));
    svg.writeAttribute(QStringLiteral("x"), number(left));
    svg.writeAttribute(QStringLiteral("y"), number(top));
    svg.writeAttribute(QStringLiteral("width"), number(legendWidth));
    svg.writeAttribute(QStringLiteral("height"), number(legendHeight(features, leftOut)));
    svg.writeAttribute(QStringLiteral("class"), QStringLiteral("legend"));
    writeText(svg, left + 12, top + 22, QStringLiteral("Legend"), QStringLiteral("title"));

    double y = top + 36.0 + rowHeight / 2;
    const double symbol = left + 24;
    const auto areaSymbol = [&](const QString& classes) {
        svg.writeEmptyElement(QStringLiteral("rect"));
        svg.writeAttribute(QStringLiteral("x"), number(symbol - 11));
        svg.writeAttribute(QStringLiteral("y"), number(y - 8));
        svg.writeAttribute(QStringLiteral("width"), number(22));
        svg.writeAttribute(QStringLiteral("height"), number(16));
        svg.writeAttribute(QStringLiteral("class"), classes);
    };
    for (const XmlGeoFeature::Kind kind : kinds) {
        if (kind == XmlGeoFeature::AreaOfInterest || kind == XmlGeoFeature::DeploymentArea)
            areaSymbol(QStringLiteral("legend-area area ") + kindClass(kind));
        else
            writeMarker(svg, kind, symbol, y,
                        QStringLiteral("legend-marker marker ") + kindClass(kind));
        writeText(svg, symbol + 22, y + 4,
                  QStringLiteral("%1 (%2)").arg(kindLabel(kind)).arg(counts[kind]), QString());
        y += rowHeight;
    }
    for (const XmlGeoFeature& feature : features) {
        if (!feature.isResultRecord())
            continue;
        areaSymbol(classes(QStringLiteral("legend-area area"), feature));
        writeText(svg, symbol + 22, y + 4, feature.name, QString());
        writeText(svg, symbol - 11, y + 4 + legendSubLine + 4, kindLabel(feature.kind),
                  QStringLiteral("axis"));
        writeText(svg, symbol - 11, y + 4 + 2 * legendSubLine + 4, recordSummary(feature),
                  QStringLiteral("axis"));
        y += legendRecordHeight;
    }
    if (counts[XmlGeoFeature::Interlink] > 0) {
        svg.writeEmptyElement(QStringLiteral("line"));
        svg.writeAttribute(QStringLiteral("x1"), number(symbol - 11));
        svg.writeAttribute(QStringLiteral("y1"), number(y));
        svg.writeAttribute(QStringLiteral("x2"), number(symbol + 11));
        svg.writeAttribute(QStringLiteral("y2"), number(y));
        svg.writeAttribute(QStringLiteral("class"), QStringLiteral("legend-link link interlink"));
        writeText(svg, symbol + 22, y + 4,
                  QStringLiteral("%1 (%2)")
                      .arg(kindLabel(XmlGeoFeature::Interlink))
                      .arg(counts[XmlGeoFeature::Interlink]),
                  QString());
        y += rowHeight;
    }
    if (invalid > 0) {
        svg.writeEmptyElement(QStringLiteral("circle"));
        svg.writeAttribute(QStringLiteral("cx"), number(symbol));
        svg.writeAttribute(QStringLiteral("cy"), number(y));
        svg.writeAttribute(QStringLiteral("r"), number(markerSize));
        svg.writeAttribute(QStringLiteral("fill"), QStringLiteral("none"));
        svg.writeAttribute(QStringLiteral("class"), QStringLiteral("legend-marker invalid"));
        writeText(svg, symbol + 22, y + 4, QStringLiteral("invalid (%1)").arg(invalid), QString());
        y += rowHeight;
    }
    if (hidden > 0) {
        writeText(svg, symbol + 22, y + 4, QStringLiteral("not on the map (%1)").arg(hidden),
                  QString());
        y += rowHeight;
    }
    if (leftOut > 0) {
        writeText(svg, symbol + 22, y + 4, QStringLiteral("names left out (%1)").arg(leftOut),
                  QString());
    }
    svg.writeEndElement();
}

} // namespace

bool writeSvg(const MapDocument& document, QIODevice& device)
{
    QVector<XmlGeoFeature> features;
    Box box;
    document.visit([&](const XmlGeoFeature& feature) {
        features.append(feature);
        for (const Position& position : feature.positions)
            box.add(position);
    });
    const Projection projection(box);

    const double legendLeft = leftMargin + projection.width() + legendGap;
    const double width = legendLeft + legendWidth + 20.0;
    const double plotBottom = topMargin + projection.height() + bottomMargin;
    // The legend keeps room for the row that counts the names left out, which
    // are known only once the names are placed.
    const double height = std::max(
        plotBottom, topMargin + std::max(36.0 + 9 * 24.0, legendHeight(features, 1)) + 20.0);

    QXmlStreamWriter svg(&device);
    svg.setAutoFormatting(true);
    svg.setAutoFormattingIndent(1);
    svg.writeStartDocument();
    svg.writeStartElement(QStringLiteral("svg"));
    svg.writeDefaultNamespace(QStringLiteral("http://www.w3.org/2000/svg"));
    svg.writeAttribute(QStringLiteral("version"), QStringLiteral("1.1"));
    svg.writeAttribute(QStringLiteral("width"), number(width));
    svg.writeAttribute(QStringLiteral("height"), number(height));
    svg.writeAttribute(QStringLiteral("viewBox"),
                       QStringLiteral("0 0 %1 %2").arg(number(width), number(height)));
    svg.writeTextElement(QStringLiteral("title"), document.title);
    svg.writeTextElement(QStringLiteral("style"), QString::fromUtf8(styleSheet) + kindRules());
    svg.writeEmptyElement(QStringLiteral("rect"));
    svg.writeAttribute(QStringLiteral("width"), QStringLiteral("100%"));
    svg.writeAttribute(QStringLiteral("height"), QStringLiteral("100%"));
    svg.writeAttribute(QStringLiteral("fill"), QStringLiteral("#ffffff"));
    writeText(svg, leftMargin, 30, document.title, QStringLiteral("title"));

    writeGraticule(svg, projection);
    if (features.isEmpty()) {
        writeText(svg, leftMargin + projection.width() / 2, topMargin + projection.height() / 2,
                  QStringLiteral("No geographic objects"), QStringLiteral("title"),
                  QStringLiteral("middle"));
    }

    // Deployment areas under areas of interest, areas under markers, names on top.
    svg.writeStartElement(QStringLiteral("g"));
    svg.writeAttribute(QStringLiteral("id"), QStringLiteral("areas"));
    for (const XmlGeoFeature::Kind kind :
         {XmlGeoFeature::DeploymentArea, XmlGeoFeature::AreaOfInterest,
          XmlGeoFeature::ResultFindSites, XmlGeoFeature::ResultCep, XmlGeoFeature::ResultDetectProb,
          XmlGeoFeature::ResultDfCoverage}) {
        for (const XmlGeoFeature& feature : std::as_const(features)) {
            if (feature.kind == kind)
                writeArea(svg, feature, projection);
        }
    }
    svg.writeEndElement();

    svg.writeStartElement(QStringLiteral("g"));
    svg.writeAttribute(QStringLiteral("id"), QStringLiteral("objects"));
    for (const XmlGeoFeature& feature : std::as_const(features)) {
        if (feature.kind == XmlGeoFeature::Interlink)
            writeLink(svg, feature, projection);
    }
    for (const XmlGeoFeature& feature : std::as_const(features)) {
        if (feature.shape == XmlGeoFeature::Point)
            writePlaced(svg, feature, projection);
    }
    svg.writeEndElement();

    // No name covers another name or the frame's edge, and where there is room
    // none covers a marker. A name with no place at all is left out (its
    // object's tooltip still gives it) and counted in the legend.
    // The frame's outline is left clear too.
    SvgLayout::LabelPlacer placer(
        {projection.x(projection.box().west) + 1, projection.y(projection.box().north) + 1,
         projection.x(projection.box().east) - 1, projection.y(projection.box().south) - 1});
    for (const XmlGeoFeature& feature : std::as_const(features)) {
        if (feature.shape == XmlGeoFeature::Point && shown(feature))
            placer.addMarker(markerBox(feature, projection));
    }
    const auto chosen = placer.placeAll(
        features.size(), [&](int i) { return labelPlacements(features[i], projection); });
    int leftOut = 0;
    svg.writeStartElement(QStringLiteral("g"));
    svg.writeAttribute(QStringLiteral("id"), QStringLiteral("names"));
    for (int i = 0; i < features.size(); ++i) {
        const XmlGeoFeature& feature = features[i];
        const std::optional<SvgLayout::Placement>& place = chosen[size_t(i)];
        if (!place) {
            leftOut += shown(feature) && !feature.isResultRecord() ? 1 : 0;
            continue;
        }
        const QString style = feature.isArea() || feature.shape == XmlGeoFeature::Line
                                  ? QStringLiteral("label name-") + kindClass(feature.kind)
                                  : QStringLiteral("label");
        writeText(svg, place->x, place->y, feature.name, style,
                  SvgLayout::anchorName(place->anchor));
    }
    svg.writeEndElement();

    writeLegend(svg, features, leftOut, legendLeft, topMargin);

    svg.writeEndElement();
    svg.writeEndDocument();
    return !svg.hasError();
}
