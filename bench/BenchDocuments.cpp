#include "BenchDocuments.h"

#include <XmlCmdRoot.h>
#include <XmlFreqThrListType.h>
#include <XmlKelBtType.h>
#include <XmlRespRoot.h>

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <cmath>
#include <cstdio>

namespace KelXmlBench {

namespace {

// An indented document written as text, two spaces a level, as the samples
// are laid out.
class Text
{
public:
    Text() { m_bytes.append("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"); }

    void open(const char* tag, const QByteArray& attributes = QByteArray())
    {
        indent();
        m_bytes.append('<').append(tag);
        if (!attributes.isEmpty())
            m_bytes.append(' ').append(attributes);
        m_bytes.append(">\n");
        ++m_depth;
    }
    void close(const char* tag)
    {
        --m_depth;
        indent();
        m_bytes.append("</").append(tag).append(">\n");
    }
    void leaf(const char* tag, const QByteArray& text) { leaf(tag, QByteArray(), text); }
    void leaf(const char* tag, const QByteArray& attributes, const QByteArray& text)
    {
        indent();
        m_bytes.append('<').append(tag);
        if (!attributes.isEmpty())
            m_bytes.append(' ').append(attributes);
        m_bytes.append('>').append(text).append("</").append(tag).append(">\n");
    }
    // A value element of the measurement classes: version, unit and number.
    void value(const char* tag, const char* unit, const QByteArray& number)
    {
        leaf(tag, QByteArray("version=\"1.0\" unit=\"") + unit + '"', number);
    }
    void empty(const char* tag)
    {
        indent();
        m_bytes.append('<').append(tag).append("/>\n");
    }

    qint64 size() const { return m_bytes.size(); }
    QByteArray take() { return std::move(m_bytes); }

private:
    void indent() { m_bytes.append(QByteArray(2 * m_depth, ' ')); }

    QByteArray m_bytes;
    int m_depth = 0;
};

QByteArray fixed(double value, int decimals)
{
    return QByteArray::number(value, 'f', decimals);
}

QByteArray integer(qint64 value)
{
    return QByteArray::number(value);
}

// A value that walks through [low, low + span) in `steps` steps as n grows,
// hopping about so that neighbours differ.
double spread(qint64 n, double low, double span, int steps = 997)
{
    return low + span * double((n * 389) % steps) / steps;
}

const char* const resultGrids[] = {"50", "100", "200", "500", "1000"};

QByteArray name(const char* stem, qint64 n)
{
    return QByteArray(stem) + ' ' + integer(n);
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

void position(Text& t, const char* tag, qint64 n)
{
    t.open(tag, "version=\"1.0\"");
    coordinates(t, spread(n, 5, 10), spread(n + 17, 45, 10));
    t.close(tag);
}

void areaRect(Text& t, qint64 n)
{
    const double longitude = spread(n, 5, 10);
    const double latitude = spread(n + 5, 45, 10);
    t.open("AreaRect", "version=\"1.0\"");
    t.open("UpperLeft", "version=\"1.0\"");
    coordinates(t, longitude, latitude + 0.2);
    t.close("UpperLeft");
    t.open("LowerRight", "version=\"1.0\"");
    coordinates(t, longitude + 0.4, latitude);
    t.close("LowerRight");
    t.close("AreaRect");
}

// A convex polygon of `vertices` numbered vertices round a centre.
void areaPolygon(Text& t, qint64 n, int vertices)
{
    const double longitude = spread(n, 5, 10);
    const double latitude = spread(n + 11, 45, 10);
    t.open("AreaPolygon", "version=\"1.0\"");
    for (int v = 0; v < vertices; ++v) {
        const double angle = 2 * 3.14159265358979323846 * v / vertices;
        t.open("Vertex", "version=\"1.0\" number=\"" + integer(v) + '"');
        coordinates(t, longitude + 0.05 * std::cos(angle), latitude + 0.05 * std::sin(angle));
        t.close("Vertex");
    }
    t.close("AreaPolygon");
}

void txParameter(Text& t, qint64 n)
{
    t.open("TxParameter", "version=\"1.0\"");
    t.value("Frequency", "MHz", fixed(spread(n, 30, 2970), 3));
    t.value("TxPower", "W", fixed(spread(n, 1, 50, 100), 1));
    t.value("AntennaHeight", "m", integer(5 + n % 35));
    t.value("Bandwidth", "kHz", n % 2 ? "25" : "16");
    t.close("TxParameter");
}

void rxParameter(Text& t, qint64 n)
{
    t.open("RxParameter", "version=\"1.0\"");
    t.value("AntennaHeight", "m", integer(5 + n % 35));
    t.value("RxThreshold", "dBm", fixed(spread(n, -120, 40, 400), 1));
    t.close("RxParameter");
}

void interlink(Text& t, qint64 n)
{
    t.open("StationInterlink", "version=\"1.0\"");
    t.value("Frequency", "GHz", fixed(spread(n, 1, 9, 90), 1));
    t.value("TxPower", "W", integer(1 + n % 10));
    t.value("RxThreshold", "dBm", integer(-100 + n % 20));
    t.value("AntennaHeight", "m", integer(10 + n % 30));
    t.close("StationInterlink");
}

void deploymentArea(Text& t, const char* tag, qint64 n)
{
    t.open(tag, "version=\"1.0\"");
    t.leaf("Name", name("Ridge", n));
    areaRect(t, n);
    t.value("AntennaHeight", "m", integer(5 + n % 35));
    t.value("RxThreshold", "dBm", fixed(spread(n, -120, 40, 400), 1));
    t.value("Frequency", "MHz", fixed(spread(n, 30, 2970), 3));
    t.value("TxPower", "W", integer(1 + n % 50));
    t.close(tag);
}

void aoi(Text& t, const char* tag, qint64 n, int vertices)
{
    t.open(tag, "version=\"1.0\"");
    t.leaf("Name", name("Harbour", n));
    areaPolygon(t, n, vertices);
    txParameter(t, n);
    t.value("RxThreshold", "dBm", fixed(spread(n, -120, 40, 400), 1));
    t.close(tag);
}

void emitter(Text& t, const char* tag, qint64 n)
{
    t.open(tag, "version=\"1.0\"");
    t.leaf("Name", name("Beacon", n));
    position(t, "Position", n);
    txParameter(t, n);
    t.close(tag);
}

void receiver(Text& t, const char* tag, qint64 n)
{
    t.open(tag, "version=\"1.0\"");
    t.leaf("Name", name("Receiver", n));
    position(t, "Position", n);
    rxParameter(t, n);
    if (n % 2)
        interlink(t, n);
    t.close(tag);
}

void df(Text& t, const char* tag, qint64 n)
{
    t.open(tag, "version=\"1.0\"");
    t.leaf("Name", name("DF", n));
    position(t, "Position", n);
    rxParameter(t, n);
    t.value("DFprecision", "\xc2\xb0", integer(1 + n % 3));
    interlink(t, n);
    t.close(tag);
}

// One list of a device's table: `count` values rising from `first`.
void valueList(Text& t, const char* list, const char* member, const char* unit, int count,
               double first, double step)
{
    t.open(list, "version=\"1.0\"");
    for (int i = 0; i < count; ++i)
        t.value(member, unit, fixed(first + i * step, 1));
    t.close(list);
}

void device(Text& t, qint64 n)
{
    const int entries = 2 + int(n % 4);
    const bool directionFinder = n % 2 == 0;
    t.open("Device", "version=\"1.0\"");
    t.leaf("DeviceCategory", directionFinder ? "DF" : "Receiver");
    t.leaf("Name", name(directionFinder ? "DF antenna" : "Receiver unit", n));
    valueList(t, "Frequencies", "Frequency", "MHz", entries, 100 + n % 50, 100);
    valueList(t, "Noises", "Decibel", "dB", entries, 6, 0.5);
    if (directionFinder)
        valueList(t, "Degrees", "Degrees", "\xc2\xb0", entries, 1.5, 0.5);
    else
        valueList(t, "Gains", "Decibel", "dB", entries, 2, 0.5);
    valueList(t, "DBM", "dBm", "dBm", entries, 10, 0.5);
    valueList(t, "KFactors", "Decibel", "dB", entries, 20, 1);
    t.close("Device");
}

void signalPath(Text& t, const char* tag, qint64 n)
{
    t.open(tag, "version=\"1.0\"");
    t.leaf("Name", name("Path", n));
    t.leaf("SINAD", "version=\"1.0\"", integer(10 + n % 10));
    t.open("Device", "version=\"1.0\"");
    device(t, n);
    device(t, n + 1);
    t.close("Device");
    t.close(tag);
}

void station(Text& t, qint64 n)
{
    t.open("Station");
    t.leaf("Name", name("Hilltop", n));
    signalPath(t, "SignalPath", n);
    position(t, "Position", n);
    rxParameter(t, n);
    t.value("DFprecision", "\xc2\xb0", integer(1 + n % 3));
    interlink(t, n);
    t.close("Station");
}

// The create command n: the eight kinds in turn.
void create(Text& t, qint64 n)
{
    t.open("Create");
    switch (n % 8) {
    case 0:
        deploymentArea(t, "DeploymentArea", n);
        break;
    case 1:
        aoi(t, "AOI", n, 4 + int(n % 9));
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
        signalPath(t, "Path", n);
        break;
    case 6:
        device(t, n);
        break;
    default:
        station(t, n);
        break;
    }
    t.leaf("Reference", "create-" + integer(n));
    t.close("Create");
}

void names(Text& t, const char* tag, qint64 n, int count)
{
    if (count == 0) {
        t.leaf(tag, "<All/>");
        return;
    }
    t.open(tag);
    for (int i = 0; i < count; ++i)
        t.leaf("Name", name("DF", n + i));
    t.close(tag);
}

// The calculation command n: the six kinds in turn.
void calculation(Text& t, qint64 n)
{
    const QByteArray grid = resultGrids[n % 5];
    t.open("Calculate");
    switch (n % 6) {
    case 0:
        t.open("FindPossibleSites");
        names(t, "UseKnownEmitters", n, 1 + int(n % 3));
        t.open("RandomEmitters");
        t.leaf("Number", integer(100 + n % 400));
        t.leaf("Distribution", "Grid");
        t.close("RandomEmitters");
        names(t, "DeploymentAreas", n, 0);
        t.leaf("ResultGrid", grid);
        t.close("FindPossibleSites");
        break;
    case 1:
        t.open("CEP");
        names(t, "UseDFs", n, 0);
        names(t, "AOIs", n, 1);
        t.leaf("Probability", "90");
        t.leaf("ResultGrid", grid);
        t.close("CEP");
        break;
    case 2:
        t.open("DetectionProbability");
        names(t, "UseRxDFs", n, 0);
        names(t, "AOIs", n, 2);
        t.leaf("ResultGrid", grid);
        t.close("DetectionProbability");
        break;
    case 3:
        t.open("DFcoverage");
        names(t, "UseDFs", n, 3);
        names(t, "AOIs", n, 0);
        t.leaf("ResultGrid", grid);
        t.close("DFcoverage");
        break;
    case 4:
        t.open("InterlinkPlanning");
        t.leaf("FirstName", name("North ridge", n));
        t.leaf("SecondName", name("Harbour tower", n));
        t.close("InterlinkPlanning");
        break;
    default:
        t.open("BestSensorCov");
        names(t, "UseRxDFs", n, 2);
        names(t, "AOIs", n, 0);
        t.leaf("ResultGrid", grid);
        t.leaf("Comment", "Survey " + integer(n));
        t.close("BestSensorCov");
        break;
    }
    t.leaf("Reference", "calc-" + integer(n));
    t.close("Calculate");
}

QByteArray commandMessage(qint64 bytes)
{
    Text t;
    t.open("Command");
    orderDef(t);
    t.open("Administrative");
    t.empty("QueryVersion");
    t.leaf("Reference", "version-1");
    t.close("Administrative");
    // Creates fill three quarters of the message, calculations the rest.
    const qint64 createBytes = bytes * 3 / 4;
    for (qint64 n = 0; n == 0 || t.size() < createBytes; ++n)
        create(t, n);
    for (int n = 0; n < 2; ++n) {
        t.open("Delete");
        t.open("Emitter");
        t.leaf("Name", name("Beacon", n));
        t.close("Emitter");
        t.leaf("Reference", "delete-" + integer(n));
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
    t.leaf("Reference", "pm-itm");
    t.close("PropagationModel");
    for (qint64 n = 0; n == 0 || t.size() + 12 < bytes; ++n)
        calculation(t, n);
    t.close("Command");
    return t.take();
}

void resultRecord(Text& t, int kind, qint64 n, int vertices)
{
    static const char* const tags[] = {"Result_FindSites", "Result_CEP", "Result_DetectProb",
                                       "Result_DfCoverage"};
    static const char* const units[] = {"%", "m", "%", "dBm"};
    static const char* const minima[] = {"0", "12.5", "0", "-120"};
    static const char* const maxima[] = {"100", "840", "99.5", "-40.5"};
    const char* tag = tags[kind];
    t.open(tag, "version=\"1.0\"");
    t.leaf("Name", name(tag + 7, n));
    if (kind == 1)
        areaPolygon(t, n, vertices);
    else
        areaRect(t, n);
    t.leaf("ResultGrid", resultGrids[n % 5]);
    t.open("Values", QByteArray("version=\"1.0\" unit=\"") + units[kind] + '"');
    t.leaf("Min", minima[kind]);
    t.leaf("Max", maxima[kind]);
    t.close("Values");
    t.close(tag);
}

QByteArray snapshot(qint64 bytes)
{
    // Polygons grow with the document up to a thousand vertices.
    const int vertices = int(qBound(qint64(3), bytes / 20000, qint64(1000)));
    Text t;
    t.open("Scenario", "version=\"1.0\"");
    t.leaf("ScreenshotPath", "/srv/planning/snapshots/harbour-2021-03-04.png");
    t.open("DisplayedObjects");
    // The kinds stand grouped in their fixed order; each fills its share of
    // the document (in hundredths, cumulative), and at least one of each.
    static const int shares[] = {5, 50, 60, 70, 85, 90, 95, 98, 100};
    qint64 n = 0;
    for (int stage = 0; stage < 9; ++stage) {
        const qint64 end = bytes * shares[stage] / 100;
        for (bool first = true; first || t.size() + 24 < end; first = false, ++n) {
            switch (stage) {
            case 0:
                deploymentArea(t, "DeploymentArea", n);
                break;
            case 1:
                aoi(t, "AreaOfInterest", n, vertices);
                break;
            case 2:
                emitter(t, "KnownEmitter", n);
                break;
            case 3:
                receiver(t, "Receiver", n);
                break;
            case 4:
                df(t, "DirectionFinder", n);
                break;
            default:
                resultRecord(t, stage - 5, n, vertices);
                break;
            }
        }
    }
    t.close("DisplayedObjects");
    t.close("Scenario");
    return t.take();
}

// A time of day on a fixed date, n seconds after midnight.
QByteArray timestamp(qint64 n)
{
    const qint64 s = n % 86400;
    char text[24];
    std::snprintf(text, sizeof text, "2024-05-14T%02d:%02d:%02d", int(s / 3600), int(s / 60 % 60),
                  int(s % 60));
    return QByteArray(text);
}

void interlinkResult(Text& t, qint64 n)
{
    t.open("InterlinkResult");
    t.open("Parameters");
    t.leaf("FirstName", name("North ridge", n));
    t.leaf("SecondName", name("Harbour tower", n));
    t.close("Parameters");
    t.open("Result");
    t.leaf("Text", "Link possible: " + fixed(spread(n, 1, 20, 200), 1) + " dB margin at " +
                       integer(100 + n % 900) + " MHz");
    if (n % 2)
        t.leaf("ScreenshotFilename", "link-" + integer(n) + ".png");
    t.close("Result");
    t.close("InterlinkResult");
}

// The response message n: interlink results, automatic and interactive,
// and acknowledgements with an estimated time.
void response(Text& t, qint64 n)
{
    const int kind = int(n % 4);
    const char* type = kind == 2 ? "interactive" : "automatic";
    t.open("Response", QByteArray("type=\"") + type + "\" final=\"" +
                           (kind == 3 ? "false" : "true") + "\" timestamp=\"" + timestamp(n) + '"');
    orderDef(t);
    if (kind == 2) {
        t.open("Interactive");
        interlinkResult(t, n);
        t.close("Interactive");
    } else {
        t.open("Automatic", "status=\"ack\"");
        t.leaf("CommandReference", "link-" + integer(n));
        if (kind == 3)
            t.leaf("EstimatedTime", timestamp(n + 900));
        else
            interlinkResult(t, n);
        t.close("Automatic");
    }
    t.close("Response");
}

QByteArray responses(qint64 bytes)
{
    Text t;
    t.open("Responses");
    for (qint64 n = 0; n == 0 || t.size() + 14 < bytes; ++n)
        response(t, n);
    t.close("Responses");
    return t.take();
}

} // namespace

QString kindName(DocumentKind kind)
{
    switch (kind) {
    case DocumentKind::Command:
        return QStringLiteral("command");
    case DocumentKind::Snapshot:
        return QStringLiteral("snapshot");
    case DocumentKind::Responses:
        return QStringLiteral("responses");
    case DocumentKind::PairList:
        return QStringLiteral("pairs");
    }
    return QString();
}

bool kindFromName(const QString& name, DocumentKind* kind)
{
    for (DocumentKind k : {DocumentKind::Command, DocumentKind::Snapshot, DocumentKind::Responses,
                           DocumentKind::PairList}) {
        if (kindName(k) == name) {
            *kind = k;
            return true;
        }
    }
    return false;
}

namespace {

// Pairs until there are `pairs` of them and the document has `bytes` bytes.
QByteArray pairs(qint64 count, qint64 bytes)
{
    Text t;
    t.open("RxThresholds", "version=\"1.0\"");
    for (qint64 n = 0; n < count || t.size() + 16 < bytes; ++n) {
        t.open("Pair", "version=\"1.0\"");
        t.value("Frequency", "MHz", fixed(30 + double(n * 7919 % 2970000) / 1000, 3));
        t.value("RxThreshold", "dBm", fixed(-120 + double(n % 400) / 10, 1));
        t.close("Pair");
    }
    t.close("RxThresholds");
    return t.take();
}

} // namespace

QByteArray pairList(int count)
{
    return pairs(count, 0);
}

QByteArray generate(DocumentKind kind, qint64 bytes)
{
    switch (kind) {
    case DocumentKind::Command:
        return commandMessage(bytes);
    case DocumentKind::Snapshot:
        return snapshot(bytes);
    case DocumentKind::Responses:
        return responses(bytes);
    case DocumentKind::PairList:
        return pairs(1, bytes);
    }
    return QByteArray();
}

Model::Model(DocumentKind kind)
    : m_kind(kind)
{
    switch (kind) {
    case DocumentKind::Command:
        m_root.reset(new KelXml::XmlCmdRoot);
        break;
    case DocumentKind::Snapshot:
        m_root.reset(new KelXml::XmlKelBtType);
        break;
    case DocumentKind::PairList:
        m_root.reset(new KelXml::XmlFreqThrListType);
        break;
    case DocumentKind::Responses:
        break;
    }
}

Model::~Model() = default;

bool Model::read(QXmlStreamReader& reader)
{
    if (!reader.readNextStartElement())
        return false;
    m_rootName = reader.name().toString();
    if (m_root) {
        m_root->processXml(reader, m_rootName);
        return !reader.hasError();
    }
    static const QString responseName = QStringLiteral("Response");
    while (reader.readNextStartElement()) {
        m_list.emplace_back(new KelXml::XmlRespRoot);
        m_list.back()->processXml(reader, responseName);
    }
    return !reader.hasError();
}

bool Model::isValid() const
{
    if (m_root)
        return m_root->isValid();
    for (const auto& element : m_list) {
        if (!element->isValid())
            return false;
    }
    return true;
}

QString Model::syntaxError() const
{
    if (m_root)
        return m_root->syntaxError();
    QString report;
    for (const auto& element : m_list)
        report += element->syntaxError();
    return report;
}

void Model::write(QXmlStreamWriter& writer) const
{
    writer.writeStartDocument();
    if (m_root) {
        m_root->produceXml(writer, m_rootName);
    } else {
        static const QString responseName = QStringLiteral("Response");
        writer.writeStartElement(m_rootName);
        for (const auto& element : m_list)
            element->produceXml(writer, responseName);
        writer.writeEndElement();
    }
    writer.writeEndDocument();
}

QString verify(DocumentKind kind, const QByteArray& document)
{
    QXmlStreamReader reader(document);
    Model model(kind);
    if (!model.read(reader))
        return reader.hasError() ? reader.errorString() : QStringLiteral("no root element");
    if (!model.isValid())
        return model.syntaxError();
    return QString();
}

} // namespace KelXmlBench
