// The signal path with its nested devices, the interlink that writes what it
// does not read, and the station's start, wording and report.

#include "KelXmlTest.h"

#include <XmlStationType.h>

#include <QtTest>

using namespace KelXml;
using KelXmlTest::block;
using KelXmlTest::located;

namespace {

// Children with valid content, as they are written.
const QString name = QStringLiteral("<Name>Site</Name>");
const QString devices = QStringLiteral(
    "<Device version=\"1.0\"><Device version=\"1.0\"><DeviceCategory>Cable</DeviceCategory>"
    "<Name>C1</Name><Frequencies version=\"1.0\"><Frequency version=\"1.0\" unit=\"MHz\">"
    "100.000000</Frequency></Frequencies><Attenuations version=\"1.0\"><Decibel "
    "version=\"1.0\" unit=\"dB\">2.000000</Decibel></Attenuations></Device></Device>");
const QString signalPath = "<SignalPath version=\"1.0\">" + name +
                           "<SINAD version=\"1.0\">12.000000</SINAD>" + devices + "</SignalPath>";
const QString position = QStringLiteral("<Position version=\"1.0\"><Longitude>8.500000</Longitude>"
                                        "<Latitude>47.000000</Latitude></Position>");
const QString threshold =
    QStringLiteral("<RxThreshold version=\"1.0\" unit=\"dBm\">-100.000000000000000</RxThreshold>");
const QString height =
    QStringLiteral("<AntennaHeight version=\"1.0\" unit=\"m\">10</AntennaHeight>");
const QString rxParameter = "<RxParameter version=\"1.0\">" + height + threshold + "</RxParameter>";
const QString precision = QStringLiteral("<DFprecision version=\"1.0\" unit=\"°\">2</DFprecision>");
const QString interlink =
    "<StationInterlink version=\"1.0\"><Frequency version=\"1.0\" unit=\"MHz\">400.000000"
    "</Frequency><TxPower version=\"1.0\" unit=\"W\">5.000000000000000</TxPower>" +
    threshold + height + "</StationInterlink>";

// The column just after the last start tag of the named child.
int columnAfterLast(const QString& xml, const QString& child)
{
    return int(xml.indexOf('>', xml.lastIndexOf('<' + child)) + 1);
}

} // namespace

class TestStations : public QObject
{
    Q_OBJECT

private slots:
    // Devices nest as <Device> entries inside the <Device> list.
    void signalPathDevices()
    {
        XmlSignalPathType path;
        QCOMPARE(KelXmlTest::read(path, signalPath), QString());
        QCOMPARE(path.devices()->deviceList().size(), 1);
        QCOMPARE(path.devices()->deviceList().first()->objName()->objName(), QString("C1"));
        QCOMPARE(KelXmlTest::write(path, "SignalPath"), signalPath);
    }

    // The power is written as <Power>, which the interlink's own reader, and
    // so the station's, refuses; the interlink's unsupported version is only
    // reported.
    void interlinkWritesPower()
    {
        XmlStationInterlinkType link;
        QCOMPARE(KelXmlTest::read(link,
                                  "<StationInterlink version=\"2.0\">" + interlink.section('>', 1)),
                 QString());
        QCOMPARE(link.power()->power(), 5.0);
        QCOMPARE(link.syntaxError(),
                 block("XmlStationInterlinkType", {"Version \"2.0\" not supported"}));
        link.setVersion("1.0");
        QCOMPARE(KelXmlTest::write(link, "StationInterlink"),
                 QString(interlink).replace("TxPower", "Power"));

        XmlStationType station;
        const QString full = "<Station>" + name + signalPath + position + rxParameter + precision +
                             interlink + "</Station>";
        QCOMPARE(KelXmlTest::read(station, full), QString());
        QVERIFY2(station.isValid(), qPrintable(station.syntaxError()));
        const QString written = KelXmlTest::write(station, "Station");
        QCOMPARE(written, QString(full).replace("TxPower", "Power"));
        QCOMPARE(KelXmlTest::read(station, written),
                 located("XmlStationInterlinkType", 1, columnAfterLast(written, "Power"),
                         "Unexpected element \"Power\""));
    }

    // The station starts on whatever token the reader stands, names a foreign
    // end tag, and takes its signal path only after the name.
    void stationReading()
    {
        const QString xml = "<Station> " + name + position + "</Station>";
        QXmlStreamReader reader(xml);
        reader.readNext();
        reader.readNext();
        QCOMPARE(reader.readNext(), QXmlStreamReader::Characters);
        XmlStationType station;
        station.processXml(reader, "Station");
        QVERIFY2(!reader.hasError(), qPrintable(reader.errorString()));
        QCOMPARE(station.objName()->objName(), QString("Site"));

        QCOMPARE(KelXmlTest::read(station, xml, "Site"),
                 located("XmlStationType", 1, int(xml.size()),
                         "Unexpected token \"EndElement\": Station"));
        const QString early = "<Station>" + signalPath + name + "</Station>";
        QCOMPARE(KelXmlTest::read(station, early),
                 located("XmlStationType", 1, columnAfterLast(early, "Name"),
                         "Unexpected token \"StartElement\": Name"));
    }

    // No version and no message of its own: the children's blocks in order.
    void stationReport()
    {
        XmlStationType station;
        station.setSignalPath(XmlSignalPathType());
        station.setRxParam(XmlRxParamType());
        station.setDfPrecision(XmlDfPrecisionType());
        station.setInterlink(XmlStationInterlinkType());
        QCOMPARE(
            station.syntaxError(),
            block("XmlStationType",
                  {XmlObjNameType().syntaxError(), XmlSignalPathType().syntaxError(),
                   XmlCoordinateType().syntaxError(), XmlRxParamType().syntaxError(),
                   XmlDfPrecisionType().syntaxError(), XmlStationInterlinkType().syntaxError()}));
    }
};

QTEST_GUILESS_MAIN(TestStations)
#include "tst_stations.moc"
