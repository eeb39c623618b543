// Geographic positions: the version refused while reading, inclusive bounds,
// and the numbered vertex, whose messages carry the name of its base class.

#include "KelXmlTest.h"

#include <XmlNumCoordType.h>

#include <QtTest>

using namespace KelXml;
using KelXmlTest::block;

static const QString coordinate = QStringLiteral("XmlCoordinateType");

class TestCoordinates : public QObject
{
    Q_OBJECT

private slots:
    // Rows tagged "vertex" read a vertex, the others a plain position; each
    // xml lacks its end tag. The state is longitude, latitude and a vertex's
    // number.
    void read_data()
    {
        QTest::addColumn<QString>("xml");
        QTest::addColumn<QString>("error");
        QTest::addColumn<QString>("state");
        const QString p = "<Pos version=\"1.0\">";
        const QString lo = "<Longitude>11.5</Longitude>", la = "<Latitude>48.1</Latitude>";
        const auto at = [](int column, const char* message) {
            return KelXmlTest::located(coordinate, 1, column, message);
        };
        // The token messages name the tag; text that is no number is taken as 0.
        QTest::newRow("latitude first")
            << p + la + lo << at(55, "Unexpected token \"StartElement\": Longitude")
            << "-999.999 48.1";
        QTest::newRow("not numeric")
            << p + "<Longitude>x</Longitude>" + la << QString() << "0 48.1";
        QTest::newRow("version 2.0") << "<Pos version=\"2.0\">" + lo + la
                                     << at(19, "Version not supported: 2.0") << "-999.999 -999.999";
        // A vertex reads its number first; after an error there it reads nothing more.
        QTest::newRow("vertex") << "<Pos number=\"3\">" + lo + la << QString() << "11.5 48.1 3";
        QTest::newRow("vertex number 2.5")
            << "<Pos number=\"2.5\">" + lo + la
            << at(18, "Illegal attribute value (must be numeric)") << "-999.999 -999.999 0";
    }
    void read()
    {
        QFETCH(QString, xml);
        const bool isVertex = QByteArray(QTest::currentDataTag()).startsWith("vertex");
        XmlCoordinateType position;
        XmlNumCoordType vertex;
        XmlCoordinateType& object = isVertex ? vertex : position;
        object.setVersion("0.9");
        QTEST(KelXmlTest::read(object, xml + "</Pos>"), "error");
        QStringList state{QString::number(object.longitude()), QString::number(object.latitude())};
        if (isVertex)
            state << QString::number(vertex.number());
        QTEST(state.join(' '), "state");
        // The version is stored as read, even when it is refused.
        QCOMPARE(object.version(), QString::fromLatin1(xml.contains("\"2.0\"") ? "2.0" : "1.0"));
    }

    // Both bounds are inclusive. A vertex reports in the block of its base
    // class, its number line last; the report agrees with the verdict.
    void validity()
    {
        XmlNumCoordType vertex;
        const auto report = [&vertex](double longitude, double latitude, int number) {
            vertex.setLongitude(longitude);
            vertex.setLatitude(latitude);
            vertex.setNumber(number);
            const QString text = vertex.syntaxError();
            return vertex.isValid() == text.isEmpty() ? text : QStringLiteral("verdict differs");
        };
        const QString lon = "Longitude out of bounds", lat = "Latitude out of bounds";
        const QString number = "(XmlNumCoordType) Number attribute too small (min. 0)";
        QCOMPARE(report(180.0, -90.0, 0), QString());
        QCOMPARE(report(-180.0, 90.000001, 0), block(coordinate, {lat}));
        QCOMPARE(report(0.0, 0.0, -1), block(coordinate, {number}));
        QCOMPARE(report(-999.999, -999.999, -9999), block(coordinate, {lon, lat, number}));
    }

    // Six decimals; a vertex writes its number after the version.
    void write()
    {
        XmlNumCoordType vertex;
        KelXmlTest::read(vertex, "<P number=\"3\"><Longitude>12.5</Longitude>"
                                 "<Latitude>-0.1234567</Latitude></P>");
        const QString children = "<Longitude>12.500000</Longitude><Latitude>-0.123457</Latitude>";
        QCOMPARE(KelXmlTest::write(XmlCoordinateType(vertex), "Pos"),
                 "<Pos version=\"1.0\">" + children + "</Pos>");
        QCOMPARE(KelXmlTest::write(vertex, "Pos"),
                 "<Pos version=\"1.0\" number=\"3\">" + children + "</Pos>");
    }
};

QTEST_GUILESS_MAIN(TestCoordinates)
#include "tst_coordinates.moc"
