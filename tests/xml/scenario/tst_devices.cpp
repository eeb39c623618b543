// The device category texts, the child orders and table sets that a device
// accepts, its written order that its own reader refuses, its report, and the
// device list.

#include "KelXmlTest.h"

#include <XmlDeviceListType.h>

#include <QElapsedTimer>
#include <QtTest>

using namespace KelXml;
using KelXmlTest::block;
using KelXmlTest::located;

namespace {

const QString device = QStringLiteral("XmlDeviceType");

// Each child of a device with valid content, as the reader wants it.
QString childXml(const QString& name)
{
    const QString decibels =
        "<%1 version=\"1.0\"><Decibel version=\"1.0\" unit=\"dB\">3.000000</Decibel></%1>";
    if (name == "DeviceCategory")
        return "<DeviceCategory>Receiver</DeviceCategory>";
    if (name == "Name")
        return "<Name>Rx 1</Name>";
    if (name == "Frequencies")
        return "<Frequencies version=\"1.0\">"
               "<Frequency version=\"1.0\" unit=\"MHz\">100.000000</Frequency></Frequencies>";
    if (name == "Degrees")
        return "<Degrees version=\"1.0\"><Degrees version=\"1.0\" unit=\"°\">2.0</Degrees>"
               "</Degrees>";
    if (name == "DBM")
        return "<DBM version=\"1.0\"><dBm version=\"1.0\" unit=\"dBm\">50.000000000</dBm></DBM>";
    if (name == "Foo")
        return "<Foo/>";
    return decibels.arg(name);
}

QString deviceXml(const QStringList& children)
{
    QString xml = "<Device version=\"1.0\">";
    for (const QString& child : children)
        xml += childXml(child);
    return xml + "</Device>";
}

// The column just after the last occurrence of the start tag of a child.
int columnAfterLast(const QString& xml, const QString& child)
{
    const QString tag = childXml(child).section('>', 0, 0) + '>';
    return int(xml.lastIndexOf(tag) + tag.size());
}

const QStringList head = {"DeviceCategory", "Name", "Frequencies"};

} // namespace

class TestDevices : public QObject
{
    Q_OBJECT

private slots:
    // The texts match exactly, case and whitespace included; anything else
    // reads as 0 and stops reading.
    void categoryTexts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("value");
        const QStringList texts = {"Receiver", "PassiveAntennas", "Cable",
                                   "Other",    "ActiveAntennas",  "DF"};
        for (int i = 0; i < texts.size(); ++i)
            QTest::newRow(qPrintable(texts[i])) << texts[i] << i + 1;
        QTest::newRow("lower case") << "df" << 0;
        QTest::newRow("padded") << " DF " << 0;
        QTest::newRow("UNDEFINED") << "UNDEFINED" << 0;
        QTest::newRow("number") << "6" << 0;
    }

    void categoryTexts()
    {
        QFETCH(QString, text);
        QFETCH(int, value);
        XmlDeviceCategoryType category;
        category.setCategory(XmlDeviceCategoryType::Cable);
        const QString xml = "<DeviceCategory>" + text + "</DeviceCategory>";
        const QString error = KelXmlTest::read(category, xml);
        QCOMPARE(int(category.category()), value);
        if (value == 0) {
            // The reader stands past the "<" of the end tag.
            QCOMPARE(error, located("XmlDeviceCategoryType", 1, 17 + int(text.size()),
                                    "Illegal enum value."));
        } else {
            QCOMPARE(error, QString());
            QCOMPARE(KelXmlTest::write(category, "DeviceCategory"), xml);
        }
    }

    void categoryWritingAndReport()
    {
        XmlDeviceCategoryType category;
        QCOMPARE(KelXmlTest::write(category, "C"), QString("<C>UNDEFINED</C>"));
        QCOMPARE(category.syntaxError(),
                 block("XmlDeviceCategoryType", {"Illegal Device Category."}));
        // Beyond the table: written as undefined, yet only 0 is refused.
        category.setCategory(XmlDeviceCategoryType::Category(7));
        QCOMPARE(KelXmlTest::write(category, "C"), QString("<C>UNDEFINED</C>"));
        QVERIFY(category.isValid());
        category.setCategory(XmlDeviceCategoryType::DF);
        // An empty element keeps the value; a tag inside is refused unnamed.
        QCOMPARE(KelXmlTest::read(category, "<C></C>"), QString());
        QCOMPARE(category.category(), XmlDeviceCategoryType::DF);
        QCOMPARE(KelXmlTest::read(category, "<C><DF/></C>"),
                 located("XmlDeviceCategoryType", 1, 8, "Unexpected token \"StartElement\""));
    }

    // Each table is refused once one of the tables named against it was read;
    // the end tag needs one of five sets of tables. The children list ends
    // where reading fails.
    void deviceOrder_data()
    {
        QTest::addColumn<QStringList>("children");
        QTest::addColumn<QString>("failure"); // "", "start" (the last child) or "end"
        const auto row = [](const char* tag, const QStringList& tables, const char* failure) {
            QTest::newRow(tag) << head + tables << QString(failure);
        };
        row("noises", {"Noises"}, "");
        row("gains set", {"Noises", "Gains", "DBM", "KFactors"}, "");
        row("degrees set", {"Noises", "Degrees", "DBM", "KFactors"}, "");
        row("attenuations", {"Attenuations"}, "");
        row("kfactors", {"KFactors"}, "");

        row("no table", {}, "end");
        row("gains alone", {"Gains"}, "end");
        row("set without kfactors", {"Noises", "Gains", "DBM"}, "end");
        row("set without gains", {"Noises", "DBM", "KFactors"}, "end");
        row("noises and kfactors", {"Noises", "KFactors"}, "end");
        row("kfactors then gains", {"Noises", "KFactors", "Gains"}, "start");
        row("kfactors then dbm", {"Noises", "Gains", "KFactors", "DBM"}, "start");
        row("gains and degrees", {"Noises", "Gains", "Degrees"}, "start");
        row("dbm then gains", {"Noises", "DBM", "Gains"}, "start");
        row("attenuations after noises", {"Noises", "Attenuations"}, "start");
        row("noises after kfactors", {"KFactors", "Noises"}, "start");
        row("noises twice", {"Noises", "Noises"}, "start");
        row("dbm twice", {"Noises", "DBM", "DBM"}, "start");
        row("unknown", {"Foo"}, "start");
        QTest::newRow("name first") << QStringList{"Name", "DeviceCategory"} << "start";
        QTest::newRow("frequencies before name")
            << QStringList{"DeviceCategory", "Frequencies", "Name"} << "start";
        QTest::newRow("table before frequencies")
            << QStringList{"DeviceCategory", "Name", "Noises", "Frequencies"} << "start";
    }

    void deviceOrder()
    {
        QFETCH(QStringList, children);
        QFETCH(QString, failure);
        const QString xml = deviceXml(children);
        XmlDeviceType dev;
        const QString error = KelXmlTest::read(dev, xml);
        if (failure.isEmpty()) {
            QCOMPARE(error, QString());
            QVERIFY2(dev.isValid(), qPrintable(dev.syntaxError()));
        } else if (failure == "end") {
            QCOMPARE(error, located(device, 1, int(xml.size()), "Unexpected token \"EndElement\""));
        } else {
            const QString last = children.last();
            QCOMPARE(error, located(device, 1, columnAfterLast(xml, last),
                                    QString("Unexpected element \"%1\"").arg(last)));
        }
    }

    // The writer puts KFactors right after Noises, where the reader refuses
    // the tables that follow it.
    void writtenOrderDoesNotReadBack()
    {
        XmlDeviceType dev;
        QCOMPARE(KelXmlTest::read(
                     dev, deviceXml(head + QStringList{"Noises", "Gains", "DBM", "KFactors"})),
                 QString());
        const QString written = KelXmlTest::write(dev, "Device");
        QCOMPARE(written, deviceXml(head + QStringList{"Noises", "KFactors", "Gains", "DBM"}));
        XmlDeviceType again;
        QCOMPARE(
            KelXmlTest::read(again, written),
            located(device, 1, columnAfterLast(written, "Gains"), "Unexpected element \"Gains\""));
        // The tables each keep their own content through the writing.
        QVERIFY(dev.hasNoise() && dev.hasKfactor() && dev.hasGain() && dev.hasDBM());
        QVERIFY(!dev.hasAttenuation() && !dev.hasAccuracy());
    }

    void deviceVersionRefusedWhileReading()
    {
        XmlDeviceType dev;
        const QString xml = deviceXml(head + QStringList{"Noises"}).replace("\"1.0\"", "\"2.0\"");
        QCOMPARE(KelXmlTest::read(dev, xml), located(device, 1, 22, "Version not supported: 2.0"));
    }

    // Version, category, name, frequencies, then the tables in writing order;
    // the combination of tables is not judged.
    void deviceReport()
    {
        // A device refused at its end tag keeps the children it read.
        XmlDeviceType dev;
        QVERIFY(!KelXmlTest::read(dev, deviceXml(head)).isEmpty());
        QVERIFY(dev.isValid());
        dev.setGainList(XmlDecibelListType());
        XmlDecibelListType oldTable;
        oldTable.setVersion("2.0");
        XmlDecibelType decibel;
        decibel.setDecibel(3.0);
        oldTable.setDecibelList({&decibel});
        dev.setKfactorList(oldTable);
        XmlDegreesListType degrees;
        XmlDegreesType degree;
        degrees.setDegreesList({&degree});
        dev.setAccuracyList(degrees);
        QVERIFY(!dev.isValid());
        const QString tooFew = block("XmlDecibelListType", {"Too few pairs (min. 1)"});
        QCOMPARE(dev.syntaxError(),
                 block(device,
                       {block("XmlDecibelListType", {"Version \"2.0\" not supported"}), tooFew}));

        XmlDecibelListType valid = oldTable;
        valid.setVersion("1.0");
        dev.setKfactorList(valid);
        dev.setGainList(valid);
        QVERIFY2(dev.isValid(), qPrintable(dev.syntaxError())); // gains with degrees

        XmlDeviceType empty;
        empty.setVersion("2.0");
        empty.setDBMList(XmlDBMListType());
        empty.setNoiseList(XmlDecibelListType());
        QCOMPARE(empty.syntaxError(),
                 block(device, {"Version \"2.0\" not supported",
                                block("XmlDeviceCategoryType", {"Illegal Device Category."}),
                                block("XmlObjNameType", {"Object name too short (min. 1)."}),
                                block("XmlFreqListType", {"Too few frequencies (min. 1)"}), tooFew,
                                block("XmlDBMListType", {"Too few pairs (min. 1)"})}));
    }

    // Devices are <Device> members; an unsupported version is only reported;
    // an empty list ends in error and is reported.
    void deviceList()
    {
        XmlDeviceListType list;
        const QString member = deviceXml(head + QStringList{"Attenuations"});
        const QString xml = "<Devices version=\"2.0\">" + member + member + "</Devices>";
        QCOMPARE(KelXmlTest::read(list, xml), QString());
        QCOMPARE(list.deviceList().size(), 2);
        QCOMPARE(list.syntaxError(), block("XmlDeviceListType", {"Version \"2.0\" not supported"}));
        list.setVersion("1.0");
        QCOMPARE(KelXmlTest::write(list, "Devices"),
                 "<Devices version=\"1.0\">" + member + member + "</Devices>");

        QCOMPARE(KelXmlTest::read(list, "<Devices></Devices>"),
                 located("XmlDeviceListType", 1, 19, "Unexpected token \"EndElement\""));
        QVERIFY(list.deviceList().isEmpty());
        QCOMPARE(list.syntaxError(), block("XmlDeviceListType", {"Too few devices (min. 1)"}));

        // A faulty device is reported inside the list, in list order.
        XmlDeviceType good;
        QCOMPARE(KelXmlTest::read(good, member), QString());
        XmlDeviceType bad = good;
        bad.setVersion("3.0");
        list.setDeviceList({&good, &bad});
        QCOMPARE(list.syntaxError(),
                 block("XmlDeviceListType", {block(device, {"Version \"3.0\" not supported"})}));
    }

    // Four times the devices take far less than the sixteen times of a
    // quadratic reading.
    void largeDeviceListScalesLinearly()
    {
        const QString member = deviceXml(head + QStringList{"KFactors"});
        const auto nanoseconds = [&member](int count) -> qint64 {
            const QString xml = "<D>" + member.repeated(count) + "</D>";
            XmlDeviceListType list;
            QElapsedTimer timer;
            timer.start();
            const bool read = KelXmlTest::read(list, xml).isEmpty();
            if (!read || list.deviceList().size() != count ||
                KelXmlTest::write(list, "D").count("<KFactors ") != count)
                return -1;
            return timer.nsecsElapsed();
        };
        const qint64 small = nanoseconds(25000);
        const qint64 large = nanoseconds(100000);
        QVERIFY(small > 0 && large > 0);
        QVERIFY2(large < 10 * small,
                 qPrintable(QString("%1 ns, then %2 ns").arg(small).arg(large)));
    }
};

QTEST_GUILESS_MAIN(TestDevices)
#include "tst_devices.moc"
