#include "KelXmlTest.h"

#include <XmlElementRegistry.h>

#include <QtTest>

using namespace KelXml;
using KelXmlTest::located;

namespace {

// One hostile document: the class that reads it, and our located error or,
// when empty, any error of the reader's own.
void row(const char* tag, const char* classname, const QString& xml, const QString& error = {})
{
    QTest::newRow(tag) << QString(classname) << xml << error;
}

} // namespace

class TestRobustness : public QObject
{
    Q_OBJECT

private slots:
    // Every broken document ends in an error and never in a crash (a reading
    // that does not end shows as the test running into its time-out).
    void hostileInputEndsWithAnError_data()
    {
        QTest::addColumn<QString>("classname");
        QTest::addColumn<QString>("xml");
        QTest::addColumn<QString>("error");
        const QString numeric = "Illegal value (must be numeric)", digits(400, '9');
        // Each entity holds ten of the previous one: &j; would be 10^10 characters.
        QString bomb = "<!DOCTYPE N [<!ENTITY a \"aaaaaaaaaa\">";
        for (char c = 'b'; c <= 'j'; ++c)
            bomb += "<!ENTITY " + QString(c) + " \"" +
                    ("&" + QString(char(c - 1)) + ";").repeated(10) + "\">";
        row("truncated", "XmlDBMListType", "<L><dBm>5</dBm><dBm>");
        row("mismatched", "XmlFreqThrPairType", "<P><Frequency unit=\"MHz\">5</P>");
        row("binary", "XmlNameAllType", QString::fromLatin1("\xff\xfe\x00\x01<", 5));
        row("huge double", "XmlDBMType", "<D>1e999999</D>", located("XmlDBMType", 1, 12, numeric));
        row("huge int", "XmlKeyType", "<K>" + digits + "</K>",
            located("XmlKeyType", 1, 404, numeric));
        row("entity expansion", "XmlObjNameType", bomb + "]><N>&j;</N>");
        row("deep nesting", "XmlFreqThrListType",
            "<L><Pair><Frequency unit=\"MHz\">" + QString("<x>").repeated(100000),
            located("XmlFreqType", 1, 34, "Unexpected token \"StartElement\""));
    }

    void hostileInputEndsWithAnError()
    {
        QFETCH(QString, classname);
        QFETCH(QString, xml);
        QFETCH(QString, error);
        const auto element = XmlElementRegistry::create(classname);
        QVERIFY(element);
        const QString actual = KelXmlTest::read(*element, xml);
        // Without an error of ours, the reader's own wording is not ours to pin down.
        QVERIFY2(error.isEmpty() ? !actual.isEmpty() && !actual.startsWith("in Xml")
                                 : actual == error,
                 qPrintable(actual));
    }

    // Input that stops early but may still grow (a socket, say): every level
    // of the reading stops at the reader's premature end instead of asking
    // for the next token again.
    void inputThatMayStillGrowStops_data()
    {
        QTest::addColumn<QString>("classname");
        QTest::addColumn<QString>("xml");
        QTest::newRow("list") << "XmlDBMListType"
                              << "<L><dBm>5</dBm><dBm>";
        QTest::newRow("value") << "XmlDBMType"
                               << "<D>5";
        QTest::newRow("nested composites")
            << "XmlCmdRoot"
            << "<Command><Create><Station><Name>A</Name><Position><Latitude unit=\"deg\">";
    }

    void inputThatMayStillGrowStops()
    {
        QFETCH(QString, classname);
        QFETCH(QString, xml);
        const auto element = XmlElementRegistry::create(classname);
        QVERIFY(element);
        KelXmlTest::Stream device(xml.toUtf8(), KelXmlTest::Stream::OpenEnded);
        QXmlStreamReader reader(&device);
        reader.readNextStartElement();
        element->processXml(reader, reader.name().toString());
        QCOMPARE(reader.error(), QXmlStreamReader::PrematureEndOfDocumentError);
        QVERIFY(!reader.atEnd()); // more may come
    }
};

QTEST_GUILESS_MAIN(TestRobustness)
#include "tst_robustness.moc"
