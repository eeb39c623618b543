// The two shapes and the two areas built on them: their wording, the
// three-vertex minimum that only the reader knows, the sorted vertices and
// their numbering report, and the one shape an area holds.

#include "KelXmlTest.h"

#include <XmlAoiType.h>
#include <XmlAreaPolyType.h>
#include <XmlDeploymentAreaType.h>

#include <QtTest>

using namespace KelXml;
using KelXmlTest::block;

namespace {

QString vertex(int number, double longitude, double latitude = 48)
{
    return QString(
               "<Vertex number=\"%1\"><Longitude>%2</Longitude><Latitude>%3</Latitude></Vertex>")
        .arg(number)
        .arg(longitude)
        .arg(latitude);
}

const QString upperLeft =
    QStringLiteral("<UpperLeft><Longitude>11</Longitude><Latitude>49</Latitude></UpperLeft>");
const QString lowerRight =
    QStringLiteral("<LowerRight><Longitude>12</Longitude><Latitude>48</Latitude></LowerRight>");
const QString rectXml = "<AreaRect>" + upperLeft + lowerRight + "</AreaRect>";
const QString name = QStringLiteral("<Name>Area 1</Name>");
const QString radio = QStringLiteral("<AntennaHeight unit=\"m\">10</AntennaHeight>"
                                     "<RxThreshold unit=\"dBm\">-100</RxThreshold>"
                                     "<Frequency unit=\"MHz\">100</Frequency>"
                                     "<TxPower unit=\"W\">10</TxPower>");
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

// The located error's class and message, without line and column.
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

// A setter installing one shape deletes the other.
template <class Area>
void checkOneShape(Area& area)
{
    area.setAreaRect(XmlAreaRectType());
    area.setAreaPoly(XmlAreaPolyType());
    QVERIFY(!area.hasAreaRect() && area.hasAreaPoly());
    area.setAreaRect(XmlAreaRectType());
    QVERIFY(area.hasAreaRect() && !area.hasAreaPoly());
}

} // namespace

class TestAreas : public QObject
{
    Q_OBJECT

private slots:
    // The shapes word their refusals with the tag's name, the areas without.
    // A signal path may stand before or after an area's name, but before the
    // rest.
    void wording()
    {
        XmlAreaRectType rect;
        QCOMPARE(
            where(KelXmlTest::read(rect, "<AreaRect>" + lowerRight + upperLeft + "</AreaRect>")),
            QString("XmlAreaRectType: Unexpected token \"StartElement\": UpperLeft"));
        XmlAreaPolyType polygon, pair;
        QCOMPARE(where(KelXmlTest::read(polygon, "<P>" + vertex(0, 1) + "<Point/></P>")),
                 QString("XmlAreaPolyType: Unexpected token \"StartElement\": Point"));
        // Only the reader wants three vertices: two read are kept and valid.
        QCOMPARE(where(KelXmlTest::read(pair, "<P>" + vertex(0, 1) + vertex(1, 2) + "</P>")),
                 QString("XmlAreaPolyType: Unexpected token \"EndElement\": P"));
        QCOMPARE(pair.vertices().size(), 2);
        QVERIFY(pair.isValid());
        XmlDeploymentAreaType area;
        QCOMPARE(KelXmlTest::read(area, "<DA>" + signalPath + name + rectXml + radio + "</DA>"),
                 QString());
        QCOMPARE(KelXmlTest::read(area, "<DA>" + name + signalPath + rectXml + radio + "</DA>"),
                 QString());
        QCOMPARE(where(KelXmlTest::read(area, "<DA>" + name + rectXml + signalPath + "</DA>")),
                 QString("XmlDeploymentAreaType: Unexpected element \"SignalPath\""));
    }

    // Vertices are held sorted by number, equal numbers in the order they
    // came. The numbering walk starts at -1 and stops at the first vertex out
    // of order, after that vertex's own report. Each vertex is given the
    // longitude of its place in the document; "!" marks one with an
    // impossible latitude.
    void polygonOrder_data()
    {
        QTest::addColumn<QString>("numbers");
        QTest::addColumn<QString>("held");
        QTest::addColumn<QStringList>("report");
        const auto row = [](const char* numbers, const char* held, const QStringList& report) {
            QTest::newRow(numbers) << QString(numbers) << QString(held) << report;
        };
        const QString numbering = "Illegal numbering.";
        const QString latitude = block("XmlCoordinateType", {"Latitude out of bounds"});
        row("3 1 2", "1 2 0", {});
        row("2 1 2", "1 0 2", {numbering});
        row("0 4 4! 7!", "0 1 2 3", {latitude, numbering});
        row("0! 4 4 7!", "0 1 2 3", {latitude, numbering});
        row("5 -1 2", "1 2 0",
            {block("XmlCoordinateType", {"(XmlNumCoordType) Number attribute too small (min. 0)"}),
             numbering});
    }

    void polygonOrder()
    {
        QFETCH(QString, numbers);
        QFETCH(QString, held);
        QFETCH(QStringList, report);
        QString xml = "<AreaPolygon>";
        const QStringList items = numbers.split(' ');
        for (int i = 0; i < items.size(); ++i)
            xml +=
                vertex(QString(items[i]).remove('!').toInt(), i, items[i].endsWith('!') ? 95 : 48);
        XmlAreaPolyType polygon;
        QCOMPARE(KelXmlTest::read(polygon, xml + "</AreaPolygon>"), QString());
        QCOMPARE(longitudes(polygon), held);
        QCOMPARE(polygon.isValid(), report.isEmpty());
        QCOMPARE(polygon.syntaxError(),
                 report.isEmpty() ? QString() : block("XmlAreaPolyType", report));
    }

    // The vertices set, sorted in, and assigned are copies; setting the own
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
        QVERIFY(!polygon.vertices().contains(&outside));
        polygon.setVertices(polygon.vertices());
        QCOMPARE(longitudes(polygon), QString("0 2 99 4"));

        XmlAreaPolyType assigned;
        QCOMPARE(KelXmlTest::read(assigned, triangle(7, 8, 9)), QString());
        assigned = polygon;
        QCOMPARE(longitudes(assigned), QString("0 2 99 4"));
        for (int i = 0; i < 4; ++i)
            QVERIFY(assigned.vertices()[i] != polygon.vertices()[i]);

        QCOMPARE(KelXmlTest::read(polygon, triangle(1, 3, 5)), QString());
        QCOMPARE(longitudes(polygon), QString("0 1 2 99 3 4 5"));
    }

    // Reading and setVertices() give the order that taking the vertices in
    // one at a time gives, each after the last one (searched from the back)
    // whose number is not greater: equal numbers in the order they came,
    // after those already held, also when a caller changed held numbers, and
    // with what was read kept when the reading fails. Each vertex carries
    // its place in the input as its longitude.
    void polygonOrderAsTakenOneByOne_data()
    {
        QTest::addColumn<QList<int>>("held");
        QTest::addColumn<QList<int>>("changed"); // held numbers after the caller's changes
        QTest::addColumn<QList<int>>("read");
        QTest::addColumn<QString>("tail"); // after the vertices: the rest of the element
        QTest::newRow("descending")
            << QList<int>{} << QList<int>{} << QList<int>{5, 4, 3, 2, 1} << "</P>";
        QTest::newRow("equal numbers")
            << QList<int>{} << QList<int>{} << QList<int>{2, 1, 2, 1, 2, 0} << "</P>";
        QTest::newRow("after those held")
            << QList<int>{0, 2, 4} << QList<int>{0, 2, 4} << QList<int>{4, 2, 0, 5, 1} << "</P>";
        QTest::newRow("held numbers changed") << QList<int>{0, 2, 4} << QList<int>{9, 2, 1}
                                              << QList<int>{1, 3, 5, 9, -1, 2} << "</P>";
        QTest::newRow("all read after those held")
            << QList<int>{0, 2, 4} << QList<int>{0, 2, 4} << QList<int>{7, 5, 6} << "</P>";
        QTest::newRow("reading fails") << QList<int>{1} << QList<int>{1} << QList<int>{3, 0, 2}
                                       << "<Point/>" + vertex(-5, 0) + "</P>";
        QTest::newRow("ends too early")
            << QList<int>{} << QList<int>{} << QList<int>{1, 0} << "</P>";
        // Many equal numbers, shuffled: a sort that is not stable shows here.
        QList<int> many;
        quint32 state = 12345;
        for (int i = 0; i < 300; ++i) {
            state = state * 1103515245u + 12345u;
            many.append(int(state >> 16) % 7);
        }
        QTest::newRow("many, shuffled")
            << QList<int>{3, 3, 5} << QList<int>{3, 3, 5} << many << "</P>";
    }

    void polygonOrderAsTakenOneByOne()
    {
        QFETCH(QList<int>, held);
        QFETCH(QList<int>, changed);
        QFETCH(QList<int>, read);
        QFETCH(QString, tail);
        // The order as one vertex after the other is taken in: (number, place).
        QList<QPair<int, int>> expected;
        const auto takeIn = [&expected](int number, int place) {
            int at = int(expected.size());
            while (at > 0 && expected.at(at - 1).first > number)
                --at;
            expected.insert(at, qMakePair(number, place));
        };
        XmlAreaPolyType polygon;
        QVector<XmlNumCoordType*> given;
        for (int i = 0; i < held.size(); ++i) {
            given.append(new XmlNumCoordType);
            given.last()->setNumber(held[i]);
            given.last()->setLongitude(100 + i);
            takeIn(held[i], 100 + i);
        }
        polygon.setVertices(given);
        qDeleteAll(given);
        QCOMPARE(polygon.vertices().size(), held.size());
        // A caller may change the numbers of the vertices held.
        expected.clear();
        for (int i = 0; i < changed.size(); ++i) {
            polygon.vertices()[i]->setNumber(changed[i]);
            expected.append(qMakePair(changed[i], int(polygon.vertices()[i]->longitude())));
        }
        QString xml = "<P>";
        for (int i = 0; i < read.size(); ++i) {
            xml += vertex(read[i], i);
            takeIn(read[i], i);
        }
        const QString error = KelXmlTest::read(polygon, xml + tail);
        QCOMPARE(error.isEmpty(), tail == "</P>" && held.size() + read.size() >= 3);
        QList<QPair<int, int>> actual;
        for (const XmlNumCoordType* v : polygon.vertices())
            actual.append(qMakePair(v->number(), int(v->longitude())));
        QCOMPARE(actual, expected);

        // Set anew, the same vertices keep that order.
        QVector<XmlNumCoordType*> reversed = polygon.vertices();
        std::reverse(reversed.begin(), reversed.end());
        XmlAreaPolyType set;
        set.setVertices(reversed);
        expected.clear();
        for (const XmlNumCoordType* v : reversed)
            takeIn(v->number(), int(v->longitude()));
        actual.clear();
        for (const XmlNumCoordType* v : set.vertices())
            actual.append(qMakePair(v->number(), int(v->longitude())));
        QCOMPARE(actual, expected);
    }

    // An area holds one shape, a setter deleting the other. Without one, the
    // report says so in the shape's place.
    void oneShape()
    {
        XmlAoiType aoi;
        QCOMPARE(aoi.syntaxError(),
                 block("XmlAoiType",
                       {block("XmlObjNameType", {"Object name too short (min. 1)."}),
                        "Neither AreaRect nor AreaPolygon", XmlTxParamType().syntaxError()}));
        checkOneShape(aoi);
        XmlDeploymentAreaType area;
        checkOneShape(area);
    }
};

QTEST_GUILESS_MAIN(TestAreas)
#include "tst_areas.moc"
