#include "BenchDocuments.h"

#include "DocumentText.h"

#include <XmlCmdRoot.h>
#include <XmlFreqThrListType.h>
#include <XmlKelBtType.h>
#include <XmlRespRoot.h>

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <cstdio>

namespace KelXmlBench {

namespace {

// A value that walks through [low, low + span) in `steps` steps as n grows,
// hopping about so that neighbours differ.
double spread(qint64 n, double low, double span, int steps = 997)
{
    return low + span * double((n * 389) % steps) / steps;
}

const char* const resultGrids[] = {"50", "100", "200", "500", "1000"};

// The documents of the benchmarks: indented as the samples are, every object
// valid, its numbers varying from object to object.
class Text : public DocumentText
{
public:
    Text()
        : DocumentText(Indented)
    {}

    void device(qint64 n)
    {
        const bool directionFinder = n % 2 == 0;
        DocumentText::device(directionFinder ? "DF" : "Receiver",
                             directionFinder ? "DF antenna" : "Receiver unit", n, 2 + int(n % 4),
                             {frequencies.from(double(100 + n % 50)), noises,
                              directionFinder ? degrees : gains, dbm, kFactors});
    }

    // The create command n: the eight kinds in turn.
    void create(qint64 n)
    {
        createCommand(n, [this, n] {
            switch (n % 8) {
            case 0:
                deploymentArea("DeploymentArea", n);
                break;
            case 1:
                aoi("AOI", n, 4 + int(n % 9), Order::Ascending);
                break;
            case 2:
                emitter("Emitter", n);
                break;
            case 3:
                receiver("Receiver", n, n % 2 != 0);
                break;
            case 4:
                df("DF", n);
                break;
            case 5:
                signalPath("Path", n, 2, 0);
                break;
            case 6:
                device(n);
                break;
            default:
                station(n, 2, 0);
                break;
            }
        });
    }

    // The calculation command n: the six kinds in turn.
    void calculation(qint64 n)
    {
        static const Calculation kinds[] = {
            {Calculation::FindSites, 1, 0, {}, nullptr, nullptr},
            {Calculation::Cep, 0, 1, {}, nullptr, nullptr},
            {Calculation::DetectionProbability, 0, 2, {}, nullptr, nullptr},
            {Calculation::DfCoverage, 3, 0, {}, nullptr, nullptr},
            {Calculation::InterlinkPlanning, 0, 0, {}, "North ridge", "Harbour tower"},
            {Calculation::BestSensor, 2, 0, {}, nullptr, nullptr},
        };
        Calculation calculation = kinds[n % 6];
        if (calculation.kind == Calculation::FindSites)
            calculation.first += int(n % 3);
        if (calculation.kind != Calculation::InterlinkPlanning)
            calculation.grid = resultGrids[n % 5];
        calculate(n, calculation);
    }

    void resultRecord(int kind, qint64 n, int vertices)
    {
        static const Result results[] = {{0, "FindSites", {}, "%", "0", "100"},
                                         {1, "CEP", {}, "m", "12.5", "840"},
                                         {2, "DetectProb", {}, "%", "0", "99.5"},
                                         {3, "DfCoverage", {}, "dBm", "-120", "-40.5"}};
        Result result = results[kind];
        result.grid = resultGrids[n % 5];
        DocumentText::resultRecord(n, result, vertices, Order::Ascending);
    }

protected:
    Numbers numbers(qint64 n) const override
    {
        const QByteArray threshold = fixed(spread(n, -120, 40, 400), 1);
        return {fixed(spread(n, 30, 2970), 3),
                fixed(spread(n, 1, 50, 100), 1),
                integer(5 + n % 35),
                n % 2 ? "25" : "16",
                threshold,
                threshold,
                integer(1 + n % 50),
                threshold,
                integer(1 + n % 3),
                integer(10 + n % 10),
                "GHz",
                fixed(spread(n, 1, 9, 90), 1),
                integer(1 + n % 10),
                integer(-100 + n % 20),
                integer(10 + n % 30)};
    }
    Position place(qint64 n) const override { return {spread(n, 5, 10), spread(n + 17, 45, 10)}; }
    std::pair<Position, Position> corners(qint64 n) const override
    {
        const double longitude = spread(n, 5, 10);
        const double latitude = spread(n + 5, 45, 10);
        return {{longitude, latitude + 0.2}, {longitude + 0.4, latitude}};
    }
    Position centre(qint64 n) const override { return {spread(n, 5, 10), spread(n + 11, 45, 10)}; }
    QByteArray tableValue(const ValueTable& table, int i) const override
    {
        return fixed(table.first + i * table.step, 1);
    }
    void pathDevice(qint64 n) override { device(n); }
};

QByteArray commandMessage(qint64 bytes)
{
    Text t;
    t.open("Command");
    t.orderDef();
    t.administrative(1);
    // Creates fill three quarters of the message, calculations the rest.
    const qint64 createBytes = bytes * 3 / 4;
    for (qint64 n = 0; n == 0 || t.size() < createBytes; ++n)
        t.create(n);
    for (int n = 0; n < 2; ++n)
        t.deleteEmitter(n);
    t.propagationModel("pm-itm");
    for (qint64 n = 0; n == 0 || t.size() + 12 < bytes; ++n)
        t.calculation(n);
    t.close("Command");
    return t.take();
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
                t.deploymentArea("DeploymentArea", n);
                break;
            case 1:
                t.aoi("AreaOfInterest", n, vertices, Order::Ascending);
                break;
            case 2:
                t.emitter("KnownEmitter", n);
                break;
            case 3:
                t.receiver("Receiver", n, n % 2 != 0);
                break;
            case 4:
                t.df("DirectionFinder", n);
                break;
            default:
                t.resultRecord(stage - 5, n, vertices);
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
    t.orderDef();
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
    for (qint64 n = 0; n < count || t.size() + 16 < bytes; ++n)
        t.pair(n);
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
