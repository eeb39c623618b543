#include "DocumentText.h"

#include <QtGlobal>

#include <algorithm>
#include <cmath>

namespace KelXmlBench {

namespace {

constexpr double pi = 3.14159265358979323846;

// Where an invalid position lies.
const Position offTheGlobe{999.0, -999.0};

} // namespace

const ValueTable frequencies{"Frequencies", "Frequency", "MHz", 100, 100};
const ValueTable noises{"Noises", "Decibel", "dB", 6, 0.5};
const ValueTable degrees{"Degrees", "Degrees", "\xc2\xb0", 1.5, 0.5};
const ValueTable gains{"Gains", "Decibel", "dB", 2, 0.5};
const ValueTable dbm{"DBM", "dBm", "dBm", 10, 0.5};
const ValueTable kFactors{"KFactors", "Decibel", "dB", 20, 1};

std::vector<int> vertexNumbers(int count, Order order)
{
    std::vector<int> result(size_t(std::max(count, 0)));
    for (int i = 0; i < count; ++i)
        result[size_t(i)] = order == Order::Descending ? count - 1 - i : i;
    if (order == Order::Shuffled) {
        quint64 state = 0x9e3779b97f4a7c15ull;
        for (size_t i = result.size(); i > 1; --i) {
            state ^= state << 13;
            state ^= state >> 7;
            state ^= state << 17;
            std::swap(result[i - 1], result[size_t(state % i)]);
        }
    }
    return result;
}

QByteArray fixed(double value, int decimals)
{
    return QByteArray::number(value, 'f', decimals);
}

QByteArray integer(qint64 value)
{
    return QByteArray::number(value);
}

QByteArray name(const char* stem, qint64 n)
{
    return QByteArray(stem) + ' ' + integer(n);
}

DocumentText::DocumentText(Layout layout)
    : m_indented(layout == Indented)
{
    if (m_indented)
        m_bytes.append("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
}

DocumentText::~DocumentText() = default;

void DocumentText::indent()
{
    if (m_indented)
        m_bytes.append(QByteArray(2 * m_depth, ' '));
}

void DocumentText::endLine()
{
    if (m_indented)
        m_bytes.append('\n');
}

void DocumentText::open(const char* tag, const QByteArray& attributes)
{
    indent();
    m_bytes.append('<').append(tag);
    if (!attributes.isEmpty())
        m_bytes.append(' ').append(attributes);
    m_bytes.append('>');
    endLine();
    ++m_depth;
}

void DocumentText::close(const char* tag)
{
    --m_depth;
    indent();
    m_bytes.append("</").append(tag).append('>');
    endLine();
}

void DocumentText::leaf(const char* tag, const QByteArray& text)
{
    leaf(tag, QByteArray(), text);
}

void DocumentText::leaf(const char* tag, const QByteArray& attributes, const QByteArray& text)
{
    indent();
    m_bytes.append('<').append(tag);
    if (!attributes.isEmpty())
        m_bytes.append(' ').append(attributes);
    m_bytes.append('>').append(text).append("</").append(tag).append('>');
    endLine();
}

void DocumentText::empty(const char* tag)
{
    indent();
    m_bytes.append('<').append(tag).append("/>");
    endLine();
}

QByteArray DocumentText::version() const
{
    return m_invalid ? "version=\"2.0\"" : "version=\"1.0\"";
}

void DocumentText::value(const char* tag, const char* unit, const QByteArray& number)
{
    if (m_invalid)
        leaf(tag, "version=\"2.0\" unit=\"none\"", "-99999999");
    else
        leaf(tag, QByteArray("version=\"1.0\" unit=\"") + unit + '"', number);
}

void DocumentText::objectName(const char* stem, qint64 n)
{
    leaf("Name", m_invalid ? QByteArray() : name(stem, n));
}

void DocumentText::reference(const char* tag, const char* stem, qint64 n)
{
    leaf(tag, m_invalid ? QByteArray() : QByteArray(stem) + '-' + integer(n));
}

void DocumentText::orderDef()
{
    open("ORDER_DEF");
    leaf("ORDER_ID", "KEL240514093000123");
    leaf("ORDER_SENDER", "planning-client");
    close("ORDER_DEF");
}

void DocumentText::coordinates(Position position)
{
    leaf("Longitude", fixed(position.longitude, 6));
    leaf("Latitude", fixed(position.latitude, 6));
}

void DocumentText::position(const char* tag, Position position)
{
    open(tag, "version=\"1.0\"");
    coordinates(m_invalid ? offTheGlobe : position);
    close(tag);
}

void DocumentText::names(const char* tag, qint64 n, int count)
{
    if (count == 0) {
        leaf(tag, "<All/>");
        return;
    }
    open(tag);
    for (int i = 0; i < count; ++i)
        objectName("DF", n + i);
    close(tag);
}

void DocumentText::valueList(const ValueTable& table, int entries)
{
    open(table.list, version());
    for (int i = 0; i < entries; ++i)
        value(table.member, table.unit, tableValue(table, i));
    close(table.list);
}

void DocumentText::map(const char* tag, int entries)
{
    open(tag, version());
    for (int i = 0; i < entries; ++i) {
        open("Map", "version=\"1.0\"");
        leaf("Key", integer(i));
        value("Value", "m", integer(10 + i % 90));
        close("Map");
    }
    close(tag);
}

void DocumentText::device(const char* category, const char* stem, qint64 n, int entries,
                          std::initializer_list<ValueTable> tables)
{
    open("Device", "version=\"1.0\"");
    leaf("DeviceCategory", category);
    objectName(stem, n);
    for (const ValueTable& table : tables)
        valueList(table, entries);
    close("Device");
}

void DocumentText::administrative(qint64 n)
{
    open("Administrative");
    empty("QueryVersion");
    reference("Reference", "version", n);
    close("Administrative");
}

void DocumentText::deleteEmitter(qint64 n)
{
    open("Delete");
    open("Emitter");
    objectName("Beacon", n);
    close("Emitter");
    reference("Reference", "delete", n);
    close("Delete");
}

void DocumentText::propagationModel(const char* reference)
{
    open("PropagationModel");
    leaf("SelectModel", "ITM");
    open("PropertiesITM");
    leaf("RRI", "300.0000");
    leaf("Pol", "V");
    leaf("Climate", "Continental Temperate");
    leaf("Surface", "Average Ground");
    leaf("Conf", "50.00");
    leaf("Time", "50.00");
    close("PropertiesITM");
    leaf("Reference", reference);
    close("PropagationModel");
}

void DocumentText::calculate(qint64 n, const Calculation& calculation)
{
    static const char* const tags[] = {"FindPossibleSites",    "CEP",
                                       "DetectionProbability", "DFcoverage",
                                       "InterlinkPlanning",    "BestSensorCov"};
    // The selections of each kind, where it has two.
    static const char* const firsts[] = {"UseKnownEmitters", "UseDFs", "UseRxDFs",
                                         "UseDFs",           nullptr,  "UseRxDFs"};
    const char* tag = tags[calculation.kind];
    open("Calculate");
    open(tag);
    if (calculation.kind == Calculation::InterlinkPlanning) {
        leaf("FirstName", name(calculation.firstStation, n));
        leaf("SecondName", name(calculation.secondStation, n));
    } else if (calculation.kind == Calculation::FindSites) {
        names(firsts[calculation.kind], n, calculation.first);
        open("RandomEmitters");
        leaf("Number", integer(100 + n % 400));
        leaf("Distribution", "Grid");
        close("RandomEmitters");
        names("DeploymentAreas", n, calculation.second);
    } else {
        names(firsts[calculation.kind], n, calculation.first);
        names("AOIs", n, calculation.second);
        if (calculation.kind == Calculation::Cep)
            leaf("Probability", "90");
    }
    if (!calculation.grid.isEmpty())
        leaf("ResultGrid", calculation.grid);
    if (calculation.kind == Calculation::BestSensor)
        leaf("Comment", "Survey " + integer(n));
    close(tag);
    reference("Reference", "calc", n);
    close("Calculate");
}

void DocumentText::pair(qint64 n)
{
    open("Pair", version());
    value("Frequency", "MHz", fixed(30 + double(n * 7919 % 2970000) / 1000, 3));
    value("RxThreshold", "dBm", fixed(-120 + double(n % 400) / 10, 1));
    close("Pair");
}

void DocumentText::areaRect(qint64 n)
{
    const std::pair<Position, Position> rectangle = corners(n);
    open("AreaRect", "version=\"1.0\"");
    position("UpperLeft", rectangle.first);
    position("LowerRight", rectangle.second);
    close("AreaRect");
}

// The vertices lie on a circle in the order of their numbers, so that sorted
// they make a convex outline.
void DocumentText::areaPolygon(qint64 n, int vertices, Order order)
{
    const Position middle = centre(n);
    open("AreaPolygon", "version=\"1.0\"");
    for (int number : vertexNumbers(vertices, order)) {
        const double angle = 2 * pi * number / std::max(vertices, 1);
        open("Vertex",
             "version=\"1.0\" number=\"" + integer(m_invalid ? number / 2 : number) + '"');
        coordinates(m_invalid ? offTheGlobe
                              : Position{middle.longitude + 0.05 * std::cos(angle),
                                         middle.latitude + 0.05 * std::sin(angle)});
        close("Vertex");
    }
    close("AreaPolygon");
}

void DocumentText::txParameter(const Numbers& numbers)
{
    open("TxParameter", version());
    value("Frequency", "MHz", numbers.frequency);
    value("TxPower", "W", numbers.power);
    value("AntennaHeight", "m", numbers.antennaHeight);
    value("Bandwidth", "kHz", numbers.bandwidth);
    close("TxParameter");
}

void DocumentText::rxParameter(const Numbers& numbers)
{
    open("RxParameter", version());
    value("AntennaHeight", "m", numbers.antennaHeight);
    value("RxThreshold", "dBm", numbers.threshold);
    close("RxParameter");
}

void DocumentText::interlink(const Numbers& numbers)
{
    open("StationInterlink", version());
    value("Frequency", numbers.interlinkUnit, numbers.interlinkFrequency);
    value("TxPower", "W", numbers.interlinkPower);
    value("RxThreshold", "dBm", numbers.interlinkThreshold);
    value("AntennaHeight", "m", numbers.interlinkHeight);
    close("StationInterlink");
}

void DocumentText::deploymentArea(const char* tag, qint64 n)
{
    const Numbers own = numbers(n);
    open(tag, "version=\"1.0\"");
    objectName("Ridge", n);
    areaRect(n);
    value("AntennaHeight", "m", own.antennaHeight);
    value("RxThreshold", "dBm", own.areaThreshold);
    value("Frequency", "MHz", own.frequency);
    value("TxPower", "W", own.areaPower);
    close(tag);
}

void DocumentText::aoi(const char* tag, qint64 n, int vertices, Order order)
{
    const Numbers own = numbers(n);
    open(tag, "version=\"1.0\"");
    objectName("Harbour", n);
    areaPolygon(n, vertices, order);
    txParameter(own);
    value("RxThreshold", "dBm", own.aoiThreshold);
    close(tag);
}

void DocumentText::emitter(const char* tag, qint64 n)
{
    open(tag, "version=\"1.0\"");
    objectName("Beacon", n);
    position("Position", place(n));
    txParameter(numbers(n));
    close(tag);
}

void DocumentText::receiver(const char* tag, qint64 n, bool withInterlink)
{
    const Numbers own = numbers(n);
    open(tag, "version=\"1.0\"");
    objectName("Receiver", n);
    position("Position", place(n));
    rxParameter(own);
    if (withInterlink)
        interlink(own);
    close(tag);
}

void DocumentText::df(const char* tag, qint64 n)
{
    const Numbers own = numbers(n);
    open(tag, "version=\"1.0\"");
    objectName("DF", n);
    position("Position", place(n));
    rxParameter(own);
    value("DFprecision", "\xc2\xb0", own.precision);
    interlink(own);
    close(tag);
}

void DocumentText::signalPath(const char* tag, qint64 n, int devices, int maps)
{
    open(tag, "version=\"1.0\"");
    objectName("Path", n);
    leaf("SINAD", version(), m_invalid ? QByteArray("-5") : numbers(n).sinad);
    open("Device", version());
    for (int i = 0; i < devices; ++i)
        pathDevice(n + i);
    close("Device");
    if (maps > 0) {
        map("AntHgtMap", maps);
        map("CabLenMap", maps);
    }
    close(tag);
}

// A station as deep as the vocabulary nests: signal path, device list,
// device, table, value.
void DocumentText::station(qint64 n, int devices, int maps)
{
    const Numbers own = numbers(n);
    open("Station");
    objectName("Hilltop", n);
    signalPath("SignalPath", n, devices, maps);
    position("Position", place(n));
    rxParameter(own);
    value("DFprecision", "\xc2\xb0", own.precision);
    interlink(own);
    close("Station");
}

void DocumentText::resultRecord(qint64 n, const Result& result, int vertices, Order order)
{
    static const char* const tags[] = {"Result_FindSites", "Result_CEP", "Result_DetectProb",
                                       "Result_DfCoverage"};
    const char* tag = tags[result.kind];
    open(tag, "version=\"1.0\"");
    objectName(result.stem, n);
    if (result.kind == 1)
        areaPolygon(n, vertices, order);
    else
        areaRect(n);
    leaf("ResultGrid", result.grid);
    open("Values", QByteArray("version=\"1.0\" unit=\"") + result.unit + '"');
    leaf("Min", result.minimum);
    leaf("Max", result.maximum);
    close("Values");
    close(tag);
}

} // namespace KelXmlBench
