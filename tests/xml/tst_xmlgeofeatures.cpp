// The walk over a document's geographic objects: which objects, in which
// order, their positions as held, their radio parameters, the verdict on the
// invalid ones, and the closed counter-clockwise outline of an area.

#include "KelXmlTest.h"

#include <XmlCmdRoot.h>
#include <XmlGeoFeatures.h>
#include <XmlKelBtType.h>

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
