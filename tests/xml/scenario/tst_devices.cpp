// The device category texts, the table sets that a device accepts, its
// written order that its own reader refuses, its report, and the device list.

#include "KelXmlTest.h"

#include <XmlDeviceListType.h>

#include <QtTest>

using namespace KelXml;
using KelXmlTest::block;
using KelXmlTest::located;

namespace {

const QString device = QStringLiteral("XmlDeviceType");

// A table with valid content, as the reader wants it.
QString tableXml(const QString& name)
{
    if (name == "Degrees")
        return "<Degrees version=\"1.0\"><Degrees version=\"1.0\" unit=\"°\">2.0</Degrees>"
               "</Degrees>";
    if (name == "DBM")
        return "<DBM version=\"1.0\"><dBm version=\"1.0\" unit=\"dBm\">50.000000000</dBm></DBM>";
    return QString("<%1 version=\"1.0\"><Decibel version=\"1.0\" unit=\"dB\">3.000000</Decibel>"
                   "</%1>")
        .arg(name);
}

// A device with category, name and frequencies, then the tables named.
QString deviceXml(const QString& tables)
{
    QString xml = "<Device version=\"1.0\"><DeviceCategory>Receiver</DeviceCategory>"
                  "<Name>Rx 1</Name><Frequencies version=\"1.0\"><Frequency version=\"1.0\" "
                  "unit=\"MHz\">100.000000</Frequency></Frequencies>";
    for (const QString& table : tables.split(' ', Qt::SkipEmptyParts))
        xml += tableXml(table);
    return xml + "</Device>";
}

// The column just after the last start tag of a table.
int columnAfterLast(const QString& xml, const QString& table)
{
    const QString tag = tableXml(table).section('>', 0, 0) + '>';
    return int(xml.lastIndexOf(tag) + tag.size());
}

} // namespace

class TestDevices : public QObject
{
    Q_OBJECT

private slots:
    // The texts match exactly and count from 1; anything else reads as 0 and
    // stops reading, the reader standing past the "<" of the end tag. The
    // default and values beyond the table are written as undefined, yet only
    // 0 is refused. An empty element keeps the value; a tag inside is refused
    // unnamed.
    void category()
    {
        XmlDeviceCategoryType category;
        const QStringList texts = {"Receiver", "PassiveAntennas", "Cable",
                                   "Other",    "ActiveAntennas",  "DF"};
        for (int i = 0; i < texts.size(); ++i) {
            const QString xml = "<DeviceCategory>" + texts[i] + "</DeviceCategory>";
            QCOMPARE(KelXmlTest::read(category, xml), QString());
            QCOMPARE(int(category.category()), i + 1);
            QCOMPARE(KelXmlTest::write(category, "DeviceCategory"), xml);
        }
        QCOMPARE(KelXmlTest::read(category, "<DeviceCategory>df</DeviceCategory>"),
                 located("XmlDeviceCategoryType", 1, 19, "Illegal enum value."));
        QCOMPARE(int(category.category()), 0);
        QCOMPARE(KelXmlTest::write(category, "C"), QString("<C>UNDEFINED</C>"));
        QCOMPARE(category.syntaxError(),
                 block("XmlDeviceCategoryType", {"Illegal Device Category."}));
        category.setCategory(XmlDeviceCategoryType::Category(7));
        QCOMPARE(KelXmlTest::write(category, "C"), QString("<C>UNDEFINED</C>"));
        QVERIFY(category.isValid());

        category.setCategory(XmlDeviceCategoryType::DF);
        QCOMPARE(KelXmlTest::read(category, "<C></C>"), QString());
        QCOMPARE(category.category(), XmlDeviceCategoryType::DF);
        QCOMPARE(KelXmlTest::read(category, "<C><DF/></C>"),
                 located("XmlDeviceCategoryType", 1, 8, "Unexpected token \"StartElement\""));
    }

    // Each table is refused once one of the tables named against it was read;
    // the end tag needs one of five sets of tables. The writer puts KFactors
    // right after Noises, where the reader refuses the tables that follow it.
    void deviceOrder_data()
    {
        QTest::addColumn<QString>("tables");
        QTest::addColumn<QString>("refused"); // the table refused, "end", or none
        QTest::addColumn<QString>("written"); // when different from the tables read
        const auto row = [](const char* tables, const char* refused, const char* written = "") {
            QTest::newRow(*tables ? tables : "none")
                << QString(tables) << QString(refused) << QString(*written ? written : tables);
        };
        row("Noises", "");
        row("Noises Gains DBM KFactors", "", "Noises KFactors Gains DBM");
        row("Noises Degrees DBM KFactors", "", "Noises KFactors Degrees DBM");
        row("Attenuations", "");
        row("KFactors", "");
        row("", "end");
        row("Noises Gains DBM", "end");
        row("Noises Gains Degrees", "Degrees");
        row("Noises Attenuations", "Attenuations");
        row("Noises KFactors Gains DBM", "Gains");
    }

    void deviceOrder()
    {
        QFETCH(QString, tables);
        QFETCH(QString, refused);
        QFETCH(QString, written);
        const QString xml = deviceXml(tables);
        XmlDeviceType dev;
        const QString error = KelXmlTest::read(dev, xml);
        if (refused.isEmpty()) {
            QCOMPARE(error, QString());
            QVERIFY2(dev.isValid(), qPrintable(dev.syntaxError()));
            QCOMPARE(KelXmlTest::write(dev, "Device"), deviceXml(written));
        } else if (refused == "end") {
            QCOMPARE(error, located(device, 1, int(xml.size()), "Unexpected token \"EndElement\""));
        } else {
            QCOMPARE(error, located(device, 1, columnAfterLast(xml, refused),
                                    QString("Unexpected element \"%1\"").arg(refused)));
        }
    }

    // A device refused at its end tag keeps the children it read. The tables
    // are reported in writing order, KFactors before Gains; the combination
    // of tables is not judged.
    void deviceReport()
    {
        XmlDeviceType dev;
        QVERIFY(!KelXmlTest::read(dev, deviceXml("")).isEmpty());
        QVERIFY(dev.isValid());
        dev.setGainList(XmlDecibelListType());
        XmlDecibelListType table;
        XmlDecibelType decibel;
        decibel.setDecibel(3.0);
        table.setDecibelList({&decibel});
        table.setVersion("2.0");
        dev.setKfactorList(table);
        XmlDegreesListType degrees;
        XmlDegreesType degree;
        degrees.setDegreesList({&degree});
        dev.setAccuracyList(degrees);
        QCOMPARE(dev.syntaxError(),
                 block(device, {block("XmlDecibelListType", {"Version \"2.0\" not supported"}),
                                block("XmlDecibelListType", {"Too few pairs (min. 1)"})}));
        table.setVersion("1.0");
        dev.setKfactorList(table);
        dev.setGainList(table);
        QVERIFY2(dev.isValid(), qPrintable(dev.syntaxError()));
    }

    // An empty device list ends in error and is reported with its own count
    // message.
    void emptyDeviceList()
    {
        XmlDeviceListType list;
        QCOMPARE(KelXmlTest::read(list, "<Devices></Devices>"),
                 located("XmlDeviceListType", 1, 19, "Unexpected token \"EndElement\""));
        QCOMPARE(list.syntaxError(), block("XmlDeviceListType", {"Too few devices (min. 1)"}));
    }
};

QTEST_GUILESS_MAIN(TestDevices)
#include "tst_devices.moc"
