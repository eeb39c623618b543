// The value lists, tested in depth on the frequency list (all lists share one
// implementation) and per class only in what sets them apart; and the child
// order and report of the frequency/threshold pair.

#include "KelXmlTest.h"

#include <XmlDBMListType.h>
#include <XmlDecibelListType.h>
#include <XmlDegreesListType.h>
#include <XmlFreqListType.h>
#include <XmlFreqThrListType.h>
#include <XmlMapListType.h>

#include <QtTest>

using namespace KelXml;
using KelXmlTest::block;
using KelXmlTest::located;

static const QString freqs = QStringLiteral("XmlFreqListType");
static const QString version2 = QStringLiteral("Version \"2.0\" not supported");
static const QString illegalFrequency = block("XmlFreqType", {"Illegal frequency."});

// One frequency member as written, %1 its whole value.
static const QString memberXml =
    QStringLiteral("<Frequency version=\"1.0\" unit=\"MHz\">%1.000000</Frequency>");

// What differs between list classes: the class name and count message in
// the report of an empty list, the member element name written and read
// back, and the accessors. Reading back into the same list replaces.
template <class List, class Member>
static void checkClass(const QList<Member*>& (List::*get)() const,
                       void (List::*set)(const QList<Member*>&), const char* listClass,
                       const char* memberName, const char* count)
{
    List list;
    QCOMPARE(list.syntaxError(), block(listClass, {count}));
    Member item;
    (list.*set)({&item});
    const QString written = KelXmlTest::write(list, "L");
    QVERIFY(written.startsWith(QStringLiteral("<L version=\"1.0\"><%1 ").arg(memberName)));
    QCOMPARE(KelXmlTest::read(list, written), QString());
    QCOMPARE(int((list.*get)().size()), 1);
}

class TestLists : public QObject
{
    Q_OBJECT

private slots:
    void perClass()
    {
        const char* pairs = "Too few pairs (min. 1)"; // even in lists without pairs
        checkClass(&XmlDBMListType::dBmList, &XmlDBMListType::setDBMList, "XmlDBMListType", "dBm",
                   pairs);
        checkClass(&XmlDecibelListType::decibelList, &XmlDecibelListType::setDecibelList,
                   "XmlDecibelListType", "Decibel", pairs);
        checkClass(&XmlDegreesListType::degreeList, &XmlDegreesListType::setDegreesList,
                   "XmlDegreesListType", "Degrees", pairs);
        checkClass(&XmlFreqListType::freqList, &XmlFreqListType::setFreqList, "XmlFreqListType",
                   "Frequency", "Too few frequencies (min. 1)");
        checkClass(&XmlFreqThrListType::freqThrPairs, &XmlFreqThrListType::setFreqThrPairs,
                   "XmlFreqThrListType", "Pair", pairs);
        checkClass(&XmlMapListType::mapList, &XmlMapListType::setMapList, "XmlMapListType", "Map",
                   "Too few mappings (min. 1)");
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

    // The setter and the copies are deep, and the setter survives being given
    // the list's own members. The report holds the version line, then each
    // invalid member's block in order, and no count message.
    void ownershipAndReport()
    {
        XmlFreqType valid, invalid; // the default frequency is invalid
        valid.setFrequency_MHz(3);
        XmlFreqListType source;
        source.setVersion("2.0");
        source.setFreqList({&valid, &invalid});
        QVERIFY(source.freqList().first() != &valid);
        valid.setFrequency_MHz(7);
        source.setFreqList(source.freqList());
        XmlFreqListType copy(source), assigned;
        assigned.setFreqList({&valid});
        assigned = source;
        QVERIFY(copy.freqList().first() != source.freqList().first());
        QVERIFY(assigned.freqList().first() != source.freqList().first());
        for (XmlFreqListType* list : {&source, &copy, &assigned}) {
            QCOMPARE(list->freqList().first()->frequency_MHz(), 3.0);
            QVERIFY(!list->isValid());
            QCOMPARE(list->syntaxError(), block(freqs, {version2, illegalFrequency}));
        }
    }

    // The frequency comes first, each child once, and both are required. A
    // default pair reports both children's blocks, the frequency's first.
    void pair()
    {
        const QString f = memberXml.arg(100), t = "<RxThreshold unit=\"dBm\">-5</RxThreshold>";
        const QString pairClass = QStringLiteral("XmlFreqThrPairType");
        XmlFreqThrPairType pair;
        const auto read = [&pair](const QString& children) {
            return KelXmlTest::read(pair, "<Pair>" + children + "</Pair>");
        };
        QCOMPARE(read(t + f), located(pairClass, 1, 82, "Unexpected element \"Frequency\""));
        QCOMPARE(read(f + t + t), located(pairClass, 1, 128, "Unexpected element \"RxThreshold\""));
        QCOMPARE(read(f), located(pairClass, 1, 71, "Unexpected token \"EndElement\""));
        QCOMPARE(XmlFreqThrPairType().syntaxError(),
                 block(pairClass, {illegalFrequency,
                                   block("XmlFieldstrengthType", {"Illegal fieldstrength."})}));
    }
};

QTEST_GUILESS_MAIN(TestLists)
#include "tst_lists.moc"
