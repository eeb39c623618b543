// The result information records: children strictly one after the other,
// shapes that exclude each other only while reading, a report that consults
// the polygon alone, and the comment of the best-sensor record.

#include "KelXmlTest.h"

#include <XmlElementRegistry.h>
#include <XmlResInfo_BestSensor_Type.h>

#include <QtTest>

using namespace KelXml;
using KelXmlTest::block;

namespace {

const QString nameXml = "<Name>Run 1</Name>", gridXml = "<ResultGrid>100</ResultGrid>",
              commentXml = "<Comment>best</Comment>";
const QString rectXml = KelXmlTest::write(XmlAreaRectType(), "AreaRect");
const QString vertex = "<Vertex number=\"%1\"><Longitude>1%1</Longitude><Latitude>4</Latitude>"
                       "</Vertex>";
const QString polygonXml =
    "<AreaPolygon>" + vertex.arg(0) + vertex.arg(1) + vertex.arg(2) + "</AreaPolygon>";
const QString valuesXml = "<Values version=\"1.0\" unit=\"dBm\"><Min>-1</Min><Max>1</Max></Values>";

// The reader's error without its line and column.
QString unlocated(const QString& error)
{
    const auto from = error.indexOf(" (line ");
    return from < 0 ? error : error.left(from) + error.mid(error.indexOf("): ", from) + 1);
}

} // namespace

class TestRecords : public QObject
{
    Q_OBJECT

private slots:
    // Each child is taken only right after the one before it.
    void reading_data()
    {
        QTest::addColumn<bool>("bestSensor");
        QTest::addColumn<QString>("xml");
        QTest::addColumn<QString>("error");
        const auto r = [](const QString& body) { return "<R>" + body + "</R>"; };
        const QString full = nameXml + rectXml + gridXml + valuesXml;
        QTest::newRow("no comment here")
            << false << r(full + commentXml) << "Unexpected element \"Comment\"";
        QTest::newRow("shape first")
            << true << r(rectXml + nameXml) << "Unexpected element \"AreaRect\"";
        QTest::newRow("no values")
            << false << r(nameXml + rectXml + gridXml) << "Unexpected token \"EndElement\"";
        QTest::newRow("version 2.0") << false << "<R version=\"2.0\">" + full + "</R>"
                                     << "Version not supported: 2.0";
    }
    void reading()
    {
        QFETCH(bool, bestSensor);
        QFETCH(QString, xml);
        QFETCH(QString, error);
        const QString cls = bestSensor ? "XmlResInfo_BestSensor_Type" : "XmlResInfo_Cep_Type";
        const auto record = XmlElementRegistry::create(cls);
        QCOMPARE(unlocated(KelXmlTest::read(*record, xml)), "in " + cls + ": " + error + ".");
    }

    // A shape read replaces the one held of its kind and leaves the other;
    // both are written, polygon first, and only the polygon is checked.
    // The comment closes the best-sensor record.
    void twoShapes()
    {
        XmlAreaRectType badRect;
        badRect.setVersion("2.0");
        XmlResInfo_BestSensor_Type record;
        record.setAreaRect(badRect);
        XmlAreaPolyType held;
        QCOMPARE(KelXmlTest::read(held, polygonXml), QString());
        record.setAreaPoly(held);
        const QString body = nameXml + polygonXml + gridXml + valuesXml + commentXml;
        QCOMPARE(KelXmlTest::read(record, "<R>" + body + "</R>"), QString());
        QCOMPARE(record.areaPoly()->vertices().size(), 3);
        QVERIFY(record.hasAreaRect() && record.hasComment() && record.isValid());
        const QString written = KelXmlTest::write(record, "R");
        QVERIFY(written.indexOf("<AreaPolygon") < written.indexOf("<AreaRect"));

        held.setVersion("2.0");
        record.setAreaPoly(held);
        QCOMPARE(record.syntaxError(), block("XmlResInfo_BestSensor_Type", {held.syntaxError()}));
    }

    // Version (worded unlike the reader), name, area or its absence, grid,
    // values, comment.
    void report()
    {
        XmlResInfo_BestSensor_Type record;
        record.setVersion("2.0");
        record.setComment(XmlObjNameType());
        const QString noName = XmlObjNameType().syntaxError();
        QCOMPARE(
            record.syntaxError(),
            block("XmlResInfo_BestSensor_Type",
                  {"Version \"2.0\" not supported", noName, "Neither AreaPolygon nor AreaRect",
                   XmlResultGridType().syntaxError(), XmlGridValuesType().syntaxError(), noName}));
    }
};

QTEST_GUILESS_MAIN(TestRecords)
#include "tst_records.moc"
