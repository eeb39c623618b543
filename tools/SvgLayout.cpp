#include "SvgLayout.h"

#include <QtGlobal>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace SvgLayout {

namespace {

// Advance widths of DejaVu Sans in units of 1/2048 em, read from the font's
// horizontal metrics (the wider of the regular and the oblique face, which
// differ in four characters only): U+0020 to U+007E, then U+00A0 to U+00FF.
// scripts/font-advance-widths.py prints them from the installed fonts.
const quint16 asciiWidths[] = {
    651,  821,  942,  1716, 1303, 1946, 1597, 563,  799,  799,  1024, 1716, 651,  739,  651,  690,
    1303, 1303, 1303, 1303, 1303, 1303, 1303, 1303, 1303, 1303, 690,  690,  1716, 1716, 1716, 1087,
    2048, 1401, 1405, 1430, 1577, 1294, 1178, 1587, 1540, 604,  604,  1343, 1141, 1767, 1532, 1612,
    1235, 1612, 1423, 1300, 1251, 1499, 1401, 2025, 1403, 1251, 1403, 799,  690,  799,  1716, 1024,
    1024, 1255, 1300, 1126, 1300, 1260, 721,  1300, 1298, 569,  569,  1186, 569,  1995, 1298, 1253,
    1300, 1300, 842,  1067, 803,  1298, 1212, 1675, 1212, 1212, 1075, 1303, 690,  1303, 1716,
};

const quint16 latin1Widths[] = {
    651,  821,  1303, 1303, 1303, 1303, 690,  1024, 1024, 2048, 965,  1264, 1716, 739,  2048, 1024,
    1024, 1716, 821,  821,  1024, 1303, 1303, 651,  1024, 821,  965,  1264, 1985, 1985, 1985, 1087,
    1401, 1401, 1401, 1401, 1401, 1401, 1995, 1430, 1294, 1294, 1294, 1294, 604,  604,  604,  604,
    1587, 1532, 1612, 1612, 1612, 1612, 1612, 1716, 1612, 1499, 1499, 1499, 1499, 1251, 1245, 1290,
    1255, 1255, 1255, 1255, 1255, 1255, 2038, 1126, 1260, 1260, 1260, 1260, 569,  569,  569,  569,
    1253, 1298, 1253, 1253, 1253, 1253, 1253, 1716, 1253, 1298, 1298, 1298, 1298, 1212, 1300, 1212,
};

constexpr int em = 2048;

// The decimals the labels of a step need: none for 5, one for 2.5 or 0.5.
int decimalsOf(double step)
{
    int decimals = 0;
    while (decimals < 12) {
        const double scaled = step * std::pow(10.0, decimals);
        if (std::abs(scaled - std::round(scaled)) < 1e-6 * scaled)
            break;
        ++decimals;
    }
    return decimals;
}

// The ticks at multiples of step within [low, high].
QVector<Tick> ticksAt(double step, double low, double high, const Axis& axis)
{
    const int decimals = decimalsOf(step);
    QVector<Tick> result;
    const double tolerance = 1e-9 * step;
    for (double k = std::ceil(low / step - 1e-9); k * step <= high + tolerance; ++k) {
        const double value = k * step;
        if (std::abs(value) <= axis.limit)
            result.append({value, degreesLabel(value, decimals, axis.positive, axis.negative)});
    }
    return result;
}

// Whether neighbouring labels keep tickLabelGap apart: labels side by side are
// centred on their lines, stacked ones take the font's line box.
bool keepApart(const QVector<Tick>& ticks, const Axis& axis)
{
    const double lineBox = (fontAscent + fontDescent) * axis.fontSize;
    for (int i = 0; i + 1 < ticks.size(); ++i) {
        const double distance = (ticks[i + 1].degrees - ticks[i].degrees) * axis.pixelsPerDegree;
        const double needed = axis.horizontal ? (textWidth(ticks[i].label, axis.fontSize) +
                                                 textWidth(ticks[i + 1].label, axis.fontSize)) /
                                                        2.0 +
                                                    tickLabelGap
                                              : lineBox + tickLabelGap;
        if (distance < needed)
            return false;
    }
    return true;
}

// The box of a text already measured (textBox without the measuring).
Rect widthBox(double width, double size, double x, double y, Anchor anchor, double halo)
{
    double left = x;
    if (anchor == Anchor::Middle)
        left = x - width / 2.0;
    else if (anchor == Anchor::End)
        left = x - width;
    return {left - halo, y - fontAscent * size - halo, left + width + halo,
            y + fontDescent * size + halo};
}

} // namespace

int advance(QChar character)
{
    const ushort code = character.unicode();
    if (code >= 0x20 && code <= 0x7E)
        return asciiWidths[code - 0x20];
    if (code >= 0xA0 && code <= 0xFF)
        return latin1Widths[code - 0xA0];
    return em;
}

double textWidth(const QString& text, double size)
{
    long long units = 0;
    for (int i = 0; i < text.size(); ++i) {
        // A surrogate pair is one character on the page.
        if (text.at(i).isLowSurrogate() && i > 0 && text.at(i - 1).isHighSurrogate())
            continue;
        units += advance(text.at(i));
    }
    return double(units) * size / em;
}

QString anchorName(Anchor anchor)
{
    switch (anchor) {
    case Anchor::Middle:
        return QStringLiteral("middle");
    case Anchor::End:
        return QStringLiteral("end");
    case Anchor::Start:
        break;
    }
    return QString();
}

Rect textBox(const QString& text, double size, double x, double y, Anchor anchor, double halo)
{
    return widthBox(textWidth(text, size), size, x, y, anchor, halo);
}

QString degreesLabel(double value, int decimals, QChar positive, QChar negative)
{
    if (std::abs(value) < 1e-12)
        return QStringLiteral("0°");
    return QString::number(std::abs(value), 'f', decimals) + QChar(0x00B0) +
           (value > 0 ? positive : negative);
}

QVector<Tick> ticks(const Axis& axis)
{
    const double span = axis.high - axis.low;
    const double low = std::max(axis.low, -axis.limit);
    const double high = std::min(axis.high, axis.limit);
    if (!std::isfinite(span) || !(span > 0.0) || !std::isfinite(axis.pixelsPerDegree) ||
        !(axis.pixelsPerDegree > 0.0) || low > high)
        return {};
    const double raw = minTickSpacing / axis.pixelsPerDegree;
    double magnitude = std::pow(10.0, std::floor(std::log10(raw)));
    const double factors[] = {1.0, 2.0, 2.5, 5.0};
    // Each round the step grows, so within a few powers of ten a single
    // label is left, which always fits.
    for (int power = 0; power < 24; ++power, magnitude *= 10.0) {
        for (const double factor : factors) {
            const double step = factor * magnitude;
            if (step < raw * (1.0 - 1e-9))
                continue;
            QVector<Tick> result = ticksAt(step, low, high, axis);
            if (keepApart(result, axis))
                return result;
        }
    }
    return {};
}

QVector<Placement> markerPlacements(const QString& text, double size, double halo, double x,
                                    double y, double radius)
{
    // Clear of the marker by more than a cell of the placer's grid.
    const double gap = 4.0;
    // The baseline that centres the font's line box on y, and half that box.
    const double middle = y + (fontAscent - fontDescent) / 2.0 * size;
    const double half = (fontAscent + fontDescent) * size / 2.0 + halo;
    const double width = textWidth(text, size);
    QVector<Placement> result;
    result.reserve(36);
    const auto add = [&](double placeX, double placeY, Anchor anchor) {
        result.append(
            {placeX, placeY, anchor, widthBox(width, size, placeX, placeY, anchor, halo)});
    };
    // Close to the marker first, then a ring further out.
    for (const double reach :
         {radius + gap, radius + gap + 2.0 * half, radius + gap + 4.0 * half}) {
        const double above = y - reach - fontDescent * size;
        const double below = y + reach + fontAscent * size;
        const int first = result.size();
        add(x + reach, middle, Anchor::Start);
        add(x - reach, middle, Anchor::End);
        add(x, above, Anchor::Middle);
        add(x, below, Anchor::Middle);
        add(x + reach, middle - half, Anchor::Start);
        add(x + reach, middle + half, Anchor::Start);
        add(x - reach, middle - half, Anchor::End);
        add(x - reach, middle + half, Anchor::End);
        add(x + reach - gap, above, Anchor::Start);
        add(x + reach - gap, below, Anchor::Start);
        add(x - reach + gap, above, Anchor::End);
        add(x - reach + gap, below, Anchor::End);
        for (int i = first; i < result.size(); ++i)
            result[i].far = reach > radius + gap;
    }
    return result;
}

QVector<Placement> areaPlacements(const QString& text, double size, double halo, double x, double y)
{
    const double middle = y + (fontAscent - fontDescent) / 2.0 * size;
    const double line = (fontAscent + fontDescent) * size + 2.0 * halo;
    const double width = textWidth(text, size);
    QVector<Placement> result;
    for (const double offset : {0.0, -line, line, -2.0 * line, 2.0 * line}) {
        result.append({x, middle + offset, Anchor::Middle,
                       widthBox(width, size, x, middle + offset, Anchor::Middle, halo),
                       std::abs(offset) > line});
    }
    return result;
}

LabelPlacer::LabelPlacer(const Rect& frame, double cellSize)
    : m_frame(frame)
    , m_cellSize(cellSize > 0.0 ? cellSize : 1.0)
{
    const auto cells = [this](double length) {
        return std::isfinite(length) && length > 0.0
                   ? std::max(1, int(std::ceil(length / m_cellSize)))
                   : 1;
    };
    m_columns = cells(frame.width());
    m_rows = cells(frame.height());
    m_cells.assign(size_t(m_columns) * size_t(m_rows), 0);
}

LabelPlacer::Span LabelPlacer::span(const Rect& box) const
{
    const auto cell = [this](double offset, int count) {
        return std::max(0, std::min(count - 1, int(std::floor(offset / m_cellSize))));
    };
    return {cell(box.left - m_frame.left, m_columns), cell(box.right - m_frame.left, m_columns),
            cell(box.top - m_frame.top, m_rows), cell(box.bottom - m_frame.top, m_rows)};
}

void LabelPlacer::cover(const Rect& box, Cover what)
{
    if (!box.intersects(m_frame))
        return;
    const Span cells = span(box);
    for (int row = cells.firstRow; row <= cells.lastRow; ++row) {
        for (int column = cells.firstColumn; column <= cells.lastColumn; ++column)
            m_cells[size_t(row) * size_t(m_columns) + size_t(column)] |= what;
    }
}

void LabelPlacer::addMarker(const Rect& box)
{
    cover(box, MarkerCover);
}

bool LabelPlacer::isFree(const Rect& box, unsigned char blocking)
{
    if (!m_frame.contains(box))
        return false;
    const Span cells = span(box);
    for (int row = cells.firstRow; row <= cells.lastRow; ++row) {
        for (int column = cells.firstColumn; column <= cells.lastColumn; ++column) {
            ++m_probes;
            if (m_cells[size_t(row) * size_t(m_columns) + size_t(column)] & blocking)
                return false;
        }
    }
    return true;
}

int LabelPlacer::place(const QVector<Placement>& candidates, Markers markers, bool far)
{
    const unsigned char blocking = markers == AvoidMarkers ? MarkerCover | LabelCover : LabelCover;
    for (int i = 0; i < candidates.size(); ++i) {
        if ((far || !candidates[i].far) && isFree(candidates[i].box, blocking)) {
            cover(candidates[i].box, LabelCover);
            return i;
        }
    }
    return -1;
}

std::vector<std::optional<Placement>> LabelPlacer::placeAll(int count, const Candidates& candidates)
{
    std::vector<std::optional<Placement>> chosen(size_t(std::max(0, count)));
    const struct
    {
        Markers markers;
        bool far;
    } rounds[] = {{AvoidMarkers, false}, {AvoidMarkers, true}, {CoverMarkers, true}};
    for (const auto& round : rounds) {
        for (int i = 0; i < count; ++i) {
            if (chosen[size_t(i)])
                continue;
            const QVector<Placement> places = candidates(i);
            const int taken = place(places, round.markers, round.far);
            if (taken >= 0)
                chosen[size_t(i)] = places[taken];
        }
    }
    return chosen;
}

} // namespace SvgLayout
