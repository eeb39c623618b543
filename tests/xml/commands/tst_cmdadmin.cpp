#include "KelXmlTest.h"

#include <XmlCmdAdmin.h>

#include <QtTest>

using namespace KelXml;
using KelXmlTest::block;

class TestCmdAdmin : public QObject
{
    Q_OBJECT

private slots:
    // The QueryVersion end tag sets the type and lets the element end; the
    // reference may stand anywhere, the last one counting.
    void reading_data()
    {
        QTest::addColumn<QString>("content");
        QTest::addColumn<QString>("error");
        QTest::addColumn<bool>("query");
        QTest::addColumn<QString>("reference");
        const QString query = "<QueryVersion/>", ref = "<Reference>r1</Reference>";
        QTest::newRow("references around query")
            << ref + query + "<Reference>r2</Reference>" << QString() << true << "r2";
        QTest::newRow("reference in query")
            << "<QueryVersion>" + ref + "</QueryVersion>" << QString() << true << "r1";
        QTest::newRow("reference only")
            << ref << "Unexpected token \"EndElement\"" << false << "r1";
        QTest::newRow("unknown") << "<QueryState/>" + query << "Unexpected element \"QueryState\""
                                 << false << QString();
    }
    void reading()
    {
        QFETCH(QString, content);
        QFETCH(QString, error);
        QFETCH(bool, query);
        QFETCH(QString, reference);
        XmlCmdAdmin admin;
        const QString read = KelXmlTest::read(admin, "<A>\n" + content + "\n</A>");
        QVERIFY2(error.isEmpty()
                     ? read.isEmpty()
                     : read.startsWith("in XmlCmdAdmin (") && read.endsWith("): " + error + '.'),
                 qPrintable(read));
        QCOMPARE(admin.adminCmd(),
                 query ? XmlCmdAdmin::AdminCmdQueryVersion : XmlCmdAdmin::AdminCmdNone);
        QCOMPARE(admin.cmdReference().reference(), reference);
        QCOMPARE(KelXmlTest::write(admin, "A"),
                 (query ? "<A><QueryVersion/><Reference>" : "<A><Reference>") + reference +
                     "</Reference></A>");
    }

    void report()
    {
        XmlCmdAdmin admin;
        QCOMPARE(admin.syntaxError(),
                 block("XmlCmdAdmin", {"Invalid Administrative command type",
                                       block("XmlreferenceType", {"String too short (min. 1)"})}));
    }

    // The command's own copy of the order definition: copied deeply, never
    // written, dropped by reset().
    void orderDefinition()
    {
        XmlOrderDef order = XmlOrderDef::createValidInstance();
        order.setOrderSender("client");
        XmlCmdAdmin admin;
        admin.setOrderDef(order);
        XmlCmdAdmin copy(admin);
        order.setOrderSender("other");
        admin.setOrderDef(order);
        QCOMPARE(copy.orderDef()->orderSender(), "client");
        QCOMPARE(KelXmlTest::write(admin, "A"), "<A><Reference></Reference></A>");
        admin.reset();
        QVERIFY(!admin.hasOrderDef());
    }
};

QTEST_GUILESS_MAIN(TestCmdAdmin)
#include "tst_cmdadmin.moc"
