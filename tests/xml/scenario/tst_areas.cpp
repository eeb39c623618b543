// The two shapes and the two areas built on them: child orders and their
// wording, the sorted vertices and their numbering report, the three-vertex
// minimum that only the reader knows, and the one shape an area holds.

#include "KelXmlTest.h"

#include <XmlAoiType.h>
#include <XmlAreaPolyType.h>
#include <XmlAreaRectType.h>
#include <XmlDeploymentAreaType.h>
#include <XmlElementRegistry.h>

#include <QtTest>

using namespace KelXml;
using KelXmlTest::block;

namespace {

const QString polyClass = QStringLiteral("XmlAreaPolyType");
const QString numbering = QStringLiteral("Illegal numbering.");
const QString noShape = QStringLiteral("Neither AreaRect nor AreaPolygon");

QString corner(const char* name, double longitude, double latitude)
{
    return QString("<%1><Longitude>%2</Longitude><Latitude>%3</Latitude></%1>")
        .arg(name)
        .arg(longitude)
        .arg(latitude);
}

QString vertex(int number, double longitude, double latitude = 48)
{
    return QString(
               "<Vertex number=\"%1\"><Longitude>%2</Longitude><Latitude>%3</Latitude></Vertex>")
        .arg(number)
        .arg(longitude)
        .arg(latitude);
}

const QString rectXml =
    "<AreaRect>" + corner("UpperLeft", 11, 49) + corner("LowerRight", 12, 48) + "</AreaRect>";
const QString polygonXml =
    "<AreaPolygon>" + vertex(0, 11) + vertex(1, 12) + vertex(2, 13) + "</AreaPolygon>";
const QString name = QStringLiteral("<Name>Area 1</Name>");
const QString txParam = QStringLiteral("<TxParameter><Frequency unit=\"MHz\">100</Frequency>"
                                       "<TxPower unit=\"W\">10</TxPower>"
                                       "<AntennaHeight unit=\"m\">20</AntennaHeight>"
                                       "<Bandwidth unit=\"kHz\">25</Bandwidth></TxParameter>");
const QString height = QStringLiteral("<AntennaHeight unit=\"m\">10</AntennaHeight>");
const QString threshold = QStringLiteral("<RxThreshold unit=\"dBm\">-100</RxThreshold>");
const QString frequency = QStringLiteral("<Frequency unit=\"MHz\">100</Frequency>");
const QString power = QStringLiteral("<TxPower unit=\"W\">10</TxPower>");
const QString radio = height + threshold + frequency + power;
const QString signalPath = QStringLiteral(
    "<SignalPath><Name>Chain</Name><SINAD>10</SINAD><Device><Device>"
    "<DeviceCategory>Cable</DeviceCategory><Name>C</Name>"
    "<Frequencies><Frequency unit=\"MHz\">100</Frequency></Frequencies>"
    "<Attenuations><Decibel>3</Decibel></Attenuations></Device></Device></SignalPath>");

// Three vertices, each with its number for longitude.
QString triangle(int a, int b, int c)
{
    return "<P>" + vertex(a, a) + vertex(b, b) + vertex(c, c) + "</P>";
}

// The located error's class and message, without line and column; empty
// when the element was read cleanly.
QString where(const QString& error)
{
    const QRegularExpression located("^in (\\w+) \\(line \\d+, column \\d+\\): (.*)\\.$");
    const QRegularExpressionMatch match = located.match(error);
    return match.hasMatch() ? match.captured(1) + ": " + match.captured(2) : error;
}

// The longitudes of the polygon's vertices, in the order it holds them.
QString longitudes(const XmlAreaPolyType& polygon)
{
    QStringList texts;
    for (const XmlNumCoordType* v : polygon.vertices())
        texts.append(QString::number(v->longitude()));
    return texts.join(' ');
}

} // namespace

class TestAreas : public QObject
{
    Q_OBJECT

private slots:
    void reading_data()
    {
        QTest::addColumn<QString>("classname");
        QTest::addColumn<QString>("xml");
        QTest::addColumn<QString>("error");
        const auto row = [](const char* tag, const char* classname, const QString& xml,
                            const QString& error = {}) {
            QTest::newRow(tag) << QString(classname) << xml << error;
        };
        const QString endTag = "Unexpected token \"EndElement\"";
        const QString aoiEnd = "XmlAoiType: " + endTag;
        const QString areaEnd = "XmlDeploymentAreaType: " + endTag;
        for (const char* classname :
             {"XmlAreaRectType", "XmlAreaPolyType", "XmlAoiType", "XmlDeploymentAreaType"}) {
            QTest::addRow("%s: version 2.0", classname)
                << QString(classname) << QString("<E version=\"2.0\"/>")
                << QString(classname) + ": Version not supported: 2.0";
        }
        const auto refused = [](const char* classname, const char* child) {
            return QString("%1: Unexpected element \"%2\"").arg(classname, child);
        };

        // The shapes word their refusals with the tag's name.
        const QString ul = corner("UpperLeft", 11, 49), lr = corner("LowerRight", 12, 48);
        row("rect", "XmlAreaRectType", rectXml);
        row("rect: corners swapped", "XmlAreaRectType", "<AreaRect>" + lr + ul + "</AreaRect>",
            "XmlAreaRectType: Unexpected token \"StartElement\": UpperLeft");
        row("rect: one corner", "XmlAreaRectType", "<AreaRect>" + ul + "</AreaRect>",
            "XmlAreaRectType: Unexpected token \"EndElement\": AreaRect");
        row("polygon", "XmlAreaPolyType", polygonXml);
        row("polygon: two vertices", "XmlAreaPolyType",
            "<P>" + vertex(0, 1) + vertex(1, 2) + "</P>",
            "XmlAreaPolyType: Unexpected token \"EndElement\": P");
        row("polygon: other child", "XmlAreaPolyType", "<P>" + vertex(0, 1) + "<Point/></P>",
            "XmlAreaPolyType: Unexpected token \"StartElement\": Point");
        row("polygon: bad vertex", "XmlAreaPolyType",
            "<P>" + vertex(0, 1) + "<Vertex number=\"1\"><Longitude>2</Longitude><Height/>",
            "XmlCoordinateType: Unexpected token \"StartElement\": Height");

        // The areas word them without.
        row("aoi: rectangle", "XmlAoiType", "<AOI>" + name + rectXml + txParam + "</AOI>");
        row("aoi: polygon and threshold", "XmlAoiType",
            "<AOI>" + name + polygonXml + txParam + threshold + "</AOI>");
        row("aoi: shape before name", "XmlAoiType", "<AOI>" + rectXml + name + "</AOI>",
            refused("XmlAoiType", "Name"));
        row("aoi: two shapes", "XmlAoiType", "<AOI>" + name + rectXml + polygonXml + "</AOI>",
            refused("XmlAoiType", "AreaPolygon"));
        row("aoi: no shape", "XmlAoiType", "<AOI>" + name + txParam + "</AOI>", aoiEnd);
        row("aoi: threshold twice", "XmlAoiType",
            "<AOI>" + name + rectXml + txParam + threshold + threshold + "</AOI>",
            refused("XmlAoiType", "RxThreshold"));
        row("aoi: threshold first", "XmlAoiType",
            "<AOI>" + name + rectXml + threshold + txParam + "</AOI>",
            refused("XmlAoiType", "TxParameter"));
        row("area: polygon", "XmlDeploymentAreaType", "<DA>" + name + polygonXml + radio + "</DA>");
        row("area: signal path first", "XmlDeploymentAreaType",
            "<DA>" + signalPath + name + rectXml + radio + "</DA>");
        row("area: signal path after name", "XmlDeploymentAreaType",
            "<DA>" + name + signalPath + rectXml + radio + "</DA>");
        row("area: signal path after shape", "XmlDeploymentAreaType",
            "<DA>" + name + rectXml + signalPath + "</DA>",
            refused("XmlDeploymentAreaType", "SignalPath"));
        row("area: signal path twice", "XmlDeploymentAreaType",
            "<DA>" + signalPath + name + signalPath + "</DA>",
            refused("XmlDeploymentAreaType", "SignalPath"));
        row("area: no power", "XmlDeploymentAreaType",
            "<DA>" + name + rectXml + height + threshold + frequency + "</DA>", areaEnd);
    }

    void reading()
    {
        QFETCH(QString, classname);
        QFETCH(QString, xml);
        QFETCH(QString, error);
        const auto element = XmlElementRegistry::create(classname);
        QVERIFY(element);
        QCOMPARE(where(KelXmlTest::read(*element, xml)), error);
        if (error.isEmpty() && !xml.contains("<SignalPath>")) // the signal path is not valid
            QVERIFY2(element->isValid(), qPrintable(element->syntaxError()));
    }

    // Vertices are held sorted by number, equal numbers in the order they
    // came, whether read or set. The numbering walk starts at -1 and stops at
    // the first vertex out of order, after that vertex's own report. Each
    // vertex is given the longitude of its place in the document; "!" marks
    // one with an impossible latitude.
    void polygonOrder_data()
    {
        QTest::addColumn<QString>("numbers");
        QTest::addColumn<QString>("held");
        QTest::addColumn<QStringList>("report");
        const QString latitude = block("XmlCoordinateType", {"Latitude out of bounds"});
        const QString negative =
            block("XmlCoordinateType", {"(XmlNumCoordType) Number attribute too small (min. 0)"});
        const auto row = [](const char* tag, const char* numbers, const char* held,
                            const QStringList& report = {}) {
            QTest::newRow(tag) << QString(numbers) << QString(held) << report;
        };
        row("shuffled", "3 1 2", "1 2 0");
        row("descending", "9 8 7 6", "3 2 1 0");
        row("equal keep their order", "2 1 2", "1 0 2", {numbering});
        row("stops at the first fault", "0 4 4! 7!", "0 1 2 3", {latitude, numbering});
        row("faulty vertex before the fault", "0! 4 4 7!", "0 1 2 3", {latitude, numbering});
        row("negative", "5 -1 2", "1 2 0", {negative, numbering});
    }

    void polygonOrder()
    {
        QFETCH(QString, numbers);
        QFETCH(QString, held);
        QFETCH(QStringList, report);
        QString xml = "<AreaPolygon>";
        QVector<XmlNumCoordType*> given;
        const QStringList items = numbers.split(' ');
        for (int i = 0; i < items.size(); ++i) {
            QString item = items[i];
            const double latitude = item.endsWith('!') ? 95 : 48;
            item.remove('!');
            xml += vertex(item.toInt(), i, latitude);
            given.append(new XmlNumCoordType);
            given.last()->setNumber(item.toInt());
            given.last()->setLongitude(i);
            given.last()->setLatitude(latitude);
        }
        const QString expected = report.isEmpty() ? QString() : block(polyClass, report);

        XmlAreaPolyType read;
        QCOMPARE(KelXmlTest::read(read, xml + "</AreaPolygon>"), QString());
        XmlAreaPolyType set;
        set.setVertices(given);
        qDeleteAll(given);
        for (XmlAreaPolyType* polygon : {&read, &set}) {
            QCOMPARE(longitudes(*polygon), held);
            QCOMPARE(polygon->isValid(), report.isEmpty());
            QCOMPARE(polygon->syntaxError(), expected);
        }
        QCOMPARE(KelXmlTest::write(set, "P"), KelXmlTest::write(read, "P"));
    }

    // Only the reader wants three vertices: two read before the refused end
    // tag are valid, and so is an empty polygon, written as a bare element.
    void polygonMinimum()
    {
        XmlAreaPolyType polygon;
        QVERIFY(polygon.isValid());
        QCOMPARE(KelXmlTest::write(polygon, "AreaPolygon"),
                 QString("<AreaPolygon version=\"1.0\"/>"));
        QVERIFY(!KelXmlTest::read(polygon, "<P>" + vertex(0, 1) + vertex(1, 2) + "</P>").isEmpty());
        QCOMPARE(polygon.vertices().size(), 2);
        QVERIFY(polygon.isValid());
    }

    // The vertices set, copied and assigned are copies; setting the own
    // vertices is safe; reading adds to the vertices held.
    void polygonOwnership()
    {
        XmlAreaPolyType polygon;
        QCOMPARE(KelXmlTest::read(polygon, triangle(0, 2, 4)), QString());
        XmlNumCoordType outside;
        outside.setNumber(3);
        outside.setLongitude(99);
        QVector<XmlNumCoordType*> vertices = polygon.vertices();
        vertices.append(&outside);
        polygon.setVertices(vertices);
        QCOMPARE(longitudes(polygon), QString("0 2 99 4"));
        QVERIFY(!polygon.vertices().contains(&outside));
        polygon.setVertices(polygon.vertices());
        QCOMPARE(longitudes(polygon), QString("0 2 99 4"));

        XmlAreaPolyType copy(polygon), assigned;
        QCOMPARE(KelXmlTest::read(assigned, triangle(7, 8, 9)), QString());
        assigned = polygon;
        for (XmlAreaPolyType* other : {&copy, &assigned}) {
            QCOMPARE(longitudes(*other), QString("0 2 99 4"));
            for (int i = 0; i < 4; ++i)
                QVERIFY(other->vertices()[i] != polygon.vertices()[i]);
        }

        QCOMPARE(KelXmlTest::read(polygon, triangle(1, 3, 5)), QString());
        QCOMPARE(longitudes(polygon), QString("0 1 2 99 3 4 5"));
    }

    // Vertices in ascending order are appended at once: four times the
    // vertices take far less than the sixteen times of a quadratic reading.
    void polygonReadsInLinearTime()
    {
        const auto nanoseconds = [](int count) -> qint64 {
            QString xml = "<AreaPolygon>";
            xml.reserve(count * 80);
            for (int i = 0; i < count; ++i)
                xml += vertex(i, 1);
            xml += "</AreaPolygon>";
            XmlAreaPolyType polygon;
            QElapsedTimer timer;
            timer.start();
            if (!KelXmlTest::read(polygon, xml).isEmpty() || polygon.vertices().size() != count)
                return -1;
            return timer.nsecsElapsed();
        };
        const qint64 small = nanoseconds(25000);
        const qint64 large = nanoseconds(100000);
        QVERIFY(small > 0 && large > 0);
        QVERIFY2(large < 10 * small,
                 qPrintable(QString("%1 ns, then %2 ns").arg(small).arg(large)));
    }

    // An area holds one shape: a setter or a reading that installs one
    // deletes the other. Without one, the report says so in the shape's place.
    void oneShape()
    {
        XmlAoiType aoi;
        XmlDeploymentAreaType area;
        const QString noName = block("XmlObjNameType", {"Object name too short (min. 1)."});
        const QString noThreshold = XmlFieldstrengthType().syntaxError();
        const QString noFrequency = XmlFreqType().syntaxError();
        QVERIFY(XmlLengthType().isValid() && XmlPowerType().isValid());
        QCOMPARE(aoi.syntaxError(),
                 block("XmlAoiType", {noName, noShape, XmlTxParamType().syntaxError()}));
        area.setSignalPath(XmlSignalPathType());
        QCOMPARE(area.syntaxError(),
                 block("XmlDeploymentAreaType", {XmlSignalPathType().syntaxError(), noName, noShape,
                                                 noThreshold, noFrequency}));

        XmlAreaRectType rectangle; // its corners are out of range
        XmlAreaPolyType emptyPolygon;
        aoi.setAreaRect(rectangle);
        area.setAreaRect(rectangle);
        QVERIFY(aoi.hasAreaRect() && area.hasAreaRect());
        aoi.setAreaPoly(emptyPolygon);
        area.setAreaPoly(emptyPolygon);
        QVERIFY(!aoi.hasAreaRect() && aoi.hasAreaPoly());
        QVERIFY(!area.hasAreaRect() && area.hasAreaPoly());
        aoi.setAreaRect(rectangle);
        area.setAreaRect(rectangle);
        QVERIFY(aoi.hasAreaRect() && !aoi.hasAreaPoly());
        QVERIFY(area.hasAreaRect() && !area.hasAreaPoly());

        QCOMPARE(KelXmlTest::read(aoi, "<AOI>" + name + polygonXml + txParam + "</AOI>"),
                 QString());
        QCOMPARE(KelXmlTest::read(area, "<DA>" + name + polygonXml + radio + "</DA>"), QString());
        QVERIFY(!aoi.hasAreaRect() && aoi.hasAreaPoly());
        QVERIFY(!area.hasAreaRect() && area.hasAreaPoly());
    }

    // The threshold of an area of interest is optional: absent it is not
    // written, reset leaves none, and reading one replaces the one held.
    void aoiThreshold()
    {
        XmlAoiType aoi;
        aoi.reset();
        QVERIFY(!aoi.hasRxThreshold());
        QCOMPARE(KelXmlTest::read(aoi, "<AOI>" + name + rectXml + txParam + "</AOI>"), QString());
        QVERIFY(aoi.isValid());
        QVERIFY(!KelXmlTest::write(aoi, "AOI").contains("RxThreshold"));

        XmlFieldstrengthType held;
        held.setFieldstrength(-50);
        aoi.setRxThres(held);
        QVERIFY(KelXmlTest::write(aoi, "AOI").endsWith("</RxThreshold></AOI>"));
        QCOMPARE(KelXmlTest::read(aoi, "<AOI>" + name + rectXml + txParam +
                                           "<RxThreshold unit=\"dBm\"/></AOI>"),
                 QString());
        QCOMPARE(aoi.RxThres()->fieldstrength(), XmlFieldstrengthType().fieldstrength());
        aoi.reset();
        QVERIFY(!aoi.hasRxThreshold() && !aoi.hasAreaRect());
    }
};

QTEST_GUILESS_MAIN(TestAreas)
#include "tst_areas.moc"
