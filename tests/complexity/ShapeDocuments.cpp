#include "ShapeDocuments.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace KelXmlShapes {

namespace {

// A document written as text, without indentation: the elements are what
// counts here, and fewer bytes keep the counting quick.
class Text
{
public:
    void open(const char* tag, const QByteArray& attributes = QByteArray())
    {
        m_bytes.append('<').append(tag);
        if (!attributes.isEmpty())
            m_bytes.append(' ').append(attributes);
        m_bytes.append('>');
    }
    void close(const char* tag) { m_bytes.append("</").append(tag).append('>'); }
    void leaf(const char* tag, const QByteArray& text) { leaf(tag, QByteArray(), text); }
    void leaf(const char* tag, const QByteArray& attributes, const QByteArray& text)
    {
        open(tag, attributes);
        m_bytes.append(text);
        close(tag);
    }
    void empty(const char* tag) { m_bytes.append('<').append(tag).append("/>"); }
    QByteArray take() { return std::move(m_bytes); }

private:
    QByteArray m_bytes;
};

QByteArray integer(qint64 value)
{
    return QByteArray::number(value);
}

QByteArray fixed(double value, int decimals)
{
    return QByteArray::number(value, 'f', decimals);
}

// The attributes of a versioned element: "1.0", or "2.0", which the element
// reads but its check refuses.
QByteArray version(bool bad)
{
    return bad ? "version=\"2.0\"" : "version=\"1.0\"";
}

// A measurement value: version, unit and number; a bad one breaks all three.
void value(Text& t, const char* tag, const char* unit, const QByteArray& number, bool bad = false)
{
    if (bad)
        t.leaf(tag, "version=\"2.0\" unit=\"none\"", "-99999999");
    else
        t.leaf(tag, QByteArray("version=\"1.0\" unit=\"") + unit + '"', number);
}

void name(Text& t, const char* stem, qint64 n, bool bad = false)
{
    t.leaf("Name", bad ? QByteArray() : QByteArray(stem) + ' ' + integer(n));
}

void orderDef(Text& t)
{
    t.open("ORDER_DEF");
    t.leaf("ORDER_ID", "KEL240514093000123");
    t.leaf("ORDER_SENDER", "planning-client");
    t.close("ORDER_DEF");
}

void coordinates(Text& t, double longitude, double latitude)
{
    t.leaf("Longitude", fixed(longitude, 6));
    t.leaf("Latitude", fixed(latitude, 6));
}

// A position near 8 E, 53 N that moves with n; a bad one lies off the globe.
void position(Text& t, const char* tag, qint64 n, bool bad = false)
{
    t.open(tag, "version=\"1.0\"");
    if (bad)
        coordinates(t, 999.0, -999.0);
    else
        coordinates(t, 8.0 + double(n % 1000) / 2000, 53.0 + double(n % 997) / 2000);
    t.close(tag);
}

void areaRect(Text& t, qint64 n, bool bad = false)
{
    t.open("AreaRect", "version=\"1.0\"");
    position(t, "UpperLeft", n, bad);
    position(t, "LowerRight", n + 1, bad);
    t.close("AreaRect");
}

// The order in which a polygon lists its vertex numbers.
enum class Order
{
    Ascending,
    Descending,
    Shuffled,
};

// The numbers 0 .. count-1 in the given order; shuffled by a fixed generator.
std::vector<int> numbers(int count, Order order)
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

// A polygon whose vertices lie on a circle in the order of their numbers, so
// that sorted they make a convex outline. A bad polygon's vertices lie off
// the globe and repeat their numbers.
void areaPolygon(Text& t, int count, Order order, bool bad = false)
{
    t.open("AreaPolygon", "version=\"1.0\"");
    for (int number : numbers(count, order)) {
        const double angle = 2 * 3.14159265358979323846 * number / std::max(count, 1);
        t.open("Vertex", "version=\"1.0\" number=\"" + integer(bad ? number / 2 : number) + '"');
        if (bad)
            coordinates(t, 999.0, -999.0);
        else
            coordinates(t, 8.6 + 0.05 * std::cos(angle), 53.5 + 0.05 * std::sin(angle));
        t.close("Vertex");
    }
    t.close("AreaPolygon");
}

void txParameter(Text& t, qint64 n, bool bad = false)
{
    t.open("TxParameter", version(bad));
    value(t, "Frequency", "MHz", integer(100 + n % 900), bad);
    value(t, "TxPower", "W", integer(1 + n % 50), bad);
    value(t, "AntennaHeight", "m", integer(5 + n % 35), bad);
    value(t, "Bandwidth", "kHz", "25", bad);
    t.close("TxParameter");
}

void rxParameter(Text& t, qint64 n, bool bad = false)
{
    t.open("RxParameter", version(bad));
    value(t, "AntennaHeight", "m", integer(5 + n % 35), bad);
    value(t, "RxThreshold", "dBm", integer(-120 + n % 40), bad);
    t.close("RxParameter");
}

void interlink(Text& t, qint64 n, bool bad = false)
{
    t.open("StationInterlink", version(bad));
    value(t, "Frequency", "MHz", integer(400 + n % 100), bad);
    value(t, "TxPower", "W", "5", bad);
    value(t, "RxThreshold", "dBm", "-100", bad);
    value(t, "AntennaHeight", "m", "10", bad);
    t.close("StationInterlink");
}

void deploymentArea(Text& t, const char* tag, qint64 n, bool bad = false)
{
    t.open(tag, "version=\"1.0\"");
    name(t, "Ridge", n, bad);
    areaRect(t, n, bad);
    value(t, "AntennaHeight", "m", integer(5 + n % 35), bad);
    value(t, "RxThreshold", "dBm", "-110", bad);
    value(t, "Frequency", "MHz", integer(100 + n % 900), bad);
    value(t, "TxPower", "W", "5", bad);
    t.close(tag);
}

void aoi(Text& t, const char* tag, qint64 n, int vertices, Order order, bool bad = false)
{
    t.open(tag, "version=\"1.0\"");
    name(t, "Harbour", n, bad);
    areaPolygon(t, vertices, order, bad);
    txParameter(t, n, bad);
    value(t, "RxThreshold", "dBm", "-107", bad);
    t.close(tag);
}

void emitter(Text& t, const char* tag, qint64 n, bool bad = false)
{
    t.open(tag, "version=\"1.0\"");
    name(t, "Beacon", n, bad);
    position(t, "Position", n, bad);
    txParameter(t, n, bad);
    t.close(tag);
}

void receiver(Text& t, const char* tag, qint64 n, bool bad = false)
{
    t.open(tag, "version=\"1.0\"");
    name(t, "Receiver", n, bad);
    position(t, "Position", n, bad);
    rxParameter(t, n, bad);
    interlink(t, n, bad);
    t.close(tag);
}

void df(Text& t, const char* tag, qint64 n, bool bad = false)
{
    t.open(tag, "version=\"1.0\"");
    name(t, "DF", n, bad);
    position(t, "Position", n, bad);
    rxParameter(t, n, bad);
    value(t, "DFprecision", "\xc2\xb0", "2", bad);
    interlink(t, n, bad);
    t.close(tag);
}

// A list element of `count` values (rising, below 90 for the angles).
void valueList(Text& t, const char* list, const char* member, const char* unit, int count,
               bool bad = false)
{
    t.open(list, version(bad));
    for (int i = 0; i < count; ++i)
        value(t, member, unit, integer(std::strcmp(member, "Degrees") ? 100 + i : i % 90), bad);
    t.close(list);
}

// A device with a table set that reading accepts (noises alone), each table
// `entries` long.
void device(Text& t, qint64 n, int entries = 1, bool bad = false)
{
    t.open("Device", "version=\"1.0\"");
    t.leaf("DeviceCategory", n % 2 ? "Receiver" : "DF");
    name(t, "Receiver unit", n, bad);
    valueList(t, "Frequencies", "Frequency", "MHz", entries, bad);
    valueList(t, "Noises", "Decibel", "dB", entries, bad);
    t.close("Device");
}

// A device carrying all tables of a direction finder, each `entries` long.
void tableDevice(Text& t, int entries)
{
    t.open("Device", "version=\"1.0\"");
    t.leaf("DeviceCategory", "DF");
    name(t, "DF antenna", 0);
    valueList(t, "Frequencies", "Frequency", "MHz", entries);
    valueList(t, "Noises", "Decibel", "dB", entries);
    valueList(t, "Degrees", "Degrees", "\xc2\xb0", entries);
    valueList(t, "DBM", "dBm", "dBm", entries);
    valueList(t, "KFactors", "Decibel", "dB", entries);
    t.close("Device");
}

void map(Text& t, const char* tag, int count, bool bad = false)
{
    t.open(tag, version(bad));
    for (int i = 0; i < count; ++i) {
        t.open("Map", "version=\"1.0\"");
        t.leaf("Key", integer(i));
        value(t, "Value", "m", integer(10 + i % 90), bad);
        t.close("Map");
    }
    t.close(tag);
}

// A signal path with `devices` devices and maps of `maps` entries.
void signalPath(Text& t, const char* tag, qint64 n, int devices, int maps, bool bad = false)
{
    t.open(tag, "version=\"1.0\"");
    name(t, "Path", n, bad);
    t.leaf("SINAD", version(bad), bad ? "-5" : "12");
    t.open("Device", version(bad));
    for (int i = 0; i < devices; ++i)
        device(t, n + i, 1, bad);
    t.close("Device");
    if (maps > 0) {
        map(t, "AntHgtMap", maps, bad);
        map(t, "CabLenMap", maps, bad);
    }
    t.close(tag);
}

// A station as deep as the vocabulary nests: signal path, device list,
// device, table, value.
void station(Text& t, qint64 n, int devices = 1, bool bad = false)
{
    t.open("Station");
    name(t, "Hilltop", n, bad);
    signalPath(t, "SignalPath", n, devices, 1, bad);
    position(t, "Position", n, bad);
    rxParameter(t, n, bad);
    value(t, "DFprecision", "\xc2\xb0", "2", bad);
    interlink(t, n, bad);
    t.close("Station");
}

void reference(Text& t, const char* tag, const char* stem, qint64 n, bool bad = false)
{
    t.leaf(tag, bad ? QByteArray() : QByteArray(stem) + '-' + integer(n));
}

// The command message around the given commands.
template <class Commands>
QByteArray commandMessage(Commands commands)
{
    Text t;
    t.open("Command");
    orderDef(t);
    commands(t);
    t.close("Command");
    return t.take();
}

QByteArray commandPolygon(int vertices, Order order)
{
    return commandMessage([&](Text& t) {
        t.open("Create");
        aoi(t, "AOI", 0, vertices, order);
        reference(t, "Reference", "create", 0);
        t.close("Create");
    });
}

QByteArray commandPolygonAscending(int vertices)
{
    return commandPolygon(vertices, Order::Ascending);
}

QByteArray commandPolygonDescending(int vertices)
{
    return commandPolygon(vertices, Order::Descending);
}

QByteArray commandPolygonShuffled(int vertices)
{
    return commandPolygon(vertices, Order::Shuffled);
}

// Create commands of the eight kinds in turn.
QByteArray commandCreates(int count)
{
    return commandMessage([&](Text& t) {
        for (int n = 0; n < count; ++n) {
            t.open("Create");
            switch (n % 8) {
            case 0:
                deploymentArea(t, "DeploymentArea", n);
                break;
            case 1:
                aoi(t, "AOI", n, 3 + n % 5, Order::Shuffled);
                break;
            case 2:
                emitter(t, "Emitter", n);
                break;
            case 3:
                receiver(t, "Receiver", n);
                break;
            case 4:
                df(t, "DF", n);
                break;
            case 5:
                signalPath(t, "Path", n, 1, 1);
                break;
            case 6:
                device(t, n, 2);
                break;
            default:
                station(t, n);
                break;
            }
            reference(t, "Reference", "create", n);
            t.close("Create");
        }
    });
}

void names(Text& t, const char* tag, qint64 n, int count, bool bad = false)
{
    t.open(tag);
    if (count == 0)
        t.empty("All");
    for (int i = 0; i < count; ++i)
        name(t, "DF", n + i, bad);
    t.close(tag);
}

// Many small commands of every kind, in the order the message takes them.
QByteArray commandMany(int count)
{
    const int quarter = std::max(count / 4, 1);
    return commandMessage([&](Text& t) {
        for (int n = 0; n < quarter; ++n) {
            t.open("Administrative");
            t.empty("QueryVersion");
            reference(t, "Reference", "version", n);
            t.close("Administrative");
        }
        for (int n = 0; n < quarter; ++n) {
            t.open("Create");
            emitter(t, "Emitter", n);
            reference(t, "Reference", "create", n);
            t.close("Create");
        }
        for (int n = 0; n < quarter; ++n) {
            t.open("Delete");
            t.open("Emitter");
            name(t, "Beacon", n);
            t.close("Emitter");
            reference(t, "Reference", "delete", n);
            t.close("Delete");
        }
        t.open("PropagationModel");
        t.leaf("SelectModel", "ITM");
        t.open("PropertiesITM");
        t.leaf("RRI", "300.0000");
        t.leaf("Pol", "V");
        t.leaf("Climate", "Continental Temperate");
        t.leaf("Surface", "Average Ground");
        t.leaf("Conf", "50.00");
        t.leaf("Time", "50.00");
        t.close("PropertiesITM");
        t.leaf("Reference", "model");
        t.close("PropagationModel");
        for (int n = 0; n < quarter; ++n) {
            t.open("Calculate");
            switch (n % 6) {
            case 0:
                t.open("FindPossibleSites");
                names(t, "UseKnownEmitters", n, 1);
                t.open("RandomEmitters");
                t.leaf("Number", integer(100 + n % 400));
                t.leaf("Distribution", "Grid");
                t.close("RandomEmitters");
                names(t, "DeploymentAreas", n, 0);
                t.leaf("ResultGrid", "100");
                t.close("FindPossibleSites");
                break;
            case 1:
                t.open("CEP");
                names(t, "UseDFs", n, 0);
                names(t, "AOIs", n, 1);
                t.leaf("Probability", "90");
                t.leaf("ResultGrid", "50");
                t.close("CEP");
                break;
            case 2:
                t.open("DetectionProbability");
                names(t, "UseRxDFs", n, 0);
                names(t, "AOIs", n, 2);
                t.leaf("ResultGrid", "200");
                t.close("DetectionProbability");
                break;
            case 3:
                t.open("DFcoverage");
                names(t, "UseDFs", n, 2);
                names(t, "AOIs", n, 0);
                t.leaf("ResultGrid", "500");
                t.close("DFcoverage");
                break;
            case 4:
                t.open("InterlinkPlanning");
                t.leaf("FirstName", "North " + integer(n));
                t.leaf("SecondName", "South " + integer(n));
                t.close("InterlinkPlanning");
                break;
            default:
                t.open("BestSensorCov");
                names(t, "UseRxDFs", n, 1);
                names(t, "AOIs", n, 0);
                t.leaf("ResultGrid", "1000");
                t.leaf("Comment", "Survey " + integer(n));
                t.close("BestSensorCov");
                break;
            }
            reference(t, "Reference", "calc", n);
            t.close("Calculate");
        }
    });
}

// One calculation whose two name selections are as long as asked.
QByteArray commandNames(int count)
{
    return commandMessage([&](Text& t) {
        t.open("Calculate");
        t.open("CEP");
        names(t, "UseDFs", 0, count / 2);
        names(t, "AOIs", 0, count - count / 2);
        t.leaf("Probability", "90");
        t.close("CEP");
        reference(t, "Reference", "calc", 0);
        t.close("Calculate");
    });
}

// One device whose five tables share the entries.
QByteArray commandDeviceTables(int entries)
{
    return commandMessage([&](Text& t) {
        t.open("Create");
        tableDevice(t, std::max(entries / 5, 1));
        reference(t, "Reference", "create", 0);
        t.close("Create");
    });
}

// One signal path with as many devices and map entries as asked.
QByteArray commandSignalPath(int count)
{
    return commandMessage([&](Text& t) {
        t.open("Create");
        signalPath(t, "Path", 0, count / 2, count / 4);
        reference(t, "Reference", "create", 0);
        t.close("Create");
    });
}

// Stations, each down to the deepest element of the vocabulary.
QByteArray commandDeep(int count)
{
    return commandMessage([&](Text& t) {
        for (int n = 0; n < count; ++n) {
            t.open("Create");
            station(t, n);
            reference(t, "Reference", "create", n);
            t.close("Create");
        }
    });
}

// Stations and emitters whose every element breaks a rule of its class, at
// every depth; the commands' references are empty.
QByteArray commandInvalid(int count)
{
    return commandMessage([&](Text& t) {
        for (int n = 0; n < count; ++n) {
            t.open("Create");
            if (n % 2)
                emitter(t, "Emitter", n, true);
            else
                station(t, n, 1, true);
            reference(t, "Reference", "create", n, true);
            t.close("Create");
        }
    });
}

// The response message around the given content.
template <class Content>
QByteArray responseMessage(const char* type, Content content)
{
    Text t;
    t.open("Response",
           QByteArray("type=\"") + type + "\" final=\"true\" timestamp=\"2024-05-14T10:00:00\"");
    orderDef(t);
    content(t);
    t.close("Response");
    return t.take();
}

// A grid result of a possible-sites request naming as many emitters and
// areas as asked. A grid result does not read to its end: reading stops
// with an error at the parameters' end tag, after every name.
QByteArray responseGridNames(int count, bool bad)
{
    return responseMessage("automatic", [&](Text& t) {
        t.open("Automatic", "status=\"ack\"");
        reference(t, "CommandReference", "calc", 0);
        t.open("GridResult", "type=\"FindSites\"");
        t.open("FindPossibleSites");
        t.open("Parameter");
        names(t, "UseKnownEmitters", 0, count / 2, bad);
        names(t, "DeploymentAreas", 0, count - count / 2, bad);
        t.close("Parameter");
        t.leaf("ScreenshotFilename", "sites.png");
        t.close("FindPossibleSites");
        t.close("GridResult");
        t.close("Automatic");
    });
}

QByteArray responseNames(int count)
{
    return responseGridNames(count, false);
}

// An interactive result reporting a station with as many devices as asked.
// A result object refuses its own end tag, so reading ends there in error.
QByteArray responseStation(int devices, bool bad)
{
    return responseMessage("interactive", [&](Text& t) {
        t.open("Interactive");
        t.open("Station");
        station(t, 0, devices, bad);
        t.close("Station");
        t.close("Interactive");
    });
}

QByteArray responseDevices(int devices)
{
    return responseStation(devices, false);
}

QByteArray responseInvalid(int devices)
{
    return responseStation(devices, true);
}

QByteArray responseInvalidNames(int count)
{
    return responseGridNames(count, true);
}

// The scenario snapshot around the given objects.
template <class Objects>
QByteArray scenario(Objects objects)
{
    Text t;
    t.open("Scenario", "version=\"1.0\"");
    t.leaf("ScreenshotPath", "/srv/planning/snapshots/harbour.png");
    t.open("DisplayedObjects");
    objects(t);
    t.close("DisplayedObjects");
    t.close("Scenario");
    return t.take();
}

void resultRecord(Text& t, int kind, qint64 n, bool bad = false)
{
    static const char* const tags[] = {"Result_FindSites", "Result_CEP", "Result_DetectProb",
                                       "Result_DfCoverage"};
    const char* tag = tags[kind];
    t.open(tag, "version=\"1.0\"");
    name(t, "Result", n, bad);
    if (kind == 1)
        areaPolygon(t, 3 + int(n % 5), Order::Shuffled, bad);
    else
        areaRect(t, n, bad);
    t.leaf("ResultGrid", "100");
    // A value range of another version is refused while reading: it stays valid.
    t.open("Values", "version=\"1.0\" unit=\"m\"");
    t.leaf("Min", "0");
    t.leaf("Max", "100");
    t.close("Values");
    t.close(tag);
}

// Objects of the nine kinds, an equal share each, in the order the snapshot
// takes them.
QByteArray scenarioObjects(int count, bool bad)
{
    const int share = std::max(count / 9, 1);
    return scenario([&](Text& t) {
        qint64 n = 0;
        for (int kind = 0; kind < 9; ++kind) {
            for (int i = 0; i < share; ++i, ++n) {
                switch (kind) {
                case 0:
                    deploymentArea(t, "DeploymentArea", n, bad);
                    break;
                case 1:
                    aoi(t, "AreaOfInterest", n, 3 + int(n % 5), Order::Shuffled, bad);
                    break;
                case 2:
                    emitter(t, "KnownEmitter", n, bad);
                    break;
                case 3:
                    receiver(t, "Receiver", n, bad);
                    break;
                case 4:
                    df(t, "DirectionFinder", n, bad);
                    break;
                default:
                    resultRecord(t, kind - 5, n, bad);
                    break;
                }
            }
        }
    });
}

QByteArray scenarioValid(int count)
{
    return scenarioObjects(count, false);
}

QByteArray scenarioInvalid(int count)
{
    return scenarioObjects(count, true);
}

QByteArray scenarioEmitters(int count)
{
    return scenario([&](Text& t) {
        for (int n = 0; n < count; ++n)
            emitter(t, "KnownEmitter", n);
    });
}

QByteArray scenarioPolygon(int vertices, Order order)
{
    return scenario([&](Text& t) { aoi(t, "AreaOfInterest", 0, vertices, order); });
}

QByteArray scenarioPolygonDescending(int vertices)
{
    return scenarioPolygon(vertices, Order::Descending);
}

QByteArray scenarioPolygonShuffled(int vertices)
{
    return scenarioPolygon(vertices, Order::Shuffled);
}

QByteArray pairList(int count, bool bad)
{
    Text t;
    t.open("RxThresholds", "version=\"1.0\"");
    for (int n = 0; n < count; ++n) {
        t.open("Pair", version(bad));
        value(t, "Frequency", "MHz", fixed(30 + double(n * 7919 % 2970000) / 1000, 3), bad);
        value(t, "RxThreshold", "dBm", fixed(-120 + double(n % 400) / 10, 1), bad);
        t.close("Pair");
    }
    t.close("RxThresholds");
    return t.take();
}

QByteArray pairs(int count)
{
    return pairList(count, false);
}

QByteArray pairsInvalid(int count)
{
    return pairList(count, true);
}

QByteArray list(const char* member, const char* unit, int count)
{
    Text t;
    valueList(t, "List", member, unit, count);
    return t.take();
}

QByteArray dbmList(int count)
{
    return list("dBm", "dBm", count);
}

QByteArray freqList(int count)
{
    return list("Frequency", "MHz", count);
}

QByteArray decibelList(int count)
{
    return list("Decibel", "dB", count);
}

QByteArray degreesList(int count)
{
    return list("Degrees", "\xc2\xb0", count);
}

QByteArray mapList(int count)
{
    Text t;
    map(t, "AntHgtMap", count);
    return t.take();
}

QByteArray deviceList(int count)
{
    Text t;
    t.open("Devices", "version=\"1.0\"");
    for (int n = 0; n < count; ++n)
        device(t, n);
    t.close("Devices");
    return t.take();
}

QByteArray nameList(int count)
{
    Text t;
    names(t, "UseDFs", 0, count);
    return t.take();
}

QByteArray polygon(int vertices, Order order)
{
    Text t;
    areaPolygon(t, vertices, order);
    return t.take();
}

QByteArray polygonAscending(int vertices)
{
    return polygon(vertices, Order::Ascending);
}

QByteArray polygonDescending(int vertices)
{
    return polygon(vertices, Order::Descending);
}

QByteArray polygonShuffled(int vertices)
{
    return polygon(vertices, Order::Shuffled);
}

} // namespace

namespace {

// A shape; its group is its document kind, or "lists" for the classes that
// are documents of their own. Tools: the tool commands, comma-separated.
Shape shape(const char* name, const char* className, int units, const char* tools,
            const char* about, QByteArray (*generate)(int))
{
    const QString kind = QLatin1String(className);
    const bool root = kind == QLatin1String("command") || kind == QLatin1String("response") ||
                      kind == QLatin1String("scenario");
    return {QLatin1String(name),
            kind,
            root ? kind : QStringLiteral("lists"),
            units,
            QString::fromLatin1(tools).split(QLatin1Char(','), Qt::SkipEmptyParts),
            QLatin1String(about),
            generate};
}

Shape extra(Shape shape)
{
    shape.group = QStringLiteral("extra");
    return shape;
}

} // namespace

const std::vector<Shape>& shapes()
{
    static const std::vector<Shape> table = {
        // Command messages.
        shape("command-polygon-descending", "command", 7000, "geojson,svg",
              "one area of interest whose polygon lists its vertices in descending order",
              commandPolygonDescending),
        shape("command-polygon-shuffled", "command", 7000, "",
              "the same polygon, vertices in shuffled order", commandPolygonShuffled),
        shape("command-creates", "command", 1100, "", "create commands of the eight kinds in turn",
              commandCreates),
        shape("command-many", "command", 3000, "", "many small commands of every kind",
              commandMany),
        shape("command-names", "command", 20000, "",
              "one calculation whose name selections list many names", commandNames),
        shape("command-device-tables", "command", 20000, "",
              "one device whose five tables are long", commandDeviceTables),
        shape("command-signal-path", "command", 4000, "",
              "one signal path with many devices and long maps", commandSignalPath),
        shape("command-deep", "command", 600, "",
              "stations down to the deepest element of the vocabulary", commandDeep),
        shape("command-invalid", "command", 900, "check,geojson",
              "stations and emitters whose every element is invalid", commandInvalid),
        // Response messages.
        shape("response-devices", "response", 3000, "",
              "an interactive result: a station with many devices", responseDevices),
        shape("response-invalid", "response", 3000, "", "the same station, every element invalid",
              responseInvalid),
        // Scenario snapshots.
        shape("scenario-objects", "scenario", 1400, "format,svg",
              "objects of the nine kinds, a share each", scenarioValid),
        shape("scenario-emitters", "scenario", 2000, "geojson", "many known emitters",
              scenarioEmitters),
        shape("scenario-polygon-descending", "scenario", 7000, "",
              "one area of interest whose vertices come in descending order",
              scenarioPolygonDescending),
        shape("scenario-invalid", "scenario", 1400, "check,svg",
              "objects of the nine kinds whose every element is invalid", scenarioInvalid),
        // Lists and maps that are documents of their own.
        shape("pairs", "XmlFreqThrListType", 7000, "", "a list of frequency/threshold pairs",
              pairs),
        shape("pairs-invalid", "XmlFreqThrListType", 7000, "check",
              "pairs of version \"2.0\" whose values are invalid", pairsInvalid),
        shape("dbm-list", "XmlDBMListType", 20000, "", "a list of dBm levels", dbmList),
        shape("map-list", "XmlMapListType", 7000, "", "a key/length map", mapList),
        shape("device-list", "XmlDeviceListType", 3000, "", "a list of devices", deviceList),
        shape("polygon-ascending", "XmlAreaPolyType", 7000, "",
              "a polygon alone, vertices ascending", polygonAscending),
        // More of the same paths, left out of the test command for its time:
        // run-complexity.sh ... extra.
        extra(shape("command-polygon-ascending", "command", 7000, "check,format",
                    "one area of interest whose polygon lists its vertices in ascending order",
                    commandPolygonAscending)),
        extra(shape("command-many-checked", "command", 3000, "check,geojson",
                    "many small commands of every kind", commandMany)),
        extra(shape("scenario-polygon-shuffled", "scenario", 7000, "geojson,svg",
                    "one area of interest whose vertices come in shuffled order",
                    scenarioPolygonShuffled)),
        extra(shape("response-names", "response", 20000, "",
                    "a grid result naming many emitters and areas", responseNames)),
        extra(shape("response-invalid-names", "response", 20000, "",
                    "the grid result with every name empty", responseInvalidNames)),
        extra(shape("pairs-checked", "XmlFreqThrListType", 7000, "check,format",
                    "a list of frequency/threshold pairs", pairs)),
        extra(shape("freq-list", "XmlFreqListType", 20000, "", "a list of frequencies", freqList)),
        extra(shape("decibel-list", "XmlDecibelListType", 20000, "", "a list of dB values",
                    decibelList)),
        extra(shape("degrees-list", "XmlDegreesListType", 20000, "", "a list of angles",
                    degreesList)),
        extra(shape("name-list", "XmlNameAllMultiType", 20000, "", "a selection of many names",
                    nameList)),
        extra(shape("polygon-descending", "XmlAreaPolyType", 7000, "",
                    "a polygon alone, vertices descending", polygonDescending)),
        extra(shape("polygon-shuffled", "XmlAreaPolyType", 7000, "",
                    "a polygon alone, vertices shuffled", polygonShuffled)),
    };
    return table;
}

const Shape* find(const QString& name)
{
    for (const Shape& shape : shapes()) {
        if (shape.name == name)
            return &shape;
    }
    return nullptr;
}

int elementCount(const QByteArray& document)
{
    int count = 0;
    const char* p = document.constData();
    const char* const end = p + document.size();
    for (; p + 1 < end; ++p) {
        if (*p == '<' && p[1] != '/' && p[1] != '?' && p[1] != '!')
            ++count;
    }
    return count;
}

} // namespace KelXmlShapes
