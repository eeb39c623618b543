// The walk over a document's geographic objects: which objects, in which
// order, their positions as held, their radio parameters, the verdict on the
// invalid ones, and the closed counter-clockwise outline of an area; a
// response's names looked up beside the document that holds them.

#include "KelXmlTest.h"

#include <XmlCmdCreate.h>
#include <XmlCmdRoot.h>
#include <XmlGeoFeatures.h>
#include <XmlKelBtType.h>
#include <XmlRespRoot.h>

#include <QRegularExpression>
#include <QSet>

#include <QtTest>

#include <cmath>
#include <limits>

using namespace KelXml;
using Position = XmlGeoFeature::Position;

namespace {

QString coordinate(const QString& name, double longitude, double latitude, int number = -1)
{
    const QString numbered = number < 0 ? QString() : QString(" number=\"%1\"").arg(number);
    return QString("<%1 version=\"1.0\"%2><Longitude>%3</Longitude><Latitude>%4</Latitude></%1>")
        .arg(name, numbered)
        .arg(longitude, 0, 'g', 17)
        .arg(latitude, 0, 'g', 17);
}

QString value(const QString& name, const QString& unit, const QString& number)
{
    return QString("<%1 version=\"1.0\" unit=\"%2\">%3</%1>").arg(name, unit, number);
}

const QString txParameter = "<TxParameter version=\"1.0\">" + value("Frequency", "MHz", "156.8") +
                            value("TxPower", "W", "25") + value("AntennaHeight", "m", "12") +
                            value("Bandwidth", "kHz", "16") + "</TxParameter>";
const QString rxParameter = "<RxParameter version=\"1.0\">" + value("AntennaHeight", "m", "15") +
                            value("RxThreshold", "dBm", "-115") + "</RxParameter>";

const QString scenarioXml =
    "<S version=\"1.0\"><ScreenshotPath>v.png</ScreenshotPath><DisplayedObjects>"
    "<DeploymentArea version=\"1.0\"><Name>Ridge</Name><AreaRect version=\"1.0\">" +
    coordinate("UpperLeft", 10.9, 47.6) + coordinate("LowerRight", 11.3, 47.4) + "</AreaRect>" +
    value("AntennaHeight", "m", "10") + value("RxThreshold", "dBm", "-110") +
    value("Frequency", "MHz", "433.92") + value("TxPower", "W", "5") +
    "</DeploymentArea><AreaOfInterest version=\"1.0\"><Name>Basin</Name>"
    "<AreaPolygon version=\"1.0\">" +
    coordinate("Vertex", 8.63, 53.515, 2) + coordinate("Vertex", 8.57, 53.52, 0) +
    coordinate("Vertex", 8.612, 53.541, 1) + "</AreaPolygon>" + txParameter +
    "</AreaOfInterest><KnownEmitter version=\"1.0\"><Name>Beacon</Name>" +
    coordinate("Position", 8.601, 53.53) + txParameter +
    "</KnownEmitter><Receiver version=\"1.0\"><Name>East</Name>" +
    coordinate("Position", 200.5, 53.525) + rxParameter +
    "</Receiver><DirectionFinder version=\"1.0\"><Name>North</Name>" +
    coordinate("Position", 8.59, 53.56) + rxParameter +
    "<DFprecision version=\"1.0\" unit=\"°\">2</DFprecision></DirectionFinder>"
    "</DisplayedObjects></S>";

QVariantMap tx()
{
    return {{"frequency_MHz", 156.8},
            {"power_W", 25.0},
            {"antennaHeight_m", 12},
            {"bandwidth_kHz", 16.0}};
}

QVariantMap rx()
{
    return {{"antennaHeight_m", 15}, {"threshold_dBm", -115.0}};
}

QVector<Position> positions(std::initializer_list<double> degrees)
{
    QVector<Position> result;
    for (auto it = degrees.begin(); it != degrees.end(); it += 2)
        result.append({*it, *(it + 1)});
    return result;
}

// Positions in the shortest text that reads back to the same doubles.
QString text(const QVector<Position>& list)
{
    QStringList parts;
    for (const Position& p : list)
        parts.append(QString("(%1 %2)").arg(
            QString::number(p.longitude, 'g', QLocale::FloatingPointShortest),
            QString::number(p.latitude, 'g', QLocale::FloatingPointShortest)));
    return parts.join(' ');
}

// Kind, name, shape, positions and the verdict of a feature in one line.
QString summary(const XmlGeoFeature& feature)
{
    static const char* const shapes[] = {"NoShape", "Point", "Rectangle", "Polygon"};
    return QStringList{XmlGeoFeature::kindName(feature.kind), feature.name, shapes[feature.shape],
                       text(feature.positions), feature.valid ? QString("valid") : feature.problem}
        .join(' ');
}

} // namespace

Q_DECLARE_METATYPE(QVector<Position>)

class TestXmlGeoFeatures : public QObject
{
    Q_OBJECT

private slots:
    // Each kind in document order, its positions exactly as held (the
    // polygon's by vertex number), its own parameters, and a verdict.
    void scenario()
    {
        XmlKelBtType document;
        QCOMPARE(KelXmlTest::read(document, scenarioXml), QString());
        const QVector<XmlGeoFeature> features = geoFeatures(document);
        QStringList summaries;
        QList<QVariantMap> properties;
        for (const XmlGeoFeature& feature : features) {
            summaries.append(summary(feature));
            properties.append(feature.properties);
        }
        QCOMPARE(summaries,
                 QStringList({"DeploymentArea Ridge Rectangle (10.9 47.6) (11.3 47.4) valid",
                              "AreaOfInterest Basin Polygon (8.57 53.52) (8.612 53.541) "
                              "(8.63 53.515) valid",
                              "Emitter Beacon Point (8.601 53.53) valid",
                              "Receiver East Point (200.5 53.525) "
                              "XmlCoordinateType: Longitude out of bounds",
                              "DirectionFinder North Point (8.59 53.56) valid"}));
        QVariantMap finder = rx();
        finder.insert("precision_deg", 2);
        QCOMPARE(properties, QList<QVariantMap>({{{"frequency_MHz", 433.92},
                                                  {"power_W", 5.0},
                                                  {"antennaHeight_m", 10},
                                                  {"threshold_dBm", -110.0}},
                                                 tx(), // no threshold held, none given
                                                 tx(),
                                                 rx(),
                                                 finder}));
        QCOMPARE(features[0].object, document.deployments().first());
    }

    // The objects of the create commands only, a station's optional
    // parameters only when it holds them.
    void command()
    {
        const QString xml =
            "<C><Create><Station><Name>S1</Name>" + coordinate("Position", 9.5, 52.25) +
            "</Station><Reference>a</Reference></Create>"
            "<Create><Station><Name>S2</Name>" +
            coordinate("Position", 9.75, 52.5) + rxParameter +
            "<DFprecision version=\"1.0\" unit=\"°\">-2</DFprecision></Station>"
            "<Reference>b</Reference></Create>"
            "<Create><Emitter version=\"1.0\"><Name>E</Name>" +
            coordinate("Position", 9.0, 52.0) + txParameter +
            "</Emitter><Reference>c</Reference></Create>"
            "<Delete><Emitter><Name>Gone</Name></Emitter><Reference>d</Reference></Delete></C>";
        XmlCmdRoot root;
        QCOMPARE(KelXmlTest::read(root, xml), QString());
        const QVector<XmlGeoFeature> features = geoFeatures(root);
        QCOMPARE(features.size(), 3);
        QCOMPARE(features[0].name, QString("S1"));
        QCOMPARE(XmlGeoFeature::kindName(features[0].kind), QString("Station"));
        QVERIFY(features[0].properties.isEmpty());
        QCOMPARE(features[1].name, QString("S2"));
        QVariantMap expected = rx();
        expected.insert("precision_deg", -2);
        QCOMPARE(features[1].properties, expected);
        QVERIFY(!features[1].valid); // a precision that was never set
        QCOMPARE(features[1].problem, QString("XmlDfPrecisionType: Illegal precision."));
        QCOMPARE(XmlGeoFeature::kindName(features[2].kind), QString("Emitter"));
        QCOMPARE(features[2].object, root.getCreateCmds()[2]->emitter());
    }

    // A record holding both shapes is drawn by its polygon, the one its
    // report judges; its grid, unit and range come along.
    void resultRecords()
    {
        XmlKelBtType document;
        XmlResInfo_Cep_Type cep;
        XmlObjNameType name;
        name.setObjName("CEP bay");
        cep.setObjName(name);
        XmlAreaRectType rect;
        XmlCoordinateType corner;
        corner.setLongitude(1.0);
        corner.setLatitude(2.0);
        rect.setUpperLeft(corner);
        rect.setLowerRight(corner);
        cep.setAreaRect(rect);
        XmlAreaPolyType poly;
        QVERIFY(KelXmlTest::read(poly, "<AreaPolygon version=\"1.0\">" +
                                           coordinate("Vertex", 0, 0, 0) +
                                           coordinate("Vertex", 2, 0, 1) +
                                           coordinate("Vertex", 1, 1, 2) + "</AreaPolygon>")
                    .isEmpty());
        cep.setAreaPoly(poly);
        XmlResultGridType grid;
        grid.setSize(XmlResultGridType::Grid500);
        cep.setResultGrid(grid);
        XmlGridValuesType values;
        values.setUnit("m");
        values.setMin(12.5);
        values.setMax(840);
        cep.setGridValues(values);
        document.addResCep(cep);
        document.addResDfCov(XmlResInfo_DfCov_Type()); // no shape, no name

        const QVector<XmlGeoFeature> features = geoFeatures(document);
        QCOMPARE(features.size(), 2);
        QCOMPARE(summary(features[0]),
                 QString("Result_CEP CEP bay Polygon (0 0) (2 0) (1 1) valid"));
        QCOMPARE(features[0].properties,
                 QVariantMap({{"grid", "500"}, {"unit", "m"}, {"min", 12.5}, {"max", 840.0}}));
        QVERIFY(features[0].isResultRecord() && !features[0].isArea());
        QCOMPARE(features[1].shape, XmlGeoFeature::NoShape);
        QCOMPARE(features[1].properties.value("grid").toString(), QString("UNDEFINED"));
        QVERIFY(!features[1].valid);
    }

    // The lookup finds exactly one object of the kinds asked for, and names
    // what it cannot find rather than guessing.
    void lookup()
    {
        const auto feature = [](XmlGeoFeature::Kind kind, const QString& name) {
            XmlGeoFeature f;
            f.kind = kind;
            f.name = name;
            return f;
        };
        const XmlGeoLookup lookup(
            {feature(XmlGeoFeature::Station, "A"), feature(XmlGeoFeature::Receiver, "A"),
             feature(XmlGeoFeature::Station, "B"), feature(XmlGeoFeature::Station, "B")});
        QString problem;
        const XmlGeoFeature* found = lookup.find({XmlGeoFeature::Receiver}, "A", &problem);
        QVERIFY(found && found->kind == XmlGeoFeature::Receiver);
        QVERIFY(!lookup.find({XmlGeoFeature::Station, XmlGeoFeature::Receiver}, "A", &problem));
        QCOMPARE(problem, QString("2 objects of that name"));
        QVERIFY(!lookup.find({XmlGeoFeature::Station}, "B", &problem));
        QCOMPARE(problem, QString("2 objects of that name"));
        QVERIFY(!lookup.find({XmlGeoFeature::Emitter}, "A", &problem));
        QCOMPARE(problem, QString("no object of that name"));
        QVERIFY(!lookup.find({XmlGeoFeature::Station}, "a", &problem)); // names are exact
        QCOMPARE(lookup.all({XmlGeoFeature::Station}).size(), 3);
    }

    // A response's names are resolved beside the document that holds the
    // objects: All expands, a missing name is listed, the interlink is a line
    // from the first station to the second, a reported object is a point.
    void response_data()
    {
        QTest::addColumn<QString>("content");
        QTest::addColumn<QStringList>("drawn");
        QTest::addColumn<QStringList>("unresolved");
        QTest::newRow("CEP, all finders")
            << "<Automatic status=\"ack\"><CommandReference>r</CommandReference>"
               "<GridResult type=\"CEP\"><CEP><Parameter><UseDFs><All/></UseDFs>"
               "<AOIs><Name>Basin</Name><Name>Nowhere</Name></AOIs>"
               "<Probability>90</Probability></Parameter>"
               "<ScreenshotFilename>c.png</ScreenshotFilename></CEP></GridResult></Automatic>"
            << QStringList{"AreaOfInterest Basin", "DirectionFinder North"}
            << QStringList{"AreaOfInterest \"Nowhere\": no object of that name"};
        QTest::newRow("detection, named sensors")
            << "<Automatic status=\"ack\"><CommandReference>r</CommandReference>"
               "<GridResult type=\"DetectProb\"><DetectionProbability><Parameter>"
               "<UseRxDFs><Name>East</Name><Name>North</Name></UseRxDFs>"
               "<AOIs><All/></AOIs></Parameter>"
               "<ScreenshotFilename>d.png</ScreenshotFilename></DetectionProbability>"
               "</GridResult></Automatic>"
            << QStringList{"AreaOfInterest Basin", "Receiver East", "DirectionFinder North"}
            << QStringList();
        QTest::newRow("interlink, one station missing")
            << "<Automatic status=\"ack\"><CommandReference>r</CommandReference>"
               "<InterlinkResult><Parameters><FirstName>North</FirstName>"
               "<SecondName>South</SecondName></Parameters><Result><Text>ok</Text></Result>"
               "</InterlinkResult></Automatic>"
            << QStringList()
            << QStringList{"Station \"North\": no object of that name",
                           "Station \"South\": no object of that name"};
        QTest::newRow("reported emitter")
            << "<Interactive><Station><Emitter version=\"1.0\"><Name>New</Name>" +
                   coordinate("Position", 7.5, 50.25) + txParameter +
                   "</Emitter></Station></Interactive>"
            << QStringList{"Emitter New (7.5 50.25)"} << QStringList();
    }
    void response()
    {
        QFETCH(QString, content);
        QFETCH(QStringList, drawn);
        QFETCH(QStringList, unresolved);
        XmlKelBtType document;
        QCOMPARE(KelXmlTest::read(document, scenarioXml), QString());
        const XmlGeoLookup beside(geoFeatures(document));
        const bool interactive = content.startsWith("<Interactive");
        XmlRespRoot response;
        // The grid results' and the reported object's reading stops at an
        // element's error by the format's own rules: what was read is walked.
        KelXmlTest::read(response, QString("<R type=\"%1\" final=\"true\" "
                                           "timestamp=\"2024-01-01T00:00:00\">")
                                           .arg(interactive ? "interactive" : "automatic") +
                                       content + "</R>");
        QStringList visited;
        QStringList names;
        visitGeoFeatures(
            response, beside,
            [&visited](const XmlGeoFeature& f) {
                QString line = XmlGeoFeature::kindName(f.kind) + " " + f.name;
                if (f.properties.value("reported").toBool())
                    line += " " + text(f.positions);
                visited.append(line);
            },
            &names);
        QCOMPARE(visited, drawn);
        QCOMPARE(names, unresolved);
    }

    // Beside a command message that creates both stations, the interlink
    // is a line from the first to the second with the result's text.
    void interlinkLine()
    {
        const QString stations =
            "<C><Create><Station><Name>A</Name>" + coordinate("Position", 9.5, 52.25) +
            "</Station><Reference>a</Reference></Create>"
            "<Create><Station><Name>B</Name>" +
            coordinate("Position", 9.75, 52.5) + "</Station><Reference>b</Reference></Create></C>";
        XmlCmdRoot command;
        QCOMPARE(KelXmlTest::read(command, stations), QString());
        XmlRespRoot response;
        QCOMPARE(KelXmlTest::read(
                     response,
                     "<R type=\"automatic\" final=\"true\" timestamp=\"2024-01-01T00:00:00\">"
                     "<Automatic status=\"ack\"><CommandReference>r</CommandReference>"
                     "<InterlinkResult><Parameters><FirstName>B</FirstName><SecondName>A"
                     "</SecondName></Parameters><Result><Text>12 dB margin</Text></Result>"
                     "</InterlinkResult></Automatic></R>"),
                 QString());
        QStringList unresolved;
        QVector<XmlGeoFeature> features;
        visitGeoFeatures(
            response, XmlGeoLookup(geoFeatures(command)),
            [&features](const XmlGeoFeature& f) { features.append(f); }, &unresolved);
        QVERIFY(unresolved.isEmpty());
        QCOMPARE(features.size(), 3);
        QCOMPARE(features[0].name, QString("B"));
        QCOMPARE(features[0].object, command.getCreateCmds()[1]->station());
        QCOMPARE(features[1].name, QString("A"));
        const XmlGeoFeature& line = features[2];
        QCOMPARE(line.kind, XmlGeoFeature::Interlink);
        QCOMPARE(line.shape, XmlGeoFeature::Line);
        QCOMPARE(text(line.positions), QString("(9.75 52.5) (9.5 52.25)"));
        QCOMPARE(line.properties.value("text").toString(), QString("12 dB margin"));
        QVERIFY(line.valid);
    }

    // Every kind has a name and a colour of its own, "#rrggbb".
    void kindTable()
    {
        QSet<QString> names;
        QSet<QString> colours;
        for (int kind = 0; kind < XmlGeoFeature::kindCount; ++kind) {
            names.insert(XmlGeoFeature::kindName(XmlGeoFeature::Kind(kind)));
            const QString colour = XmlGeoFeature::kindColour(XmlGeoFeature::Kind(kind));
            QVERIFY2(QRegularExpression("^#[0-9a-f]{6}$").match(colour).hasMatch(),
                     qPrintable(colour));
            colours.insert(colour);
        }
        QCOMPARE(names.size(), int(XmlGeoFeature::kindCount));
        QCOMPARE(colours.size(), int(XmlGeoFeature::kindCount));
        QCOMPARE(XmlGeoFeature::kindName(XmlGeoFeature::ResultDfCoverage),
                 QString("Result_DfCoverage"));
        QCOMPARE(XmlGeoFeature::kindName(XmlGeoFeature::Kind(XmlGeoFeature::kindCount)), QString());
    }

    void ring_data()
    {
        const double nan = std::numeric_limits<double>::quiet_NaN();
        QTest::addColumn<int>("shape");
        QTest::addColumn<QVector<Position>>("held");
        QTest::addColumn<QVector<Position>>("ring");
        QTest::newRow("rectangle") << int(XmlGeoFeature::Rectangle) << positions({1, 4, 3, 2})
                                   << positions({1, 4, 1, 2, 3, 2, 3, 4, 1, 4});
        // An upper-left corner east of the lower-right one is taken as held,
        // and the outline still runs counter-clockwise.
        QTest::newRow("rectangle, corners swapped")
            << int(XmlGeoFeature::Rectangle) << positions({3, 4, 1, 2})
            << positions({3, 4, 1, 4, 1, 2, 3, 2, 3, 4});
        QTest::newRow("counter-clockwise polygon")
            << int(XmlGeoFeature::Polygon) << positions({0, 0, 2, 0, 1, 1})
            << positions({0, 0, 2, 0, 1, 1, 0, 0});
        QTest::newRow("clockwise polygon reversed")
            << int(XmlGeoFeature::Polygon) << positions({0, 0, 1, 1, 2, 0})
            << positions({0, 0, 2, 0, 1, 1, 0, 0});
        QTest::newRow("closed polygon not closed twice")
            << int(XmlGeoFeature::Polygon) << positions({0, 0, 2, 0, 2, 2, 0, 0})
            << positions({0, 0, 2, 0, 2, 2, 0, 0});
        QTest::newRow("two vertices")
            << int(XmlGeoFeature::Polygon) << positions({0, 0, 2, 0}) << QVector<Position>();
        QTest::newRow("three vertices, closed")
            << int(XmlGeoFeature::Polygon) << positions({0, 0, 2, 0, 0, 0}) << QVector<Position>();
        QTest::newRow("not a number") << int(XmlGeoFeature::Polygon)
                                      << positions({0, 0, 2, 0, nan, 1}) << QVector<Position>();
        QTest::newRow("point") << int(XmlGeoFeature::Point) << positions({1, 1})
                               << QVector<Position>();
        QTest::newRow("no shape") << int(XmlGeoFeature::NoShape) << QVector<Position>()
                                  << QVector<Position>();
    }
    void ring()
    {
        QFETCH(int, shape);
        QFETCH(QVector<Position>, held);
        QFETCH(QVector<Position>, ring);
        XmlGeoFeature feature;
        feature.shape = XmlGeoFeature::Shape(shape);
        feature.positions = held;
        QCOMPARE(text(feature.ring()), text(ring));
    }
};

QTEST_GUILESS_MAIN(TestXmlGeoFeatures)
#include "tst_xmlgeofeatures.moc"
