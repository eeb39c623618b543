// The signal path with its nested devices, the interlink that writes what it
// does not read, and the station's child order, wording and report.

#include "KelXmlTest.h"

#include <XmlStationType.h>

#include <QtTest>

using namespace KelXml;
using KelXmlTest::block;
using KelXmlTest::located;

namespace {

const QString version2 = QStringLiteral("Version \"2.0\" not supported");

const QString deviceXml = QStringLiteral(
    "<Device version=\"1.0\"><DeviceCategory>Cable</DeviceCategory><Name>C1</Name>"
    "<Frequencies version=\"1.0\"><Frequency version=\"1.0\" unit=\"MHz\">100.000000</Frequency>"
    "</Frequencies><Attenuations version=\"1.0\">"
    "<Decibel version=\"1.0\" unit=\"dB\">2.000000</Decibel></Attenuations></Device>");

QString mapXml(const QString& name)
{
    return "<" + name +
           " version=\"1.0\"><Map version=\"1.0\"><Key version=\"1.0\" unit=\"m\">1</Key>"
           "<Value version=\"1.0\" unit=\"m\">12</Value></Map></" +
           name + ">";
}

// Each child of a signal path, an interlink or a station with valid content.
QString childXml(const QString& name)
{
    if (name == "Name")
        return "<Name>Site</Name>";
    if (name == "SINAD")
        return "<SINAD version=\"1.0\">12.000000</SINAD>";
    if (name == "Device")
        return "<Device version=\"1.0\">" + deviceXml + "</Device>";
    if (name == "AntHgtMap" || name == "CabLenMap")
        return mapXml(name);
    if (name == "Frequency")
        return "<Frequency version=\"1.0\" unit=\"MHz\">400.000000</Frequency>";
    if (name == "TxPower" || name == "Power")
        return "<" + name + " version=\"1.0\" unit=\"W\">5.000000000000000</" + name + ">";
    if (name == "RxThreshold")
        return "<RxThreshold version=\"1.0\" unit=\"dBm\">-100.000000000000000</RxThreshold>";
    if (name == "AntennaHeight")
        return "<AntennaHeight version=\"1.0\" unit=\"m\">10</AntennaHeight>";
    if (name == "SignalPath")
        return "<SignalPath version=\"1.0\">" + childXml("Name") + childXml("SINAD") +
               childXml("Device") + "</SignalPath>";
    if (name == "Position")
        return "<Position version=\"1.0\"><Longitude>8.500000</Longitude>"
               "<Latitude>47.000000</Latitude></Position>";
    if (name == "RxParameter")
        return "<RxParameter version=\"1.0\">" + childXml("AntennaHeight") +
               childXml("RxThreshold") + "</RxParameter>";
    if (name == "DFprecision")
        return "<DFprecision version=\"1.0\" unit=\"°\">2</DFprecision>";
    if (name == "StationInterlink")
        return "<StationInterlink version=\"1.0\">" + childXml("Frequency") + childXml("TxPower") +
               childXml("RxThreshold") + childXml("AntennaHeight") + "</StationInterlink>";
    return "<" + name + "/>";
}

QString elementXml(const QString& start, const QString& name, const QStringList& children)
{
    QString xml = start;
    for (const QString& child : children)
        xml += childXml(child);
    return xml + "</" + name + ">";
}

// The column just after the start tag of a child standing last in the xml.
int columnAfterLast(const QString& xml, const QString& child)
{
    const QString text = childXml(child);
    return int(xml.lastIndexOf(text) + text.indexOf('>') + 1);
}

// The report's own lines: its messages, and each nested block by its class.
QStringList reportLines(const QString& report)
{
    QStringList lines;
    int depth = 0;
    const QRegularExpression begin("^\\+\\+\\+ in (\\w+) Begin:$");
    for (const QString& line : report.split('\n')) {
        const auto match = begin.match(line);
        if (match.hasMatch()) {
            if (++depth == 2)
                lines.append(match.captured(1));
        } else if (line.startsWith("--- in ")) {
            --depth;
        } else if (depth == 1) {
            lines.append(line);
        }
    }
    return lines;
}

// One reading case of an element: its children, and where reading fails:
// "" nowhere, "start" at the last child, "end" at the own end tag.
void orderData()
{
    QTest::addColumn<QStringList>("children");
    QTest::addColumn<QString>("failure");
}

template <class Element>
void checkOrder(const char* classname, const QString& start, const QString& name,
                const QString& startMessage, const QString& endMessage)
{
    QFETCH(QStringList, children);
    QFETCH(QString, failure);
    const QString xml = elementXml(start, name, children);
    Element element;
    const QString error = KelXmlTest::read(element, xml);
    if (failure.isEmpty()) {
        QCOMPARE(error, QString());
        QVERIFY2(element.isValid(), qPrintable(element.syntaxError()));
    } else if (failure == "end") {
        QCOMPARE(error, located(classname, 1, int(xml.size()), endMessage));
    } else {
        QCOMPARE(error, located(classname, 1, columnAfterLast(xml, children.last()),
                                startMessage.arg(children.last())));
    }
}

const QString elementMessage = QStringLiteral("Unexpected element \"%1\"");
const QString endMessage = QStringLiteral("Unexpected token \"EndElement\"");

} // namespace

class TestStations : public QObject
{
    Q_OBJECT

private slots:
    void signalPathOrder_data()
    {
        orderData();
        const auto row = [](const char* tag, const QStringList& children, const char* failure) {
            QTest::newRow(tag) << children << QString(failure);
        };
        row("required only", {"Name", "SINAD", "Device"}, "");
        row("both maps", {"Name", "SINAD", "Device", "AntHgtMap", "CabLenMap"}, "");
        row("cable map only", {"Name", "SINAD", "Device", "CabLenMap"}, "");
        row("second cable map", {"Name", "SINAD", "Device", "CabLenMap", "CabLenMap"}, "start");
        row("maps swapped", {"Name", "SINAD", "Device", "CabLenMap", "AntHgtMap"}, "start");
        row("sinad before name", {"SINAD", "Name"}, "start");
        row("map before devices", {"Name", "SINAD", "AntHgtMap", "Device"}, "start");
        row("no sinad", {"Name", "Device"}, "end");
        row("no devices", {"Name", "SINAD", "AntHgtMap"}, "end");
    }

    void signalPathOrder()
    {
        checkOrder<XmlSignalPathType>("XmlSignalPathType", "<SignalPath version=\"1.0\">",
                                      "SignalPath", elementMessage, endMessage);
    }

    // Devices nest as <Device> entries inside the <Device> list; a list
    // without entries is refused by the list itself.
    void signalPathDevices()
    {
        XmlSignalPathType path;
        const QString xml = childXml("SignalPath");
        QCOMPARE(KelXmlTest::read(path, xml), QString());
        QCOMPARE(path.devices()->deviceList().size(), 1);
        QCOMPARE(path.devices()->deviceList().first()->objName()->objName(), QString("C1"));
        QCOMPARE(KelXmlTest::write(path, "SignalPath"), xml);
        QVERIFY(!path.hasAnt() && !path.hasCab());

        const QString empty =
            elementXml("<SignalPath version=\"1.0\">", "SignalPath", {"Name", "SINAD", "None"})
                .replace("<None/>", "<Device version=\"1.0\"></Device>");
        QCOMPARE(KelXmlTest::read(path, empty),
                 located("XmlDeviceListType", 1, int(empty.indexOf("</Device>") + 9), endMessage));
    }

    void signalPathVersion()
    {
        XmlSignalPathType path;
        QCOMPARE(KelXmlTest::read(path, "<SignalPath version=\"2.0\"><Name>P</Name></SignalPath>"),
                 located("XmlSignalPathType", 1, 26, "Version not supported: 2.0"));
        QCOMPARE(path.version(), QString("2.0"));
        // The report: version, name, SINAD, devices, then the maps present.
        XmlMapListType emptyMap;
        path.setCab(emptyMap);
        QCOMPARE(reportLines(path.syntaxError()),
                 QStringList({version2, "XmlObjNameType", "XmlSinadType", "XmlDeviceListType",
                              "XmlMapListType"}));
    }

    void interlinkOrder_data()
    {
        orderData();
        QTest::newRow("read names")
            << QStringList{"Frequency", "TxPower", "RxThreshold", "AntennaHeight"} << "";
        QTest::newRow("written name") << QStringList{"Frequency", "Power"} << "start";
        QTest::newRow("power after threshold")
            << QStringList{"Frequency", "RxThreshold", "TxPower"} << "start";
        QTest::newRow("no antenna height")
            << QStringList{"Frequency", "TxPower", "RxThreshold"} << "end";
    }

    void interlinkOrder()
    {
        checkOrder<XmlStationInterlinkType>("XmlStationInterlinkType",
                                            "<StationInterlink version=\"1.0\">",
                                            "StationInterlink", elementMessage, endMessage);
    }

    // The power is written as <Power>, which the interlink's own reader
    // refuses; an unsupported version is only reported.
    void interlinkWritesPower()
    {
        XmlStationInterlinkType link;
        const QString xml =
            "<StationInterlink version=\"2.0\">" + childXml("StationInterlink").section('>', 1);
        QCOMPARE(KelXmlTest::read(link, xml), QString());
        QCOMPARE(link.power()->power(), 5.0);
        QCOMPARE(link.syntaxError(), block("XmlStationInterlinkType", {version2}));

        link.setVersion("1.0");
        const QString written = KelXmlTest::write(link, "StationInterlink");
        QCOMPARE(written, childXml("StationInterlink").replace("TxPower", "Power"));
        XmlStationInterlinkType again;
        QCOMPARE(KelXmlTest::read(again, written),
                 located("XmlStationInterlinkType", 1, columnAfterLast(written, "Power"),
                         elementMessage.arg("Power")));
    }

    void stationOrder_data()
    {
        orderData();
        const auto row = [](const char* tag, const QStringList& children, const char* failure) {
            QTest::newRow(tag) << children << QString(failure);
        };
        row("name and position", {"Name", "Position"}, "");
        row("all",
            {"Name", "SignalPath", "Position", "RxParameter", "DFprecision", "StationInterlink"},
            "");
        row("path before name", {"SignalPath", "Name"}, "start");
        row("path without name", {"SignalPath", "Position"}, "end");
        row("position before name", {"Position", "Name"}, "start");
        row("path after position", {"Name", "Position", "SignalPath"}, "start");
        row("precision before rx", {"Name", "Position", "DFprecision", "RxParameter"}, "start");
        row("interlink before precision", {"Name", "Position", "StationInterlink", "DFprecision"},
            "start");
        row("second position", {"Name", "Position", "Position"}, "start");
        row("unknown", {"Name", "Antenna"}, "start");
        row("no position", {"Name", "SignalPath"}, "end");
    }

    void stationOrder()
    {
        checkOrder<XmlStationType>("XmlStationType", "<Station>", "Station",
                                   "Unexpected token \"StartElement\": %1",
                                   "Unexpected token \"EndElement\": Station");
    }

    // The station starts on whatever token the reader stands, and names a
    // foreign end tag.
    void stationReading()
    {
        const QString xml = "<Station> " + childXml("Name") + childXml("Position") + "</Station>";
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
    }

    // Only the children present are written, in table order; the interlink
    // inside writes what it does not read back.
    void stationWriting()
    {
        XmlStationType station;
        const QString minimal = elementXml("<Station>", "Station", {"Name", "Position"});
        QCOMPARE(KelXmlTest::read(station, minimal), QString());
        QCOMPARE(KelXmlTest::write(station, "Station"), minimal);

        const QString full = elementXml(
            "<Station>", "Station",
            {"Name", "SignalPath", "Position", "RxParameter", "DFprecision", "StationInterlink"});
        QCOMPARE(KelXmlTest::read(station, full), QString());
        const QString written = KelXmlTest::write(station, "Station");
        QCOMPARE(written, QString(full).replace("TxPower", "Power"));
        QCOMPARE(KelXmlTest::read(station, written),
                 located("XmlStationInterlinkType", 1, columnAfterLast(written, "Power"),
                         elementMessage.arg("Power")));
    }

    // No version and no message of its own: the children's blocks in order.
    void stationReport()
    {
        XmlStationType station;
        QCOMPARE(reportLines(station.syntaxError()),
                 QStringList({"XmlObjNameType", "XmlCoordinateType"}));
        station.setSignalPath(XmlSignalPathType());
        station.setRxParam(XmlRxParamType());
        station.setDfPrecision(XmlDfPrecisionType());
        station.setInterlink(XmlStationInterlinkType());
        QCOMPARE(reportLines(station.syntaxError()),
                 QStringList({"XmlObjNameType", "XmlSignalPathType", "XmlCoordinateType",
                              "XmlRxParamType", "XmlDfPrecisionType", "XmlStationInterlinkType"}));
    }
};

QTEST_GUILESS_MAIN(TestStations)
#include "tst_stations.moc"
