// Key/length maps: the key without a version, the entry that writes its
// length under both names and ignores its key when judged, and the entry
// left without children by reset(). The list of entries is checked with the
// other lists.

#include "KelXmlTest.h"

#include <XmlMapType.h>

#include <QtTest>

using namespace KelXml;
using KelXmlTest::block;
using KelXmlTest::located;

static const QString keyReport = block("XmlKeyType", {"XmlMapType: Illegal Key."});

class TestMaps : public QObject
{
    Q_OBJECT

private slots:
    // A key takes any integer and is invalid below 0, with the entry's name
    // in its message; text that is no number is refused and stores 0.
    void key()
    {
        XmlKeyType key;
        QCOMPARE(KelXmlTest::read(key, "<Key>-3</Key>"), QString());
        QVERIFY(!key.isValid());
        QCOMPARE(key.syntaxError(), keyReport);
        QCOMPARE(KelXmlTest::write(key, "Key"), QStringLiteral("<Key>-3</Key>"));
        QCOMPARE(KelXmlTest::read(key, "<Key>a</Key>"),
                 located("XmlKeyType", 1, 7, "Illegal value (must be numeric)"));
        QCOMPARE(key.key(), 0);
    }

    // An entry takes its key first and refuses another version while
    // reading. It writes its length under both names and never the key, and
    // a negative key shows in its report without making it invalid.
    void entry()
    {
        XmlMapType map;
        const QString value = QStringLiteral("<Value version=\"1.0\" unit=\"m\">30</Value>");
        QCOMPARE(KelXmlTest::read(map, "<Map>" + value + "<Key>1</Key></Map>"),
                 located("XmlMapType", 1, 50, "Unexpected element \"Key\""));
        QCOMPARE(KelXmlTest::read(map, "<Map version=\"2.0\"><Key>1</Key>" + value + "</Map>"),
                 located("XmlMapType", 1, 19, "Version not supported: 2.0"));
        QCOMPARE(KelXmlTest::read(map, "<Map><Key>-3</Key>" + value + "</Map>"), QString());
        QCOMPARE(map.key()->key(), -3);
        QCOMPARE(KelXmlTest::write(map, "M"),
                 "<M version=\"1.0\"><Key version=\"1.0\" unit=\"m\">30</Key>" + value + "</M>");
        QVERIFY(map.isValid());
        QCOMPARE(map.syntaxError(), block("XmlMapType", {keyReport}));
    }

    // An entry left without children by reset() survives every later call;
    // its children stay absent until something sets or reads them.
    void entryAfterReset()
    {
        XmlMapType map;
        map.reset();
        QVERIFY(!map.key() && !map.value() && !map.isValid());
        map.syntaxError();
        QCOMPARE(KelXmlTest::write(map, "Map"), QStringLiteral("<Map version=\"1.0\"/>"));
        XmlMapType copy(map);
        QVERIFY(!copy.key() && !copy.value());
        copy.setValue(XmlLengthType());
        map = copy;
        QVERIFY(!map.key() && map.value());
        QCOMPARE(KelXmlTest::read(map, "<M><Key>7</Key><Value unit='m'>5</Value></M>"), QString());
        QVERIFY(map.key()->key() == 7 && map.value()->length() == 5);
    }
};

QTEST_GUILESS_MAIN(TestMaps)
#include "tst_maps.moc"
