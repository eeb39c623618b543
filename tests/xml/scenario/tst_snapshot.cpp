// The scenario snapshot document: the path that only text marks as read,
// the wrapper, the kinds in stage order, lists that grow on every reading,
// the nameless token messages and the report order.

#include "KelXmlTest.h"

#include <XmlKelBtType.h>

#include <QtTest>

using namespace KelXml;
using KelXmlTest::block;

namespace {

const QString path = QStringLiteral("<ScreenshotPath>view.png</ScreenshotPath>");

// A root holding the path and the wrapper with readable records of the kinds named.
QString document(const QStringList& kinds, const QString& head = path)
{
    QString objects;
    for (const QString& kind : kinds)
        objects += "<" + kind + "><Name>R</Name>" +
                   KelXmlTest::write(XmlAreaRectType(), "AreaRect") +
                   "<ResultGrid>100</ResultGrid><Values version=\"1.0\" unit=\"dBm\"><Min>-1</Min>"
                   "<Max>1</Max></Values></" +
                   kind + ">";
    return "<S>" + head + "<DisplayedObjects>" + objects + "</DisplayedObjects></S>";
}

// The reader's error without its line and column.
QString unlocated(const QString& error)
{
    const auto from = error.indexOf(" (line ");
    return from < 0 ? error : error.left(from) + error.mid(error.indexOf("): ", from) + 1);
}

} // namespace

class TestSnapshot : public QObject
{
    Q_OBJECT

private slots:
    void reading_data()
    {
        QTest::addColumn<QString>("xml");
        QTest::addColumn<QString>("error");
        QTest::addColumn<QString>("screenshotPath");
        QTest::addColumn<QString>("lists"); // entries held per kind, in stage order
        const QString end = "Unexpected token \"EndElement\"";
        const QString none = "000000000";
        QTest::newRow("kinds repeated, some skipped")
            << document({"Result_FindSites", "Result_FindSites", "Result_DfCoverage"}) << ""
            << "view.png"
            << "000002001";
        QTest::newRow("empty path, then a path") << document({}, "<ScreenshotPath/>" + path) << ""
                                                 << "view.png" << none;
        QTest::newRow("wrapper inside itself")
            << "<S>" + path + "<DisplayedObjects><DisplayedObjects/></DisplayedObjects></S>" << end
            << "view.png" << none;
        QTest::newRow("no wrapper") << "<S>" + path + "</S>" << end << "view.png" << none;
        QTest::newRow("version 2.0") << "<S version=\"2.0\">" + path + "</S>"
                                     << "Version not supported: 2.0"
                                     << "" << none;
    }
    void reading()
    {
        QFETCH(QString, xml);
        QFETCH(QString, error);
        XmlKelBtType doc;
        const QString got = unlocated(KelXmlTest::read(doc, xml));
        QCOMPARE(got, error.isEmpty() ? error : "in XmlKelBtType: " + error + ".");
        QTEST(doc.screenshotPath(), "screenshotPath");
        QString lists;
        for (int count : {doc.hasDeployments(), doc.hasAois(), doc.hasKnownEmitters(),
                          doc.hasReceivers(), doc.hasDfs(), doc.hasResFindSite(), doc.hasResCep(),
                          doc.hasResDetectProb(), doc.hasResDfCov()})
            lists += QString::number(count);
        QTEST(lists, "lists");
    }

    // Reading adds to the lists held; the kinds are written in stage order
    // whatever the order of adding, each a copy of what was added; the path
    // is written even when empty.
    void appendingAndWriting()
    {
        XmlKelBtType doc;
        QCOMPARE(KelXmlTest::write(doc, "S"), QString("<S version=\"1.0\"><ScreenshotPath>"
                                                      "</ScreenshotPath><DisplayedObjects/></S>"));
        const QString xml = document({"Result_CEP"});
        QCOMPARE(KelXmlTest::read(doc, xml) + KelXmlTest::read(doc, xml), QString());
        QCOMPARE(doc.hasResCep(), 2);

        XmlResInfo_DfCov_Type coverage;
        doc.addResDfCov(coverage);
        doc.addAoi(XmlAoiType());
        coverage.setVersion("2.0");
        const QString written = KelXmlTest::write(doc, "S");
        QVERIFY(written.indexOf("<AreaOfInterest") < written.indexOf("<Result_CEP"));
        QVERIFY(written.indexOf("<Result_CEP") < written.indexOf("<Result_DfCoverage"));
        QCOMPARE(doc.resDfCov().first()->version(), QString("1.0"));
    }

    // Version, then the path, then every entry list by list in stage order.
    void reportOrder()
    {
        XmlKelBtType doc;
        doc.setVersion("0.9");
        doc.addResCep(XmlResInfo_Cep_Type());
        doc.addReceiver(XmlReceiverType());
        QCOMPARE(doc.syntaxError(),
                 block("XmlKelBtType",
                       {"Version \"0.9\" not supported", "Screen shot path is empty",
                        XmlReceiverType().syntaxError(), XmlResInfo_Cep_Type().syntaxError()}));
    }
};

QTEST_GUILESS_MAIN(TestSnapshot)
#include "tst_snapshot.moc"
