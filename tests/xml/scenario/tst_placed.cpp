// The receive parameters and the placed objects built on them: direction
// finder, emitter and receiver. The interlink that may stand anywhere but
// shuts the door behind it, and the report order.

#include "KelXmlTest.h"

#include <XmlDfType.h>
#include <XmlElementRegistry.h>
#include <XmlEmitterType.h>
#include <XmlReceiverType.h>

#include <QtTest>

using namespace KelXml;
using KelXmlTest::block;

namespace {

const QString name = QStringLiteral("<Name>Site 1</Name>");
const QString position = QStringLiteral("<Position version=\"1.0\"><Longitude>11.5</Longitude>"
                                        "<Latitude>48.1</Latitude></Position>");
const QString rxParam =
    QStringLiteral("<RxParameter><AntennaHeight unit=\"m\">10</AntennaHeight>"
                   "<RxThreshold unit=\"dBm\">-100</RxThreshold></RxParameter>");
const QString precision = QStringLiteral("<DFprecision unit=\"\u00B0\">2</DFprecision>");
const QString interlink = QStringLiteral("<StationInterlink><Frequency unit=\"MHz\">400</Frequency>"
                                         "<TxPower unit=\"W\">5</TxPower>"
                                         "<RxThreshold unit=\"dBm\">-90</RxThreshold>"
                                         "<AntennaHeight unit=\"m\">15</AntennaHeight>"
                                         "</StationInterlink>");

// The located error's class and message, without line and column.
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
    void reading_data()
    {
        QTest::addColumn<QString>("classname");
        QTest::addColumn<QString>("xml");
        QTest::addColumn<QString>("error");
        const auto row = [](const char* tag, const char* classname, const QString& xml,
                            const QString& error = {}) {
            QTest::newRow(tag) << QString(classname) << xml << error;
        };
        const QString txParam = "<TxParameter><Frequency unit=\"MHz\">100</Frequency>"
                                "<TxPower unit=\"W\">10</TxPower>"
                                "<AntennaHeight unit=\"m\">20</AntennaHeight>"
                                "<Bandwidth unit=\"kHz\">25</Bandwidth></TxParameter>";
        row("df: interlink last", "XmlDfType",
            "<DF>" + name + position + rxParam + precision + interlink + "</DF>");
        row("df: interlink shuts the rest out", "XmlDfType",
            "<DF>" + name + position + interlink + rxParam + precision + "</DF>",
            "XmlDfType: Unexpected element \"RxParameter\"");
        row("emitter: complete", "XmlEmitterType",
            "<Emitter>" + name + position + txParam + "</Emitter>");
        row("emitter: no interlink", "XmlEmitterType",
            "<Emitter>" + name + position + txParam + interlink + "</Emitter>",
            "XmlEmitterType: Unexpected element \"StationInterlink\"");
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
        if (error.isEmpty())
            QVERIFY2(element->isValid(), qPrintable(element->syntaxError()));
    }

    // The report gives the version, then the children in writing order, the
    // interlink last and only when there is one. The receive parameters keep
    // a version that their reader took without complaint.
    void reportOrder()
    {
        const QString version2 = "Version \"2.0\" not supported";
        XmlRxParamType rx;
        QCOMPARE(KelXmlTest::read(rx, QString(rxParam).replace("<RxParameter>",
                                                               "<RxParameter version=\"2.0\">")),
                 QString());
        QCOMPARE(rx.version(), QString("2.0"));
        QCOMPARE(rx.syntaxError(), block("XmlRxParamType", {version2}));

        const QStringList children = {
            XmlObjNameType().syntaxError(), XmlCoordinateType().syntaxError(),
            XmlRxParamType().syntaxError(), XmlDfPrecisionType().syntaxError()};
        XmlDfType df;
        df.setVersion("2.0");
        QCOMPARE(df.syntaxError(), block("XmlDfType", QStringList{version2} + children));
        df.setInterlink(XmlStationInterlinkType());
        QCOMPARE(df.syntaxError(),
                 block("XmlDfType", QStringList{version2} + children +
                                        QStringList{XmlStationInterlinkType().syntaxError()}));
    }
};

QTEST_GUILESS_MAIN(TestPlaced)
#include "tst_placed.moc"
