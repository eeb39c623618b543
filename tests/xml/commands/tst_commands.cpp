// The create, delete and calculation commands and the command document:
// which kinds each takes and where, the signal path that does not read back,
// the order definition handed to each command, the delete commands left out
// of the document's checks, and deep copies.

#include "KelXmlTest.h"

#include <XmlCmdRoot.h>

#include <QtTest>

using namespace KelXml;
using KelXmlTest::block;
using KelXmlTest::located;

namespace {

const QString reference = QStringLiteral("<Reference>R1</Reference>");
const QString station =
    QStringLiteral("<Station><Name>S</Name><Position version=\"1.0\"><Longitude>8</Longitude>"
                   "<Latitude>50</Latitude></Position></Station>");
const QString cep =
    QStringLiteral("<CEP><UseDFs><All/></UseDFs><AOIs><Name>Bay</Name></AOIs></CEP>");
const QString orderDef = QStringLiteral(
    "<ORDER_DEF><ORDER_ID>KEL123456789012345</ORDER_ID><ORDER_SENDER>client</ORDER_SENDER>"
    "</ORDER_DEF>");
const QString admin = "<Administrative><QueryVersion/>" + reference + "</Administrative>";
const QString create = "<Create>" + station + reference + "</Create>";
// Reads, but the empty name makes it invalid.
const QString badDelete = "<Delete><Emitter><Name></Name></Emitter>" + reference + "</Delete>";
const QString model = "<PropagationModel>" + reference + "</PropagationModel>";
const QString calc = "<Calculate>" + cep + reference + "</Calculate>";

QString message(const QString& children)
{
    return "<Msg>" + children + "</Msg>";
}

// The located error's message, without its class and position.
QString messageOf(const QString& error)
{
    const int colon = error.indexOf(QLatin1String("): "));
    return colon < 0 ? error : error.mid(colon + 3).chopped(1);
}

} // namespace

class TestCommands : public QObject
{
    Q_OBJECT

private slots:
    void kindsAndReference_data()
    {
        QTest::addColumn<QString>("classname");
        QTest::addColumn<QString>("xml");
        QTest::addColumn<QString>("error");
        const QString end = QStringLiteral("Unexpected token \"EndElement\"");
        QTest::newRow("create station")
            << "XmlCmdCreate"
            << "<Create>" + station + reference + "</Create>" << QString();
        QTest::newRow("calc reference first") << "XmlCmdCalc"
                                              << "<Calculate>" + reference + cep + "</Calculate>"
                                              << "Unexpected element \"CEP\"";
        QTest::newRow("delete all emitters")
            << "XmlCmdDelete"
            << "<Delete><Emitter><All/></Emitter>" + reference + "</Delete>" << QString();
        QTest::newRow("delete two kinds")
            << "XmlCmdDelete"
            << "<Delete><Emitter><All/></Emitter><DF><All/></DF>" + reference + "</Delete>"
            << "Unexpected element \"DF\"";
    }
    void kindsAndReference()
    {
        QFETCH(QString, classname);
        QFETCH(QString, xml);
        QFETCH(QString, error);
        XmlCmdCreate create;
        XmlCmdCalc calculate;
        XmlCmdDelete remove;
        IXmlElement& element = classname == "XmlCmdCreate" ? static_cast<IXmlElement&>(create)
                               : classname == "XmlCmdCalc" ? static_cast<IXmlElement&>(calculate)
                                                           : static_cast<IXmlElement&>(remove);
        const QString read = KelXmlTest::read(element, xml);
        QCOMPARE(messageOf(read), error);
        if (!read.isEmpty())
            QVERIFY(read.startsWith("in " + classname + " ("));
    }

    // The signal path is read from "Path" and written as "SignalPath", which
    // the reader then refuses.
    void signalPathDoesNotReadBack()
    {
        XmlCmdCreate command;
        const QString path = QStringLiteral(
            "<Path version=\"1.0\"><Name>P</Name><SINAD version=\"1.0\">12</SINAD>"
            "<Device version=\"1.0\"><Device version=\"1.0\"><DeviceCategory>DF</DeviceCategory>"
            "<Name>D</Name><Frequencies version=\"1.0\"><Frequency version=\"1.0\" "
            "unit=\"MHz\">100</Frequency></Frequencies><KFactors version=\"1.0\"><Decibel "
            "version=\"1.0\" unit=\"dB\">1</Decibel></KFactors></Device></Device></Path>");
        QCOMPARE(KelXmlTest::read(command, "<Create>" + path + reference + "</Create>"), QString());
        QVERIFY(command.hasSignalPath());
        const QString written = KelXmlTest::write(command, "Create");
        QVERIFY(written.startsWith("<Create><SignalPath version=\"1.0\">"));
        QVERIFY(written.endsWith("</SignalPath><Reference>R1</Reference></Create>"));
        XmlCmdCreate again;
        QCOMPARE(messageOf(KelXmlTest::read(again, written)), "Unexpected element \"SignalPath\"");
    }

    // Setters do not clear the other kinds: both are written in the fixed
    // order, and the report gives the reference first and the count last.
    void twoKindsBySetters()
    {
        XmlCmdCalc command;
        command.setDfCov(XmlDfCovType());
        command.setCep(XmlCepType());
        QVERIFY(!command.isValid());
        QVERIFY(KelXmlTest::write(command, "C").startsWith("<C><CEP>"));
        QVERIFY(KelXmlTest::write(command, "C").contains("</CEP><DFcoverage>"));
        const QString report = command.syntaxError();
        QVERIFY(report.startsWith("+++ in XmlCmdCalc Begin:\n+++ in XmlreferenceType Begin:"));
        QVERIFY(report.indexOf("XmlCepType") < report.indexOf("XmlDfCovType"));
        QVERIFY(report.endsWith("Too many or too few elements.\n--- in XmlCmdCalc End"));
        XmlCmdCalc empty;
        QCOMPARE(KelXmlTest::write(empty, "C"), QStringLiteral("<C><Reference></Reference></C>"));
    }

    void documentOrderOfKinds_data()
    {
        QTest::addColumn<QString>("children");
        QTest::addColumn<QString>("error");
        QTest::newRow("every kind")
            << orderDef + admin + create + badDelete + model + calc + calc << QString();
        QTest::newRow("empty") << QString() << QString();
        QTest::newRow("order definition late")
            << admin + orderDef << "Unexpected token \"StartElement\": ORDER_DEF";
        QTest::newRow("create after delete")
            << badDelete + create << "Unexpected token \"StartElement\": Create";
        QTest::newRow("model after calculate")
            << calc + model << "Unexpected token \"StartElement\": PropagationModel";
    }
    void documentOrderOfKinds()
    {
        QFETCH(QString, children);
        QFETCH(QString, error);
        XmlCmdRoot root;
        const QString read = KelXmlTest::read(root, message(children));
        QCOMPARE(messageOf(read), error);
        if (!error.isEmpty())
            QVERIFY(read.startsWith("in XmlCmdRoot ("));
    }

    // Each command gets the order definition after it has read itself; the
    // invalid delete command does not make the message invalid.
    void documentHandsOverTheOrderAndSkipsDeletes()
    {
        XmlCmdRoot root;
        QCOMPARE(
            KelXmlTest::read(root, message(orderDef + admin + create + badDelete + model + calc)),
            QString());
        QCOMPARE(root.getAdministrativeCmds().size(), 1);
        QCOMPARE(root.getAdministrativeCmds().first()->orderDef()->orderId(), "KEL123456789012345");
        QCOMPARE(root.getCreateCmds().first()->orderDef()->orderSender(), "client");
        QVERIFY(root.getDeleteCmds().first()->hasOrderDef());
        QVERIFY(root.getPropagationModelCmd()->hasOrderDef());
        QVERIFY(root.getPropagationModelCmd()->isCommand());
        QVERIFY(root.getCalculationCmds().first()->hasOrderDef());
        QVERIFY(!root.getDeleteCmds().first()->isValid());
        QVERIFY(root.isValid());
        QCOMPARE(root.syntaxError(), QString());

        // Without an order definition, commands keep none.
        XmlCmdRoot bare;
        QCOMPARE(KelXmlTest::read(bare, message(calc)), QString());
        QVERIFY(!bare.hasOrderDef());
        QVERIFY(!bare.getCalculationCmds().first()->hasOrderDef());
    }

    // A command that failed to read is kept; reading again adds to the lists.
    void failedCommandKeptAndReadingAdds()
    {
        XmlCmdRoot root;
        QVERIFY(!KelXmlTest::read(root, message(calc + "<Calculate>" + reference + "</Calculate>"))
                     .isEmpty());
        QCOMPARE(root.getCalculationCmds().size(), 2);
        QCOMPARE(KelXmlTest::read(root, message(calc)), QString());
        QCOMPARE(root.getCalculationCmds().size(), 3);
        QVERIFY(!root.isValid());
        QVERIFY(root.syntaxError().contains("Too many or too few elements."));
    }

    void documentWritesKindsInOrderAndCopiesDeeply()
    {
        XmlCmdRoot root;
        QCOMPARE(
            KelXmlTest::read(root, message(orderDef + admin + create + badDelete + model + calc)),
            QString());
        const QString written = KelXmlTest::write(root, "Msg");
        int last = -1;
        for (const char* kind : {"<ORDER_DEF>", "<Administrative>", "<Create>", "<Delete>",
                                 "<PropagationModel>", "<Calculate>"}) {
            const int at = written.indexOf(QLatin1String(kind));
            QVERIFY2(at > last, kind);
            last = at;
        }
        XmlCmdRoot copy(root);
        root.reset();
        QVERIFY(root.getCreateCmds().isEmpty() && !root.hasOrderDef() &&
                !root.getPropagationModelCmd());
        QCOMPARE(KelXmlTest::write(copy, "Msg"), written);
        XmlCmdRoot assigned;
        assigned = copy;
        copy.reset();
        QCOMPARE(KelXmlTest::write(assigned, "Msg"), written);
    }
};

QTEST_GUILESS_MAIN(TestCommands)
#include "tst_commands.moc"
