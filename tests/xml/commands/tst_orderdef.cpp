#include "KelXmlTest.h"

#include <XmlOrderDef.h>

#include <QDateTime>
#include <QSysInfo>
#include <QtTest>

using namespace KelXml;

namespace {
const QString validId = QStringLiteral("KEL123456789012345");
} // namespace

class TestOrderDef : public QObject
{
    Q_OBJECT

private slots:
    // "KEL" and exactly fifteen digits, the whole text; a refused id keeps the old one.
    void orderIdPattern_data()
    {
        QTest::addColumn<QString>("id");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("15 digits") << validId << true;
        QTest::newRow("14 digits") << "KEL12345678901234" << false;
        QTest::newRow("16 digits") << "KEL1234567890123456" << false;
        QTest::newRow("lower case") << "kel123456789012345" << false;
        QTest::newRow("leading blank") << ' ' + validId << false;
        QTest::newRow("trailing line feed") << validId + '\n' << false;
        QTest::newRow("Arabic-Indic digits") << "KEL" + QString(15, QChar(0x0663)) << true;
    }
    void orderIdPattern()
    {
        QFETCH(QString, id);
        QFETCH(bool, accepted);
        XmlOrderDef order;
        QVERIFY(order.setOrderId("KEL999999999999999"));
        QCOMPARE(order.setOrderId(id), accepted);
        QCOMPARE(order.orderId(), accepted ? id : "KEL999999999999999");
    }

    // The id is the local time to the millisecond, the sender the host's name.
    void createValidInstance()
    {
        const QString format = QStringLiteral("yyMMddhhmmsszzz");
        const QString before = QDateTime::currentDateTime().toString(format);
        const XmlOrderDef order = XmlOrderDef::createValidInstance();
        const QString after = QDateTime::currentDateTime().toString(format);
        const QString id = order.orderId();
        QVERIFY2(id.size() == 18 && id.startsWith("KEL") && id.mid(3) >= before &&
                     id.mid(3) <= after,
                 qPrintable(id));
        QCOMPARE(order.orderSender(), QSysInfo::machineHostName());
        QCOMPARE(order.isValid(), !QSysInfo::machineHostName().isEmpty());
    }

    // Both children, in order, each once; values the setters refuse are dropped
    // silently and show in the report.
    void reading_data()
    {
        QTest::addColumn<QString>("content");
        QTest::addColumn<QString>("error");
        QTest::addColumn<QString>("sender");
        QTest::addColumn<QStringList>("report");
        const QString id = "<ORDER_ID>" + validId + "</ORDER_ID>";
        const QString sender = "<ORDER_SENDER>host</ORDER_SENDER>";
        QTest::newRow("both") << id + "\n" + sender << QString() << "host" << QStringList();
        QTest::newRow("sender only") << sender << "\"EndElement\": ORDER_DEF"
                                     << "host" << QStringList{"Id not set."};
        QTest::newRow("refused values")
            << "<ORDER_ID>ABC</ORDER_ID><ORDER_SENDER/>" << QString() << QString()
            << QStringList{"Id not set.", "Sender not set."};
        QTest::newRow("id after sender") << sender + id << "\"StartElement\": ORDER_ID"
                                         << "host" << QStringList{"Id not set."};
        QTest::newRow("second sender") << id + sender + sender << "\"StartElement\": ORDER_SENDER"
                                       << "host" << QStringList();
    }
    void reading()
    {
        QFETCH(QString, content);
        QFETCH(QString, error);
        QFETCH(QString, sender);
        QFETCH(QStringList, report);
        XmlOrderDef order;
        const QString read = KelXmlTest::read(order, "<ORDER_DEF>" + content + "</ORDER_DEF>");
        QVERIFY2(error.isEmpty() ? read.isEmpty()
                                 : read.startsWith("in XmlOrderDef (") &&
                                       read.endsWith("): Unexpected token " + error + '.'),
                 qPrintable(read));
        QCOMPARE(order.orderSender(), sender);
        QCOMPARE(order.isValid(), report.isEmpty());
        QCOMPARE(order.syntaxError(),
                 report.isEmpty() ? QString() : KelXmlTest::block("XmlOrderDef", report));
    }

    // No position test: reading goes on from wherever the reader stands.
    void noPositionTest()
    {
        QXmlStreamReader reader(QStringLiteral("<M>\n<ORDER_DEF/></M>"));
        reader.readNextStartElement();
        reader.readNext(); // the line feed
        XmlOrderDef order;
        order.processXml(reader, QStringLiteral("ORDER_DEF"));
        QCOMPARE(reader.errorString(), KelXmlTest::located("XmlOrderDef", 2, 12,
                                                           "Unexpected token \"StartElement\": "
                                                           "ORDER_DEF"));
    }

    void writingEmpty()
    {
        QCOMPARE(KelXmlTest::write(XmlOrderDef(), "ORDER_DEF"),
                 "<ORDER_DEF><ORDER_ID></ORDER_ID><ORDER_SENDER></ORDER_SENDER></ORDER_DEF>");
    }
};

QTEST_GUILESS_MAIN(TestOrderDef)
#include "tst_orderdef.moc"
