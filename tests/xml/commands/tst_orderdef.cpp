// The order definition: the id's exact pattern, the valid instance, the
// setters' silent refusals and reading without a position test.

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

    // Values the setters refuse are dropped silently and show in the report.
    void refusedValues()
    {
        XmlOrderDef order;
        QCOMPARE(KelXmlTest::read(order, "<ORDER_DEF><ORDER_ID>ABC</ORDER_ID><ORDER_SENDER/>"
                                         "</ORDER_DEF>"),
                 QString());
        QCOMPARE(order.syntaxError(),
                 KelXmlTest::block("XmlOrderDef", {"Id not set.", "Sender not set."}));
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
};

QTEST_GUILESS_MAIN(TestOrderDef)
#include "tst_orderdef.moc"
