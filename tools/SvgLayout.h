#pragma once

// The layout of the texts of the SVG map: how wide a text set in the map's
// font is, which graticule step keeps the tick labels apart, and where the
// name of each object goes so that no two names overlap and none leaves the
// frame.
//
// Widths come from the advance widths of DejaVu Sans, the font the map's
// style sheet names first, so a box computed here is the box a browser draws
// (kerning only ever narrows a text). Everything is in SVG units (pixels).

#include <QChar>
#include <QString>
#include <QVector>

#include <functional>
#include <optional>
#include <vector>

namespace SvgLayout {

// DejaVu Sans's ascent and descent (its line box), as fractions of the font size.
constexpr double fontAscent = 1901.0 / 2048.0;
constexpr double fontDescent = 483.0 / 2048.0;

// The advance width of one character in DejaVu Sans (regular or oblique,
// the wider of the two), in units of 1/2048 em.
// Characters outside Basic Latin and Latin-1 count as one em, which is
// wider than almost every glyph of the fonts a browser falls back to.
int advance(QChar character);

// The width of text set in DejaVu Sans at size pixels.
double textWidth(const QString& text, double size);

struct Rect
{
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;

    double width() const { return right - left; }
    double height() const { return bottom - top; }
    // Whether the two share more than an edge.
    bool intersects(const Rect& other) const
    {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
    bool contains(const Rect& other) const
    {
        return left <= other.left && other.right <= right && top <= other.top &&
               other.bottom <= bottom;
    }
};

// How a text stands to its x: SVG's text-anchor.
enum class Anchor
{
    Start,
    Middle,
    End,
};

// The "text-anchor" value of an anchor; empty for Start, SVG's default.
QString anchorName(Anchor anchor);

// The box a text of that size takes with its baseline at y and its anchor at
// x, widened on every side by halo (the outline a label is painted with).
Rect textBox(const QString& text, double size, double x, double y, Anchor anchor,
             double halo = 0.0);

// One graticule line: where it lies in degrees and its label ("8.5°E").
struct Tick
{
    double degrees;
    QString label;
};

// One axis of the graticule as the map draws it.
struct Axis
{
    double low;             // the degrees at the low end of the frame
    double high;            // and at the high end
    double limit;           // 180 for longitude, 90 for latitude
    double pixelsPerDegree; // the map's scale along the axis
    bool horizontal;        // labels side by side (longitude) or stacked (latitude)
    double fontSize;        // of the labels
    QChar positive;         // 'E' or 'N'
    QChar negative;         // 'W' or 'S'
};

// The least clear space between two tick labels, and the least distance
// between two graticule lines, in pixels.
constexpr double tickLabelGap = 6.0;
constexpr double minTickSpacing = 40.0;

// The ticks of an axis: at a round step (1, 2, 2.5 or 5 times a power of
// ten), the smallest at least minTickSpacing wide whose labels, measured,
// keep tickLabelGap apart; only within the axis and within the globe (never
// beyond ±limit).
QVector<Tick> ticks(const Axis& axis);

// The label "8.5°E" of a value in degrees with the given decimals; 0 is "0°".
QString degreesLabel(double value, int decimals, QChar positive, QChar negative);

// A place for a text: its anchor point, its anchor, the box it takes, and
// whether it stands off its object by more than the closest places do.
struct Placement
{
    double x;
    double y;
    Anchor anchor;
    Rect box;
    bool far = false;
};

// The places tried for the name of a marker centred on (x, y) whose shape
// reaches radius from its centre, best first: right of it, left, above,
// below, a half line higher and lower on either side, the four corners; then
// the same a line further out.
QVector<Placement> markerPlacements(const QString& text, double size, double halo, double x,
                                    double y, double radius);

// The places tried for the name of an area centred on (x, y): centred there,
// then a line and two lines above and below.
QVector<Placement> areaPlacements(const QString& text, double size, double halo, double x,
                                  double y);

// Places labels within a frame so that none overlaps another or the frame's
// edge, and, where there is room, none covers a marker. The frame is a grid
// of small square cells, each holding whether a marker or a label covers it;
// a box covers every cell it touches, so two boxes that overlap always share
// a cell. Placing a label costs the cells of its candidate boxes, however
// many labels there are.
class LabelPlacer
{
public:
    // Whether a label may lie over markers.
    enum Markers
    {
        AvoidMarkers,
        CoverMarkers,
    };

    explicit LabelPlacer(const Rect& frame, double cellSize = 1.0);

    // Marks the cells under a marker.
    void addMarker(const Rect& box);
    // The first of the candidates that lies inside the frame on cells free of
    // labels (and of markers, unless markers is CoverMarkers), whose cells it
    // then takes; -1 when none does. Far places are tried only when far is
    // true.
    int place(const QVector<Placement>& candidates, Markers markers = AvoidMarkers,
              bool far = true);
    // The candidates of the label of that number, made when asked, so that
    // only the labels being placed hold theirs.
    using Candidates = std::function<QVector<Placement>(int label)>;
    // Places labels 0 to count - 1 in three rounds: all of them close to their
    // objects and clear of markers, then those left further out, then those
    // still left over markers. The place each label took; none for a label
    // left out.
    std::vector<std::optional<Placement>> placeAll(int count, const Candidates& candidates);

    // The cells looked at so far.
    long long probes() const { return m_probes; }

private:
    enum Cover : unsigned char
    {
        MarkerCover = 1,
        LabelCover = 2,
    };
    struct Span
    {
        int firstColumn;
        int lastColumn;
        int firstRow;
        int lastRow;
    };
    Span span(const Rect& box) const;
    void cover(const Rect& box, Cover what);
    bool isFree(const Rect& box, unsigned char blocking);

    Rect m_frame;
    double m_cellSize;
    int m_columns;
    int m_rows;
    std::vector<unsigned char> m_cells;
    long long m_probes = 0;
};

} // namespace SvgLayout
