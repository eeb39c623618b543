#include "ShapeDocuments.h"

#include <DocumentText.h>
#include <XmlDocumentKind.h>

#include <algorithm>
#include <cstring>

namespace KelXmlShapes {

namespace {

using KelXmlBench::Calculation;
using KelXmlBench::fixed;
using KelXmlBench::integer;
using KelXmlBench::Numbers;
using KelXmlBench::Order;
using KelXmlBench::Position;
using KelXmlBench::ValueTable;

// The documents of the complexity test: without indentation, as the elements
// are what counts here and fewer bytes keep the counting quick; the same
// numbers for most objects, and devices and signal paths as small or as large
// as a shape asks.
class Text : public KelXmlBench::DocumentText
{
public:
    Text()
        : DocumentText(Compact)
    {}

    // A device with a table set that reading accepts (noises alone), each
    // table `entries` long.
    void device(qint64 n, int entries = 1)
    {
        DocumentText::device(n % 2 ? "Receiver" : "DF", "Receiver unit", n, entries,
                             {KelXmlBench::frequencies, KelXmlBench::noises});
    }

    // A device carrying all tables of a direction finder, each `entries` long.
    void tableDevice(int entries)
    {
        DocumentText::device("DF", "DF antenna", 0, entries,
                             {KelXmlBench::frequencies, KelXmlBench::noises, KelXmlBench::degrees,
                              KelXmlBench::dbm, KelXmlBench::kFactors});
    }

    // A value range of another version is refused while reading: it stays
    // valid in an invalid snapshot.
    void resultRecord(int kind, qint64 n)
    {
        DocumentText::resultRecord(n, {kind, "Result", "100", "m", "0", "100"}, 3 + int(n % 5),
                                   Order::Shuffled);
    }

    // The command message around the given commands.
    template <class Commands>
    static QByteArray command(Commands commands)
    {
        Text t;
        t.open("Command");
        t.orderDef();
        commands(t);
        t.close("Command");
        return t.take();
    }

    // The response message around the given content.
    template <class Content>
    static QByteArray response(const char* type, Content content)
    {
        Text t;
        t.open("Response", QByteArray("type=\"") + type +
                               "\" final=\"true\" timestamp=\"2024-05-14T10:00:00\"");
        t.orderDef();
        content(t);
        t.close("Response");
        return t.take();
    }

    // The scenario snapshot around the given objects.
    template <class Objects>
    static QByteArray scenario(Objects objects)
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

    // A document of its own.
    template <class Content>
    static QByteArray alone(Content content)
    {
        Text t;
        content(t);
        return t.take();
    }

protected:
    Numbers numbers(qint64 n) const override
    {
        return {integer(100 + n % 900),
                integer(1 + n % 50),
                integer(5 + n % 35),
                "25",
                integer(-120 + n % 40),
                "-110",
                "5",
                "-107",
                "2",
                "12",
                "MHz",
                integer(400 + n % 100),
                "5",
                "-100",
                "10"};
    }
    // Near 8 E, 53 N, moving with n.
    Position place(qint64 n) const override
    {
        return {8.0 + double(n % 1000) / 2000, 53.0 + double(n % 997) / 2000};
    }
    std::pair<Position, Position> corners(qint64 n) const override
    {
        return {place(n), place(n + 1)};
    }
    Position centre(qint64) const override { return {8.6, 53.5}; }
    // Rising, and below 90 for the angles.
    QByteArray tableValue(const ValueTable& table, int i) const override
    {
        return integer(std::strcmp(table.member, "Degrees") ? 100 + i : i % 90);
    }
    void pathDevice(qint64 n) override { device(n); }
};

// While an invalid one is written, every element breaks a rule of its class.
class Invalid
{
public:
    Invalid(Text& text, bool invalid)
        : m_text(text)
    {
        m_text.setInvalid(invalid);
    }
    ~Invalid() { m_text.setInvalid(false); }
    Invalid(const Invalid&) = delete;
    Invalid& operator=(const Invalid&) = delete;

private:
    Text& m_text;
};

QByteArray commandPolygon(int vertices, Order order)
{
    return Text::command(
        [&](Text& t) { t.createCommand(0, [&] { t.aoi("AOI", 0, vertices, order); }); });
}

// Create commands of the eight kinds in turn.
QByteArray commandCreates(int count)
{
    return Text::command([&](Text& t) {
        for (int n = 0; n < count; ++n) {
            t.createCommand(n, [&] {
                switch (n % 8) {
                case 0:
                    t.deploymentArea("DeploymentArea", n);
                    break;
                case 1:
                    t.aoi("AOI", n, 3 + n % 5, Order::Shuffled);
                    break;
                case 2:
                    t.emitter("Emitter", n);
                    break;
                case 3:
                    t.receiver("Receiver", n, true);
                    break;
                case 4:
                    t.df("DF", n);
                    break;
                case 5:
                    t.signalPath("Path", n, 1, 1);
                    break;
                case 6:
                    t.device(n, 2);
                    break;
                default:
                    t.station(n, 1, 1);
                    break;
                }
            });
        }
    });
}

// Many small commands of every kind, in the order the message takes them.
QByteArray commandMany(int count)
{
    // The six kinds of calculation in turn, as the samples name them.
    static const Calculation calculations[] = {
        {Calculation::FindSites, 1, 0, "100", nullptr, nullptr},
        {Calculation::Cep, 0, 1, "50", nullptr, nullptr},
        {Calculation::DetectionProbability, 0, 2, "200", nullptr, nullptr},
        {Calculation::DfCoverage, 2, 0, "500", nullptr, nullptr},
        {Calculation::InterlinkPlanning, 0, 0, {}, "North", "South"},
        {Calculation::BestSensor, 1, 0, "1000", nullptr, nullptr},
    };
    const int quarter = std::max(count / 4, 1);
    return Text::command([&](Text& t) {
        for (int n = 0; n < quarter; ++n)
            t.administrative(n);
        for (int n = 0; n < quarter; ++n) {
            t.createCommand(n, [&] { t.emitter("Emitter", n); });
        }
        for (int n = 0; n < quarter; ++n)
            t.deleteEmitter(n);
        t.propagationModel("model");
        for (int n = 0; n < quarter; ++n)
            t.calculate(n, calculations[n % 6]);
    });
}

// One calculation whose two name selections are as long as asked.
QByteArray commandNames(int count)
{
    return Text::command([&](Text& t) {
        t.calculate(0, {Calculation::Cep, count / 2, count - count / 2, {}, nullptr, nullptr});
    });
}

// One device whose five tables share the entries.
QByteArray commandDeviceTables(int entries)
{
    return Text::command(
        [&](Text& t) { t.createCommand(0, [&] { t.tableDevice(std::max(entries / 5, 1)); }); });
}

// One signal path with as many devices and map entries as asked.
QByteArray commandSignalPath(int count)
{
    return Text::command([&](Text& t) {
        t.createCommand(0, [&] { t.signalPath("Path", 0, count / 2, count / 4); });
    });
}

// Stations, each down to the deepest element of the vocabulary.
QByteArray commandDeep(int count)
{
    return Text::command([&](Text& t) {
        for (int n = 0; n < count; ++n) {
            t.createCommand(n, [&] { t.station(n, 1, 1); });
        }
    });
}

// Stations and emitters whose every element breaks a rule of its class, at
// every depth; the commands' references are empty.
QByteArray commandInvalid(int count)
{
    return Text::command([&](Text& t) {
        const Invalid invalid(t, true);
        for (int n = 0; n < count; ++n) {
            t.createCommand(n, [&] {
                if (n % 2)
                    t.emitter("Emitter", n);
                else
                    t.station(n, 1, 1);
            });
        }
    });
}

// A grid result of a possible-sites request naming as many emitters and
// areas as asked. A grid result does not read to its end: reading stops
// with an error at the parameters' end tag, after every name.
QByteArray responseGridNames(int count, bool bad)
{
    return Text::response("automatic", [&](Text& t) {
        t.open("Automatic", "status=\"ack\"");
        t.reference("CommandReference", "calc", 0);
        t.open("GridResult", "type=\"FindSites\"");
        t.open("FindPossibleSites");
        t.open("Parameter");
        {
            const Invalid invalid(t, bad);
            t.names("UseKnownEmitters", 0, count / 2);
            t.names("DeploymentAreas", 0, count - count / 2);
        }
        t.close("Parameter");
        t.leaf("ScreenshotFilename", "sites.png");
        t.close("FindPossibleSites");
        t.close("GridResult");
        t.close("Automatic");
    });
}

// An interactive result reporting a station with as many devices as asked.
// A result object refuses its own end tag, so reading ends there in error.
QByteArray responseStation(int devices, bool bad)
{
    return Text::response("interactive", [&](Text& t) {
        t.open("Interactive");
        t.open("Station");
        {
            const Invalid invalid(t, bad);
            t.station(0, devices, 1);
        }
        t.close("Station");
        t.close("Interactive");
    });
}

// Objects of the nine kinds, an equal share each, in the order the snapshot
// takes them.
QByteArray scenarioObjects(int count, bool bad)
{
    const int share = std::max(count / 9, 1);
    return Text::scenario([&](Text& t) {
        const Invalid invalid(t, bad);
        qint64 n = 0;
        for (int kind = 0; kind < 9; ++kind) {
            for (int i = 0; i < share; ++i, ++n) {
                switch (kind) {
                case 0:
                    t.deploymentArea("DeploymentArea", n);
                    break;
                case 1:
                    t.aoi("AreaOfInterest", n, 3 + int(n % 5), Order::Shuffled);
                    break;
                case 2:
                    t.emitter("KnownEmitter", n);
                    break;
                case 3:
                    t.receiver("Receiver", n, true);
                    break;
                case 4:
                    t.df("DirectionFinder", n);
                    break;
                default:
                    t.resultRecord(kind - 5, n);
                    break;
                }
            }
        }
    });
}

QByteArray scenarioEmitters(int count)
{
    return Text::scenario([&](Text& t) {
        for (int n = 0; n < count; ++n)
            t.emitter("KnownEmitter", n);
    });
}

QByteArray scenarioPolygon(int vertices, Order order)
{
    return Text::scenario([&](Text& t) { t.aoi("AreaOfInterest", 0, vertices, order); });
}

QByteArray pairList(int count, bool bad)
{
    return Text::alone([&](Text& t) {
        t.open("RxThresholds", "version=\"1.0\"");
        const Invalid invalid(t, bad);
        for (int n = 0; n < count; ++n)
            t.pair(n);
        t.close("RxThresholds");
    });
}

QByteArray list(const char* member, const char* unit, int count)
{
    return Text::alone([&](Text& t) { t.valueList({"List", member, unit, 0, 0}, count); });
}

QByteArray mapList(int count)
{
    return Text::alone([&](Text& t) { t.map("AntHgtMap", count); });
}

QByteArray deviceList(int count)
{
    return Text::alone([&](Text& t) {
        t.open("Devices", "version=\"1.0\"");
        for (int n = 0; n < count; ++n)
            t.device(n);
        t.close("Devices");
    });
}

QByteArray nameList(int count)
{
    return Text::alone([&](Text& t) { t.names("UseDFs", 0, count); });
}

QByteArray polygon(int vertices, Order order)
{
    return Text::alone([&](Text& t) { t.areaPolygon(0, vertices, order); });
}

} // namespace

namespace {

// A shape; its group is its document kind, or "lists" for the classes that
// are documents of their own. Tools: the tool commands, comma-separated.
Shape shape(const char* name, const char* className, int units, const char* tools,
            const char* about, QByteArray (*generate)(int))
{
    const QString kind = QLatin1String(className);
    const KelXml::XmlDocumentKind* document = KelXml::XmlDocumentKind::find(kind);
    const bool root = document && kind == QLatin1String(document->name);
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
              [](int n) { return commandPolygon(n, Order::Descending); }),
        shape("command-polygon-shuffled", "command", 7000, "",
              "the same polygon, vertices in shuffled order",
              [](int n) { return commandPolygon(n, Order::Shuffled); }),
        shape("command-creates", "command", 1100, "diff", "create commands of the eight kinds in turn",
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
              "an interactive result: a station with many devices",
              [](int n) { return responseStation(n, false); }),
        shape("response-invalid", "response", 3000, "", "the same station, every element invalid",
              [](int n) { return responseStation(n, true); }),
        // Scenario snapshots.
        shape("scenario-objects", "scenario", 1400, "format,svg,diff",
              "objects of the nine kinds, a share each",
              [](int n) { return scenarioObjects(n, false); }),
        shape("scenario-emitters", "scenario", 2000, "geojson", "many known emitters",
              scenarioEmitters),
        shape("scenario-polygon-descending", "scenario", 7000, "diff",
              "one area of interest whose vertices come in descending order",
              [](int n) { return scenarioPolygon(n, Order::Descending); }),
        shape("scenario-invalid", "scenario", 1400, "check,svg",
              "objects of the nine kinds whose every element is invalid",
              [](int n) { return scenarioObjects(n, true); }),
        // Lists and maps that are documents of their own.
        shape("pairs", "XmlFreqThrListType", 7000, "", "a list of frequency/threshold pairs",
              [](int n) { return pairList(n, false); }),
        shape("pairs-invalid", "XmlFreqThrListType", 7000, "check",
              "pairs of version \"2.0\" whose values are invalid",
              [](int n) { return pairList(n, true); }),
        shape("dbm-list", "XmlDBMListType", 20000, "", "a list of dBm levels",
              [](int n) { return list("dBm", "dBm", n); }),
        shape("map-list", "XmlMapListType", 7000, "", "a key/length map", mapList),
        shape("device-list", "XmlDeviceListType", 3000, "", "a list of devices", deviceList),
        shape("polygon-ascending", "XmlAreaPolyType", 7000, "",
              "a polygon alone, vertices ascending",
              [](int n) { return polygon(n, Order::Ascending); }),
        // More of the same paths, left out of the test command for its time:
        // run-complexity.sh ... extra.
        extra(shape("command-polygon-ascending", "command", 7000, "check,format",
                    "one area of interest whose polygon lists its vertices in ascending order",
                    [](int n) { return commandPolygon(n, Order::Ascending); })),
        extra(shape("command-many-checked", "command", 3000, "check,geojson",
                    "many small commands of every kind", commandMany)),
        extra(shape("scenario-polygon-shuffled", "scenario", 7000, "geojson,svg",
                    "one area of interest whose vertices come in shuffled order",
                    [](int n) { return scenarioPolygon(n, Order::Shuffled); })),
        extra(shape("response-names", "response", 20000, "",
                    "a grid result naming many emitters and areas",
                    [](int n) { return responseGridNames(n, false); })),
        extra(shape("response-invalid-names", "response", 20000, "",
                    "the grid result with every name empty",
                    [](int n) { return responseGridNames(n, true); })),
        extra(shape("pairs-checked", "XmlFreqThrListType", 7000, "check,format",
                    "a list of frequency/threshold pairs",
                    [](int n) { return pairList(n, false); })),
        extra(shape("freq-list", "XmlFreqListType", 20000, "", "a list of frequencies",
                    [](int n) { return list("Frequency", "MHz", n); })),
        extra(shape("decibel-list", "XmlDecibelListType", 20000, "", "a list of dB values",
                    [](int n) { return list("Decibel", "dB", n); })),
        extra(shape("degrees-list", "XmlDegreesListType", 20000, "", "a list of angles",
                    [](int n) { return list("Degrees", "\xc2\xb0", n); })),
        extra(shape("name-list", "XmlNameAllMultiType", 20000, "", "a selection of many names",
                    nameList)),
        extra(shape("polygon-descending", "XmlAreaPolyType", 7000, "",
                    "a polygon alone, vertices descending",
                    [](int n) { return polygon(n, Order::Descending); })),
        extra(shape("polygon-shuffled", "XmlAreaPolyType", 7000, "",
                    "a polygon alone, vertices shuffled",
                    [](int n) { return polygon(n, Order::Shuffled); })),
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
