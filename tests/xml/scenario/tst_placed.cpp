// The receive parameters and the placed objects built on them: direction
// finder, emitter and receiver. Their child orders, the interlink that may
// stand anywhere but shuts the door behind it, and the report order.

#include "KelXmlTest.h"

#include <XmlDfType.h>
#include <XmlElementRegistry.h>
#include <XmlEmitterType.h>
#include <XmlReceiverType.h>
#include <XmlRxParamType.h>

#include <QtTest>

using namespace KelXml;
using KelXmlTest::block;

namespace {

const QString name = QStringLiteral("<Name>Site 1</Name>");
const QString position = QStringLiteral("<Position version=\"1.0\"><Longitude>11.5</Longitude>"
                                        "<Latitude>48.1</Latitude></Position>");
const QString height = QStringLiteral("<AntennaHeight unit=\"m\">10</AntennaHeight>");
const QString threshold = QStringLiteral("<RxThreshold unit=\"dBm\">-100</RxThreshold>");
const QString rxParam = "<RxParameter>" + height + threshold + "</RxParameter>";
const QString precision = QStringLiteral("<DFprecision unit=\"\u00B0\">2</DFprecision>");
const QString txParam = QStringLiteral("<TxParameter><Frequency unit=\"MHz\">100</Frequency>"
                                       "<TxPower unit=\"W\">10</TxPower>"
                                       "<AntennaHeight unit=\"m\">20</AntennaHeight>"
                                       "<Bandwidth unit=\"kHz\">25</Bandwidth></TxParameter>");
const QString interlink = QStringLiteral("<StationInterlink><Frequency unit=\"MHz\">400</Frequency>"
                                         "<TxPower unit=\"W\">5</TxPower>"
                                         "<RxThreshold unit=\"dBm\">-90</RxThreshold>"
                                         "<AntennaHeight unit=\"m\">15</AntennaHeight>"
                                         "</StationInterlink>");

// The located error's class and message, without line and column; empty
// when the element was read cleanly.
QString where(const QString& error)
{
    const QRegularExpression located("^in (\\w+) \\(line \\d+, column \\d+\\): (.*)\\.$");
    const QRegularExpressionMatch match = located.match(error);
    return match.hasMatch() ? match.captured(1) + ": " + match.captured(2) : error;
}

} // namespace

class TestPlaced : public QObject
{
    Q_OBJECT

private slots:
    // Which children each class takes in which order, whose error a refusal
    // is, and which version the reader refuses.
    void reading_data()
    {
        QTest::addColumn<QString>("classname");
        QTest::addColumn<QString>("xml");
        QTest::addColumn<QString>("error");
        const auto row = [](const char* tag, const char* classname, const QString& xml,
                            const QString& error = {}) {
            QTest::newRow(tag) << QString(classname) << xml << error;
        };
        const QString endTag = "Unexpected token \"EndElement\"";
        for (const char* classname : {"XmlDfType", "XmlEmitterType", "XmlReceiverType"}) {
            QTest::addRow("%s: version 2.0", classname)
                << QString(classname) << QString("<E version=\"2.0\"/>")
                << QString(classname) + ": Version not supported: 2.0";
        }
        row("rx: complete", "XmlRxParamType", rxParam);
        row("rx: threshold alone", "XmlRxParamType", "<RxParameter>" + height + "</RxParameter>",
            "XmlRxParamType: " + endTag);
        row("rx: swapped", "XmlRxParamType",
            "<RxParameter>" + threshold + height + "</RxParameter>",
            "XmlRxParamType: Unexpected element \"AntennaHeight\"");
        row("rx: version 2.0 is kept", "XmlRxParamType",
            "<RxParameter version=\"2.0\">" + height + threshold + "</RxParameter>");
        row("df: complete", "XmlDfType", "<DF>" + name + position + rxParam + precision + "</DF>");
        row("df: interlink last", "XmlDfType",
            "<DF>" + name + position + rxParam + precision + interlink + "</DF>");
        row("df: no precision", "XmlDfType", "<DF>" + name + position + rxParam + "</DF>",
            "XmlDfType: " + endTag);
        row("df: interlink shuts the rest out", "XmlDfType",
            "<DF>" + name + position + interlink + rxParam + precision + "</DF>",
            "XmlDfType: Unexpected element \"RxParameter\"");
        row("df: interlink twice", "XmlDfType", "<DF>" + interlink + interlink + "</DF>",
            "XmlDfType: Unexpected element \"StationInterlink\"");
        row("emitter: complete", "XmlEmitterType",
            "<Emitter>" + name + position + txParam + "</Emitter>");
        row("emitter: position first", "XmlEmitterType",
            "<Emitter>" + position + name + txParam + "</Emitter>",
            "XmlEmitterType: Unexpected element \"Name\"");
        row("emitter: no interlink", "XmlEmitterType",
            "<Emitter>" + name + position + txParam + interlink + "</Emitter>",
            "XmlEmitterType: Unexpected element \"StationInterlink\"");
        row("receiver: complete", "XmlReceiverType",
            "<Receiver>" + name + position + rxParam + "</Receiver>");
        row("receiver: interlink first", "XmlReceiverType",
            "<Receiver>" + interlink + name + position + rxParam + "</Receiver>",
            "XmlReceiverType: Unexpected element \"Name\"");
    }

    void reading()
    {
        QFETCH(QString, classname);
        QFETCH(QString, xml);
        QFETCH(QString, error);
        const auto element = XmlElementRegistry::create(classname);
        QVERIFY(element);
        QCOMPARE(where(KelXmlTest::read(*element, xml)), error);
        if (error.isEmpty()) // what was read completely is valid, but for its version
            QCOMPARE(element->isValid(), !xml.contains("\"2.0\""));
    }

    // The report gives the version, then the children in writing order, the
    // interlink last and only when there is one. The receive parameters keep
    // a version that their reader took without complaint.
    void reportOrder()
    {
        const QString version2 = "Version \"2.0\" not supported";
        QVERIFY(XmlLengthType().isValid());
        const QString rxReport = block("XmlRxParamType", {XmlFieldstrengthType().syntaxError()});

        XmlRxParamType rx;
        QCOMPARE(KelXmlTest::read(rx, "<RxParameter version=\"2.0\">" + height + threshold +
                                          "</RxParameter>"),
                 QString());
        QCOMPARE(rx.version(), QString("2.0"));
        QCOMPARE(rx.syntaxError(), block("XmlRxParamType", {version2}));

        const QString noName = block("XmlObjNameType", {"Object name too short (min. 1)."});
        const QString coordinate = XmlCoordinateType().syntaxError();
        const QString noPrecision = XmlDfPrecisionType().syntaxError();
        const QString link = XmlStationInterlinkType().syntaxError();
        QVERIFY(!coordinate.isEmpty() && !noPrecision.isEmpty() && !link.isEmpty());

        XmlDfType df;
        df.setVersion("2.0");
        QCOMPARE(df.syntaxError(),
                 block("XmlDfType", {version2, noName, coordinate, rxReport, noPrecision}));
        df.setInterlink(XmlStationInterlinkType());
        QCOMPARE(df.syntaxError(),
                 block("XmlDfType", {version2, noName, coordinate, rxReport, noPrecision, link}));

        XmlReceiverType receiver;
        receiver.setInterlink(XmlStationInterlinkType());
        QCOMPARE(receiver.syntaxError(),
                 block("XmlReceiverType", {noName, coordinate, rxReport, link}));
        QCOMPARE(XmlEmitterType().syntaxError(),
                 block("XmlEmitterType", {noName, coordinate, XmlTxParamType().syntaxError()}));
    }

    // The interlink is written last and only when present. Reading one
    // replaces the one held, so an interlink that fails half-way keeps nothing
    // of the old one; a direction finder read without one keeps its own.
    void interlinkHeldAndReplaced()
    {
        XmlReceiverType receiver;
        QCOMPARE(KelXmlTest::read(receiver, "<R>" + name + position + rxParam + "</R>"), QString());
        QVERIFY(receiver.isValid());
        const QString written = KelXmlTest::write(receiver, "R");
        QVERIFY(written.endsWith("</RxParameter></R>"));
        QVERIFY(!written.contains("StationInterlink"));

        XmlStationInterlinkType held;
        XmlFreqType frequency;
        frequency.setFrequency_MHz(7);
        held.setFreq(frequency);
        XmlDfType df;
        df.setInterlink(held);
        const XmlDfType withLink(df);
        QVERIFY(KelXmlTest::write(df, "DF").endsWith("</StationInterlink></DF>"));

        QCOMPARE(KelXmlTest::read(df, "<DF>" + name + position + rxParam + precision + "</DF>"),
                 QString());
        QVERIFY(df.hasInterlink());
        QCOMPARE(df.interlink()->freq()->frequency_MHz(), 7.0);

        QVERIFY(!KelXmlTest::read(df, "<DF><StationInterlink><TxPower unit=\"W\">1</TxPower>"
                                      "</StationInterlink></DF>")
                     .isEmpty());
        QVERIFY(df.hasInterlink());
        QCOMPARE(df.interlink()->freq()->frequency_MHz(), XmlFreqType().frequency_MHz());
        QCOMPARE(withLink.interlink()->freq()->frequency_MHz(), 7.0);
    }
};

QTEST_GUILESS_MAIN(TestPlaced)
#include "tst_placed.moc"
