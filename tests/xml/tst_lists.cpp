// The value lists, tested in depth on the frequency list (all lists share one
// implementation) and per class only in what sets them apart.

#include "KelXmlTest.h"

#include <XmlElementRegistry.h>
#include <XmlFreqListType.h>

#include <QtTest>

using namespace KelXml;
using KelXmlTest::block;
using KelXmlTest::located;

static const QString freqs = QStringLiteral("XmlFreqListType");

// One frequency member as written, %1 its whole value.
static const QString memberXml =
    QStringLiteral("<Frequency version=\"1.0\" unit=\"MHz\">%1.000000</Frequency>");

class TestLists : public QObject
{
    Q_OBJECT

private slots:
    // The count message of an empty list, and the member element name read
    // and written (a member is kept even when its reading fails).
    void perClass_data()
    {
        QTest::addColumn<QString>("cls");
        QTest::addColumn<QString>("member");
        QTest::addColumn<QString>("count");
        const auto row = [](const char* cls, const char* member, const char* count) {
            QTest::newRow(cls) << QString(cls) << QString(member) << QString(count);
        };
        const char* pairs = "Too few pairs (min. 1)"; // even in lists without pairs
        row("XmlDBMListType", "dBm", pairs);
        row("XmlDecibelListType", "Decibel", pairs);
        row("XmlDegreesListType", "Degrees", pairs);
        row("XmlFreqListType", "Frequency", "Too few frequencies (min. 1)");
        row("XmlFreqThrListType", "Pair", pairs);
        row("XmlMapListType", "Map", "Too few mappings (min. 1)");
    }
    void perClass()
    {
        QFETCH(QString, cls);
        QFETCH(QString, member);
        QFETCH(QString, count);
        const auto list = XmlElementRegistry::create(cls);
        QCOMPARE(list->syntaxError(), block(cls, {count}));
        KelXmlTest::read(*list, "<L><" + member + "/></L>");
        const QString written = KelXmlTest::write(*list, "L");
        QVERIFY2(written.startsWith("<L version=\"1.0\"><" + member + ' '), qPrintable(written));
    }

    // Members are read in document order and written back alike; reading
    // first empties the list, refuses the end tag of an empty one, and keeps
    // a member whose reading failed.
    void read()
    {
        XmlFreqListType list;
        const QString xml = "<Values version=\"1.0\">" + memberXml.arg(3) + memberXml.arg(1) +
                            memberXml.arg(2) + "</Values>";
        QCOMPARE(KelXmlTest::read(list, xml), QString());
        QCOMPARE(KelXmlTest::write(list, "Values"), xml);
        QCOMPARE(KelXmlTest::read(list, "<Values version=\"1.0\"/>"),
                 located(freqs, 1, 23, "Unexpected token \"EndElement\""));
        QVERIFY(list.freqList().isEmpty());
        QCOMPARE(KelXmlTest::read(list, "<Values>" + memberXml.arg(1) + "<Frequency/></Values>"),
                 located("XmlFreqType", 1, 76, "Missing attribute: \"unit\""));
        QCOMPARE(int(list.freqList().size()), 2);
    }

    // The setter and the assignment are deep, and the setter survives being
    // given the list's own members. The report holds the version line, then
    // each invalid member's block in order, and no count message.
    void ownershipAndReport()
    {
        XmlFreqType valid, invalid; // the default frequency is invalid
        valid.setFrequency_MHz(3);
        XmlFreqListType source, assigned;
        source.setVersion("2.0");
        source.setFreqList({&valid, &invalid});
        valid.setFrequency_MHz(7);
        source.setFreqList(source.freqList());
        assigned.setFreqList({&valid});
        assigned = source;
        QVERIFY(assigned.freqList().first() != source.freqList().first());
        for (XmlFreqListType* list : {&source, &assigned}) {
            QCOMPARE(list->freqList().first()->frequency_MHz(), 3.0);
            QCOMPARE(list->syntaxError(),
                     block(freqs, {"Version \"2.0\" not supported",
                                   block("XmlFreqType", {"Illegal frequency."})}));
        }
    }
};

QTEST_GUILESS_MAIN(TestLists)
#include "tst_lists.moc"
