// The map commands of the kelxml tool: GeoJSON that keeps the rules of the
// format (positions as [longitude, latitude], closed counter-clockwise
// rings), an SVG map with one marker per placed object, and their usage
// errors. (That their cost grows linearly with the document, the complexity
// test counts.)

#include "KelXmlTest.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>

namespace {

struct Run
{
    int status;
    QByteArray out;
    QString err;
};

Run kelxml(const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral(KELXML_TOOL), arguments);
    process.waitForFinished(60000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput(), QString::fromUtf8(process.readAllStandardError())};
}

QString saved(const QTemporaryDir& dir, const QString& name, const QByteArray& content)
{
    QFile file(dir.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        return QString();
    return file.fileName();
}

QString coordinate(const QString& name, const QString& longitude, const QString& latitude,
                   int number = -1)
{
    const QString numbered = number < 0 ? QString() : QString(" number=\"%1\"").arg(number);
    return QString("<%1 version=\"1.0\"%2><Longitude>%3</Longitude><Latitude>%4</Latitude></%1>")
        .arg(name, numbered, longitude, latitude);
}

QString value(const QString& name, const QString& unit, const QString& number)
{
    return QString("<%1 version=\"1.0\" unit=\"%2\">%3</%1>").arg(name, unit, number);
}

const QString txParameter = "<TxParameter version=\"1.0\">" + value("Frequency", "MHz", "156.8") +
                            value("TxPower", "W", "25") + value("AntennaHeight", "m", "12") +
                            value("Bandwidth", "kHz", "16") + "</TxParameter>";

QString emitter(const QString& name, const QString& longitude, const QString& latitude)
{
    return "<KnownEmitter version=\"1.0\"><Name>" + name + "</Name>" +
           coordinate("Position", longitude, latitude) + txParameter + "</KnownEmitter>";
}

QString scenario(const QString& objects)
{
    return "<Scenario version=\"1.0\"><ScreenshotPath>v.png</ScreenshotPath><DisplayedObjects>" +
           objects + "</DisplayedObjects></Scenario>";
}

// A rectangle, a polygon whose vertices run clockwise, an emitter whose name
// needs escaping, one at an infinite longitude, and a receiver north of the
// pole.
const QString smallScenario = scenario(
    "<DeploymentArea version=\"1.0\"><Name>Ridge</Name><AreaRect version=\"1.0\">" +
    coordinate("UpperLeft", "10.9", "47.6") + coordinate("LowerRight", "11.3", "47.4") +
    "</AreaRect>" + value("AntennaHeight", "m", "10") + value("RxThreshold", "dBm", "-110") +
    value("Frequency", "MHz", "433.92") + value("TxPower", "W", "5") +
    "</DeploymentArea><AreaOfInterest version=\"1.0\"><Name>Basin</Name>"
    "<AreaPolygon version=\"1.0\">" +
    coordinate("Vertex", "8.63", "53.515", 2) + coordinate("Vertex", "8.57", "53.52", 0) +
    coordinate("Vertex", "8.612", "53.541", 1) + "</AreaPolygon>" + txParameter +
    value("RxThreshold", "dBm", "-107") + "</AreaOfInterest>" +
    emitter("Beacon &lt;7&gt; &amp; co", "8.601", "53.53") + emitter("Lost", "inf", "53.5") +
    "<Receiver version=\"1.0\"><Name>East</Name>" + coordinate("Position", "8.65", "91") +
    "<RxParameter version=\"1.0\">" + value("AntennaHeight", "m", "15") +
    value("RxThreshold", "dBm", "-115") + "</RxParameter></Receiver>");

QJsonObject json(const char* text)
{
    return QJsonDocument::fromJson(text).object();
}

// Twice the signed area of a closed ring of [longitude, latitude] positions:
// positive when it runs counter-clockwise.
double twiceSignedArea(const QJsonArray& ring)
{
    double sum = 0.0;
    for (int i = 0; i + 1 < ring.size(); ++i) {
        const QJsonArray a = ring[i].toArray();
        const QJsonArray b = ring[i + 1].toArray();
        sum += a[0].toDouble() * b[1].toDouble() - b[0].toDouble() * a[1].toDouble();
    }
    return sum;
}

// Empty when the feature keeps the rules; otherwise what it breaks.
QString geoJsonFault(const QJsonObject& feature)
{
    if (feature.value("type") != QJsonValue("Feature"))
        return "not a Feature";
    const QJsonObject properties = feature.value("properties").toObject();
    static const QStringList kinds{"AreaOfInterest",    "DeploymentArea", "Station",
                                   "DirectionFinder",   "Receiver",       "Emitter",
                                   "Result_FindSites",  "Result_CEP",     "Result_DetectProb",
                                   "Result_DfCoverage", "Interlink"};
    if (!kinds.contains(properties.value("kind").toString()) ||
        !properties.value("name").isString() || !properties.value("valid").isBool())
        return "kind, name or valid missing";
    const bool valid = properties.value("valid").toBool();
    if (valid == properties.contains("problem"))
        return "problem given for a valid object or missing for an invalid one";
    const QJsonValue geometry = feature.value("geometry");
    if (geometry.isNull())
        return QString();
    const auto position = [valid](const QJsonValue& value) {
        const QJsonArray pair = value.toArray();
        if (pair.size() != 2 || !pair[0].isDouble() || !pair[1].isDouble())
            return false;
        // Out-of-range positions belong to invalid objects only.
        return !valid || (qAbs(pair[0].toDouble()) <= 180.0 && qAbs(pair[1].toDouble()) <= 90.0);
    };
    const QString type = geometry.toObject().value("type").toString();
    const QJsonArray coordinates = geometry.toObject().value("coordinates").toArray();
    if (type == "Point")
        return position(geometry.toObject().value("coordinates")) ? QString() : "bad point";
    if (type == "LineString")
        return coordinates.size() == 2 &&
                       std::all_of(coordinates.begin(), coordinates.end(), position)
                   ? QString()
                   : "bad line";
    if (type != "Polygon" || coordinates.size() != 1)
        return "neither a Point nor a one-ring Polygon";
    const QJsonArray ring = coordinates[0].toArray();
    if (ring.size() < 4 || ring.first() != ring.last())
        return "ring not closed or too short";
    if (!std::all_of(ring.begin(), ring.end(), position))
        return "bad ring position";
    return twiceSignedArea(ring) > 0.0 ? QString() : "ring not counter-clockwise";
}

} // namespace

class TestKelxmlGeo : public QObject
{
    Q_OBJECT

private slots:
    void unreadableFile()
    {
        QTemporaryDir dir;
        const QString broken = saved(dir, "broken.xml", "<Scenario version=\"1.0\"><Screen");
        for (const char* command : {"geojson", "svg"}) {
            const Run run = kelxml({command, "--as", "scenario", broken});
            QCOMPARE(run.status, 2);
            QVERIFY2(run.err.startsWith(broken + ":"), qPrintable(run.err));
            QVERIFY(run.out.isEmpty());
        }
    }

    // Feature by feature: rings closed and turned counter-clockwise,
    // [longitude, latitude] exactly as read, the invalid object flagged.
    void geoJsonOfSmallScenario()
    {
        QTemporaryDir dir;
        const Run run =
            kelxml({"geojson", "--as", "scenario", saved(dir, "s.xml", smallScenario.toUtf8())});
        QCOMPARE(run.status, 0);
        QJsonParseError error{};
        const QJsonObject collection = QJsonDocument::fromJson(run.out, &error).object();
        QCOMPARE(error.error, QJsonParseError::NoError);
        QCOMPARE(collection.value("type").toString(), QString("FeatureCollection"));
        const QJsonArray features = collection.value("features").toArray();
        QCOMPARE(features.size(), 5);

        QCOMPARE(features[0].toObject(), json(R"({"type": "Feature",
            "geometry": {"type": "Polygon", "coordinates":
                [[[10.9, 47.6], [10.9, 47.4], [11.3, 47.4], [11.3, 47.6], [10.9, 47.6]]]},
            "properties": {"kind": "DeploymentArea", "name": "Ridge", "valid": true,
                "frequency_MHz": 433.92, "power_W": 5, "antennaHeight_m": 10,
                "threshold_dBm": -110, "stroke": "#1b9e77", "fill": "#1b9e77",
                "fill-opacity": 0.25}})"));
        // Vertices held as 0, 1, 2 run clockwise: the ring is 0, 2, 1, 0.
        QCOMPARE(features[1].toObject(), json(R"({"type": "Feature",
            "geometry": {"type": "Polygon", "coordinates":
                [[[8.57, 53.52], [8.63, 53.515], [8.612, 53.541], [8.57, 53.52]]]},
            "properties": {"kind": "AreaOfInterest", "name": "Basin", "valid": true,
                "frequency_MHz": 156.8, "power_W": 25, "antennaHeight_m": 12,
                "bandwidth_kHz": 16, "threshold_dBm": -107, "stroke": "#ff7f00",
                "fill": "#ff7f00", "fill-opacity": 0.25}})"));
        QCOMPARE(features[2].toObject(), json(R"({"type": "Feature",
            "geometry": {"type": "Point", "coordinates": [8.601, 53.53]},
            "properties": {"kind": "Emitter", "name": "Beacon <7> & co", "valid": true,
                "frequency_MHz": 156.8, "power_W": 25, "antennaHeight_m": 12,
                "bandwidth_kHz": 16, "marker-color": "#e7298a"}})"));
        QCOMPARE(features[3].toObject(), json(R"({"type": "Feature", "geometry": null,
            "properties": {"kind": "Emitter", "name": "Lost", "valid": false,
                "problem": "XmlCoordinateType: Longitude out of bounds",
                "frequency_MHz": 156.8, "power_W": 25, "antennaHeight_m": 12,
                "bandwidth_kHz": 16, "marker-color": "#e7298a"}})"));
        QCOMPARE(features[4].toObject(), json(R"({"type": "Feature",
            "geometry": {"type": "Point", "coordinates": [8.65, 91]},
            "properties": {"kind": "Receiver", "name": "East", "valid": false,
                "problem": "XmlCoordinateType: Latitude out of bounds",
                "antennaHeight_m": 15, "threshold_dBm": -115, "marker-color": "#33a02c"}})"));
    }

    // Every readable sample gives GeoJSON that keeps the rules, and an SVG
    // map that is well-formed XML with one marker per placed object and one
    // outline per area.
    void samples_data()
    {
        QTest::addColumn<QString>("alias");
        QTest::addColumn<QString>("file");
        const QStringList classes{"XmlKelBtType", "XmlCmdRoot"};
        for (const QString& className : classes) {
            const QDir folder(QStringLiteral(KELXML_EXAMPLES) + "/" + className);
            for (const QString& name : folder.entryList({"*.xml"}, QDir::Files, QDir::Name)) {
                if (!name.startsWith("unreadable-"))
                    QTest::newRow(qPrintable(className + "/" + name))
                        << (className == "XmlCmdRoot" ? "command" : "scenario")
                        << folder.filePath(name);
            }
        }
    }
    void samples()
    {
        QFETCH(QString, alias);
        QFETCH(QString, file);
        const Run geoJson = kelxml({"geojson", "--as", alias, file});
        QCOMPARE(geoJson.status, 0);
        QJsonParseError error{};
        const QJsonDocument document = QJsonDocument::fromJson(geoJson.out, &error);
        QCOMPARE(error.error, QJsonParseError::NoError);
        QCOMPARE(document.object().value("type").toString(), QString("FeatureCollection"));
        int points = 0;
        int areas = 0;
        for (const QJsonValue& feature : document.object().value("features").toArray()) {
            const QString fault = geoJsonFault(feature.toObject());
            QVERIFY2(fault.isEmpty(), qPrintable(fault));
            const QString type =
                feature.toObject().value("geometry").toObject().value("type").toString();
            points += type == "Point";
            areas += type == "Polygon";
        }

        const Run svg = kelxml({"svg", "--as", alias, file});
        QCOMPARE(svg.status, 0);
        QXmlStreamReader reader(svg.out);
        int markers = 0;
        int outlines = 0;
        bool legend = false;
        while (!reader.atEnd()) {
            if (reader.readNext() != QXmlStreamReader::StartElement)
                continue;
            QCOMPARE(reader.namespaceUri().toString(), QString("http://www.w3.org/2000/svg"));
            const QString classes = reader.attributes().value("class").toString();
            markers += classes.startsWith("marker ");
            outlines += classes.startsWith("area ");
            legend = legend || reader.attributes().value("id") == QLatin1String("legend");
        }
        QVERIFY2(!reader.hasError(), qPrintable(reader.errorString()));
        QCOMPARE(markers, points);
        QCOMPARE(outlines, areas);
        QVERIFY(legend);
    }

    // Without --as the root says which document it is: the same map, and a
    // response with nothing to draw gives an empty one.
    void byContent()
    {
        for (const QString& className :
             {QStringLiteral("XmlKelBtType"), QStringLiteral("XmlCmdRoot")}) {
            const QDir folder(QStringLiteral(KELXML_EXAMPLES) + "/" + className);
            const QString alias = className == "XmlCmdRoot" ? "command" : "scenario";
            for (const QString& name : folder.entryList({"valid-*.xml"}, QDir::Files)) {
                const QString file = folder.filePath(name);
                for (const QString& command : {QStringLiteral("geojson"), QStringLiteral("svg")}) {
                    const Run with = kelxml({command, "--as", alias, file});
                    const Run without = kelxml({command, file});
                    QCOMPARE(without.status, with.status);
                    QCOMPARE(without.out, with.out);
                }
            }
        }
        const Run response =
            kelxml({"geojson", QStringLiteral(KELXML_EXAMPLES "/XmlRespRoot/valid-version.xml")});
        QCOMPARE(response.status, 0);
        QCOMPARE(response.out, QByteArray("{\"type\":\"FeatureCollection\",\"features\":[\n]}\n"));
    }

    // A response whose reading stopped at an element's error is drawn as far
    // as it was read, with a warning naming the error, and exits 0; one that
    // stopped before any object or name is unreadable. Names the document
    // beside it does not hold are listed, never guessed.
    void partialResponses_data()
    {
        QTest::addColumn<QString>("response");
        QTest::addColumn<QString>("beside");
        QTest::addColumn<int>("status");
        QTest::addColumn<int>("features");
        QTest::addColumn<QStringList>("messages");
        const QString cepError = "warning: drawn as far as it was read: in XmlCepType (line 21, "
                                 "column 20): Unexpected token \"EndElement\": Parameter.";
        QTest::newRow("CEP beside the harbour")
            << "XmlRespRoot/unreadable-grid-cep-harbour.xml"
            << "XmlKelBtType/valid-harbour-results.xml" << 0 << 4 << QStringList{cepError};
        QTest::newRow("CEP alone")
            << "XmlRespRoot/unreadable-grid-cep-harbour.xml" << QString() << 0 << 0
            << QStringList{cepError, "warning: not drawn, unresolved: AreaOfInterest "
                                     "\"Harbour basin\": no object of that name"};
        QTest::newRow("reported emitter")
            << "XmlRespRoot/unreadable-interactive-station.xml" << QString() << 0 << 1
            << QStringList{"warning: drawn as far as it was read: in XmlResultObjectType"};
        QTest::newRow("stopped at the root") << "XmlRespRoot/unreadable-final-yes.xml" << QString()
                                             << 2 << -1 << QStringList{": error: "};
        QTest::newRow("interlink beside a snapshot, which has no stations")
            << "XmlRespRoot/valid-interlink-result.xml"
            << "XmlKelBtType/valid-harbour-results.xml" << 0 << 0
            << QStringList{"unresolved: Station \"North ridge\": no object of that name",
                           "unresolved: Station \"Harbour tower\": no object of that name"};
    }
    void partialResponses()
    {
        QFETCH(QString, response);
        QFETCH(QString, beside);
        QFETCH(int, status);
        QFETCH(int, features);
        QFETCH(QStringList, messages);
        const QString examples = QStringLiteral(KELXML_EXAMPLES "/");
        QStringList arguments{"geojson", examples + response};
        if (!beside.isEmpty())
            arguments << "--scenario" << examples + beside;
        const Run run = kelxml(arguments);
        QCOMPARE(run.status, status);
        for (const QString& message : messages)
            QVERIFY2(run.err.contains(message), qPrintable(run.err));
        if (features >= 0) {
            const QJsonDocument document = QJsonDocument::fromJson(run.out);
            QCOMPARE(document.object().value("features").toArray().size(), features);
        } else {
            QVERIFY(run.out.isEmpty());
        }
    }

    // KML gives colours as aabbggrr: the emitter's #e7298a is ff8a29e7, its
    // fill a quarter opaque; the world file gives pixel centres, half a pixel
    // inside the extent.
    void kmlColoursAndWorldFile()
    {
        QTemporaryDir dir;
        const Run kml =
            kelxml({"kml", "--as", "scenario", saved(dir, "s.xml", smallScenario.toUtf8())});
        QCOMPARE(kml.status, 0);
        QVERIFY2(kml.out.contains("<Style id=\"kind-Emitter\">\n   <IconStyle>\n    "
                                  "<color>ff8a29e7</color>"),
                 kml.out.constData());
        QVERIFY(kml.out.contains("<PolyStyle>\n    <color>40779e1b</color>"));
        QCOMPARE(kml.out.count("<Placemark>"), 5);

        // A PNG of 4 by 2 pixels: its size is all worldfile reads.
        const QByteArray png =
            QByteArray::fromBase64("iVBORw0KGgoAAAANSUhEUgAAAAQAAAACCAAAAABawyK/"
                                   "AAAADklEQVR4nGNoAAIGEAEAFAoEAeiOg+cAAAAASUVORK5CYII=");
        const QString picture = saved(dir, "p.png", png);
        const Run world = kelxml({"worldfile", picture, "--extent", "10,50,12,51"});
        QCOMPARE(world.status, 0);
        QFile file(dir.filePath("p.pgw"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("0.5\n0\n0\n-0.5\n10.25\n50.75\n"));
        QVERIFY(QFile::exists(picture + ".aux.xml"));
    }

    // Outlines, markers (the invalid one in its own style), escaped names and
    // the counts of the legend on the map of the small scenario; the object
    // at an infinite longitude is counted but not drawn.
    void svgOfSmallScenario()
    {
        QTemporaryDir dir;
        const Run run =
            kelxml({"svg", "--as", "scenario", saved(dir, "s.xml", smallScenario.toUtf8())});
        QCOMPARE(run.status, 0);
        QXmlStreamReader reader(run.out);
        QStringList markers;
        QStringList names;
        QStringList legend;
        while (!reader.atEnd()) {
            if (reader.readNext() != QXmlStreamReader::StartElement)
                continue;
            const QString classes = reader.attributes().value("class").toString();
            if (classes.startsWith("marker ") || classes.startsWith("area "))
                markers.append(classes);
            else if (classes.startsWith("label"))
                names.append(reader.readElementText());
            else if (classes.isEmpty() && reader.name() == QLatin1String("text"))
                legend.append(reader.readElementText());
        }
        QVERIFY(!reader.hasError());
        QCOMPARE(markers, QStringList({"area deployment", "area aoi", "marker emitter",
                                       "marker receiver invalid"}));
        QCOMPARE(names, QStringList({"Ridge", "Basin", "Beacon <7> & co", "East"}));
        QCOMPARE(legend, QStringList({"Area of interest (1)", "Deployment area (1)", "Station (0)",
                                      "Direction finder (0)", "Receiver (1)", "Emitter (2)",
                                      "invalid (2)", "not on the map (1)"}));
    }
};

QTEST_GUILESS_MAIN(TestKelxmlGeo)
#include "tst_kelxml_geo.moc"
