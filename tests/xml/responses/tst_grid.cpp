// The grid size and the grid value range: exact enumeration texts, the two
// full stops of the size's parse message, the 6-digit general number format,
// and the value range's lenient number reading.

#include "KelXmlTest.h"

#include <XmlGridValuesType.h>
#include <XmlResultGridType.h>

#include <QtTest>

using namespace KelXml;
using KelXmlTest::block;

namespace {

// A reader error without its line and column: "in <class>: <message>."
QString unlocated(const QString& error)
{
    const auto from = error.indexOf(" (line ");
    const auto to = error.indexOf("): ", from);
    return from < 0 || to < 0 ? error : error.left(from) + error.mid(to + 1);
}

} // namespace

class TestGrid : public QObject
{
    Q_OBJECT

private slots:
    // Texts match exactly; a refused text sets 0 and its message keeps its own
    // full stop before the located error's one; an empty element keeps the size.
    void gridSize_data()
    {
        QTest::addColumn<QString>("xml");
        QTest::addColumn<int>("size");
        QTest::addColumn<QString>("error");
        QTest::addColumn<QString>("written");
        const QString illegal = "in XmlResultGridType: Illegal enum value..";
        const QString undefined = "<G>UNDEFINED</G>", none;
        QTest::newRow("blank") << "<G> 100</G>" << 0 << illegal << undefined;
        QTest::newRow("empty") << "<G/>" << 5 << none << "<G>500</G>";
        QTest::newRow("child") << "<G><X/></G>" << 5
                               << "in XmlResultGridType: Unexpected token \"StartElement\"."
                               << "<G>500</G>";
    }
    void gridSize()
    {
        QFETCH(QString, xml);
        QFETCH(int, size);
        QFETCH(QString, error);
        QFETCH(QString, written);
        XmlResultGridType grid;
        grid.setSize(XmlResultGridType::Grid500);
        QCOMPARE(unlocated(KelXmlTest::read(grid, xml)), error);
        QCOMPARE(int(grid.size()), size);
        QCOMPARE(grid.syntaxError(),
                 size ? QString() : block("XmlResultGridType", {"Illegal grid size."}));
        QCOMPARE(KelXmlTest::write(grid, "G"), written);
    }

    // Min, then Max; numbers only inside them; text that is no number passes
    // silently and leaves the value as it was.
    void valuesReading_data()
    {
        QTest::addColumn<QString>("xml");
        QTest::addColumn<double>("min");
        QTest::addColumn<double>("max");
        QTest::addColumn<QString>("error");
        const QString open = "<V version=\"1.0\" unit=\"dBm\">", min = "<Min>-120</Min>",
                      max = "<Max>-40.5</Max>", close = "</V>";
        const QString in = "in XmlGridValuesType: ";
        QTest::newRow("both") << open + "\n " + min + "\n " + max + "\n" + close << -120.0 << -40.5
                              << QString();
        QTest::newRow("abc in Min")
            << open + "<Min>abc</Min>" + max + close << 7.0 << -40.5 << QString();
        QTest::newRow("number between")
            << open + min + " 1.5 " + max + close << -120.0 << 8.0 << in + "Unexpected characters.";
        QTest::newRow("Max inside Min") << open + "<Min>1" + max + "</Min>" + close << 1.0 << 8.0
                                        << in + "Unexpected element \"Max\".";
        QTest::newRow("no unit") << "<V version=\"1.0\">" + min + max + close << 7.0 << 8.0
                                 << in + "Missing mandatory attributes.";
    }
    void valuesReading()
    {
        QFETCH(QString, xml);
        QFETCH(double, min);
        QFETCH(double, max);
        QFETCH(QString, error);
        XmlGridValuesType range;
        range.setMin(7.0);
        range.setMax(8.0);
        QCOMPARE(unlocated(KelXmlTest::read(range, xml)), error);
        QCOMPARE(range.min(), min);
        QCOMPARE(range.max(), max);
    }

    // 6 significant digits; the report words the version differently from
    // the reader, an empty version fails both rules, and Min may exceed Max.
    void valuesWritingAndReport()
    {
        XmlGridValuesType range;
        range.setUnit("dBµV/m");
        range.setMin(0.1234567);
        range.setMax(-1234567.0);
        QVERIFY(range.isValid());
        const QString written = KelXmlTest::write(range, "V");
        QCOMPARE(written, QString("<V version=\"1.0\" unit=\"dBµV/m\"><Min>0.123457</Min>"
                                  "<Max>-1.23457e+06</Max></V>"));
        XmlGridValuesType again;
        QCOMPARE(KelXmlTest::read(again, written), QString());
        QCOMPARE(KelXmlTest::write(again, "V"), written);

        range.setVersion("2.0");
        QCOMPARE(range.syntaxError(),
                 block("XmlGridValuesType", {"Version \"2.0\" not supported"}));
        range.setVersion(QString());
        QCOMPARE(range.syntaxError(), block("XmlGridValuesType", {"Missing mandatory attributes",
                                                                  "Version \"\" not supported"}));
        range.reset();
        QCOMPARE(range.syntaxError(), block("XmlGridValuesType", {"Missing mandatory attributes"}));
    }
};

QTEST_GUILESS_MAIN(TestGrid)
#include "tst_grid.moc"
