// Automatic and interactive responses and the response document: attribute
// and content reading, the writer's priority, the parity verdict that the
// report does not share, and the type/content rules.

#include "KelXmlTest.h"

#include <XmlDateTime.h>
#include <XmlElementRegistry.h>
#include <XmlRespRoot.h>

#include <QtTest>

using namespace KelXml;
using KelXmlTest::block;

namespace {

const QString ref = "<CommandReference>c</CommandReference>";
const QString fault =
    "<Automatic status=\"fault\">" + ref + "<ErrorMessage>x</ErrorMessage></Automatic>";
const QString stamp = " timestamp=\"2021-03-04T05:06:07\"";
const QString link = "<InterlinkResult><Parameters><FirstName>A</FirstName><SecondName>B"
                     "</SecondName></Parameters><Result><Text>ok</Text></Result></InterlinkResult>";

// The element names of the written element's children.
QString childNames(const IXmlElement& element)
{
    QStringList names;
    QXmlStreamReader reader(KelXmlTest::write(element, "E"));
    for (reader.readNextStartElement(); reader.readNextStartElement(); reader.skipCurrentElement())
        names << reader.name().toString();
    return names.join(' ');
}

// The reference and the content items named by letters: E error message,
// T estimated time, V version, G grid result, I interlink result (each valid).
XmlAutoRespType automatic(int status, const QString& items)
{
    XmlAutoRespType response;
    KelXmlTest::read(response, "<A status=\"ack\">" + ref + "<KelVersion/></A>");
    response.setStatus(XmlAutoRespType::RespStatus(status));
    XmlCepType cep;
    KelXmlTest::read(cep, "<P><UseDFs><All/></UseDFs><AOIs><All/></AOIs></P>");
    XmlGridResultType grid;
    grid.setType(XmlGridResultType::Cep);
    grid.setCep(cep);
    grid.setScreenshotFilename("g.png");
    XmlInterlinkResultType interlink;
    KelXmlTest::read(interlink, link);
    if (items.contains('E'))
        response.setErrorMessage("failed");
    if (items.contains('T'))
        response.setEstimatedTime(QDateTime(QDate(2021, 3, 4), QTime(5, 6)));
    if (items.contains('V'))
        response.setKelVersion("4.2");
    if (items.contains('G'))
        response.setGridResult(grid);
    if (items.contains('I'))
        response.setInterlinkResult(interlink);
    return response;
}

} // namespace

class TestResponses : public QObject
{
    Q_OBJECT

private slots:
    void readingErrors_data()
    {
        QTest::addColumn<QString>("xml");
        QTest::addColumn<QString>("error");
        const QString a = "XmlAutoRespType: ", i = "XmlInteractRespType: ", r = "XmlRespRoot: ";
        const QString ack = "<Automatic status=\"ack\">", version = "<KelVersion>1</KelVersion>";
        const QString root = "<R type=\"automatic\" final=\"1\"";
        const QString start = "Unexpected token \"StartElement\": ";
        const QString illegal = "Illegal attribute value in \"%1\"";
        QTest::newRow("ACK") << "<Automatic status=\"ACK\">" << a + illegal.arg("status");
        QTest::newRow("reference only")
            << ack + ref + "</Automatic>" << a + "Unexpected token \"EndElement\": Automatic";
        QTest::newRow("reference last") << ack + version + ref << a + start + "CommandReference";
        QTest::newRow("month 13") << ack + ref +
                                         "<EstimatedTime>2020-13-01T00:00:00</EstimatedTime>"
                                  << a + "Illegal dateTime format";
        QTest::newRow("two results")
            << "<Interactive>" + link + "<Station/>" << i + start + "Station";
        QTest::newRow("30 February")
            << root + " timestamp=\"2021-02-30T00:00:00\">" << r + illegal.arg("timestamp");
    }
    void readingErrors()
    {
        QFETCH(QString, xml);
        QFETCH(QString, error);
        const auto colon = error.indexOf(": "); // the class, then the message
        const auto element = XmlElementRegistry::create(error.left(colon));
        const QString read = KelXmlTest::read(*element, xml);
        QVERIFY2(read.startsWith("in " + error.left(colon) + " (line ") &&
                     read.endsWith(error.mid(colon) + '.'),
                 qPrintable(read));
    }

    // Any letter case of TRUE and FALSE, or 1 and 0; a refused value (or none)
    // keeps the old one, and the reading goes on to the timestamp.
    void rootFinal()
    {
        const QStringList texts = {"tRUE", "1", "fAlSe", "0", "yes", "01", ""};
        const QStringList after = {"11", "11", "00", "00", "01", "01", "01"};
        for (int i = 0; i < texts.size(); ++i) {
            for (const bool before : {false, true}) {
                XmlRespRoot root;
                root.setFinal(before);
                root.setTimestamp(QDateTime());
                KelXmlTest::read(root, "<R final=\"" + texts[i] + '"' + stamp + "/>");
                QCOMPARE(root.isFinal(), after[i][int(before)] == '1');
                QCOMPARE(root.timestamp(), QDateTime(QDate(2021, 3, 4), QTime(5, 6, 7)));
            }
        }
    }

    // ORDER_DEF anywhere and again, the last one kept; booleans written in lower case.
    void rootOrderDefs()
    {
        const auto order = [](char digit) {
            return "<ORDER_DEF><ORDER_ID>KEL" + QString(15, digit) +
                   "</ORDER_ID><ORDER_SENDER>srv</ORDER_SENDER></ORDER_DEF>";
        };
        const QString open = "<R type=\"automatic\" final=\"%1\"" + stamp + ">";
        XmlRespRoot root;
        QCOMPARE(KelXmlTest::read(root, open.arg("FALSE") + order('1') + fault + order('2') +
                                            order('3') + "</R>"),
                 QString());
        QVERIFY(root.isValid());
        QCOMPARE(KelXmlTest::write(root, "R"), open.arg("false") + order('3') + fault + "</R>");
    }

    // Reading keeps the kinds it does not meet; the result object is written
    // under "Station"; the count message has no full stop.
    void interactiveKeepsOtherResults()
    {
        XmlInteractRespType interactive;
        interactive.setResult(XmlResultObjectType());
        QCOMPARE(KelXmlTest::read(interactive, "<I>" + link + "</I>"), QString());
        QCOMPARE(interactive.syntaxError(),
                 block("XmlInteractRespType", {"Illegal number of elements"}));
        QCOMPARE(childNames(interactive), QString("InterlinkResult Station"));
    }

    // The writer's priority, and a verdict by the parity of the content items
    // that the report does not share.
    void automaticContent_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("items");
        QTest::addColumn<QString>("written");
        QTest::addColumn<bool>("valid");
        QTest::addColumn<QString>("report");
        const auto row = [](int status, const char* items, const char* written, bool valid,
                            const char* report) {
            QTest::addRow("%d %s", status, items)
                << status << QString(items) << QString(written) << valid << QString(report);
        };
        row(2, "E", "ErrorMessage", false, "Has ErrorMessage but not status 'fault'");
        row(1, "ETV", "ErrorMessage", false, "Has ErrorMessage but also EstimatedTime");
        row(0, "V", "KelVersion", false, "Status not defined.\nMust have status 'ack'");
        row(2, "", "", false, "");
        row(2, "TVI", "EstimatedTime", true, "If EstimatedTime given, no results allowed");
        row(2, "VGI", "KelVersion GridResult InterlinkResult", true,
            "If KelVersion set, no results allowed");
        row(2, "GI", "GridResult InterlinkResult", false, "Only one result allowed");
    }
    void automaticContent()
    {
        QFETCH(int, status);
        QFETCH(QString, items);
        QFETCH(QString, written);
        QFETCH(QString, report);
        XmlAutoRespType response = automatic(status, items);
        QCOMPARE(childNames(response), ("CommandReference " + written).trimmed());
        QTEST(response.isValid(), "valid");
        QCOMPARE(response.syntaxError(),
                 report.isEmpty() ? report : block("XmlAutoRespType", {report}));
    }

    // The type names the content that must be there, and alone; the other
    // content is not mentioned when the announced one is missing.
    void rootTypeAndContent()
    {
        const auto report = [](int type, const QString& content) {
            XmlRespRoot root;
            root.setType(XmlRespRoot::RespType(type));
            if (content.contains('A'))
                root.setAutoResp(automatic(1, "E"));
            if (content.contains('I'))
                root.setInteractResp(XmlInteractRespType());
            const QString text = root.syntaxError();
            return root.isValid() == text.isEmpty() ? text : QString("verdict differs");
        };
        const auto in = [](const char* message) { return block("XmlRespRoot", {message}); };
        QCOMPARE(report(2, "AI"), in("Type automatic but interactive content"));
        QCOMPARE(report(2, "I"), in("Type automatic but no content"));
        QCOMPARE(report(0, "A"), in("Type not defined."));
        QCOMPARE(report(7, ""), QString());
    }

    // The timestamp is the time of construction, taken anew by reset().
    void rootDefaults()
    {
        const QString before = XmlKit::formatDateTime(QDateTime::currentDateTime());
        XmlRespRoot root;
        root.setTimestamp(QDateTime(QDate(2000, 1, 1), QTime(0, 0)));
        root.reset();
        const QString time = XmlKit::formatDateTime(root.timestamp());
        QVERIFY(before <= time && time <= XmlKit::formatDateTime(QDateTime::currentDateTime()));
        QCOMPARE(KelXmlTest::write(root, "R"),
                 "<R type=\"UNDEFINED\" final=\"true\" timestamp=\"" + time + "\"/>");
    }

    // The timestamp is taken when the root is made, though converted to local
    // time only when first asked for: the same value as currentDateTime()
    // then, kept by copies and by every later call.
    void timestampOfConstruction()
    {
        const qint64 before = QDateTime::currentMSecsSinceEpoch();
        XmlRespRoot root;
        const qint64 after = QDateTime::currentMSecsSinceEpoch();
        const XmlRespRoot copy = root;
        QTest::qSleep(30);
        const QDateTime& stamp = root.timestamp();
        QCOMPARE(stamp.timeSpec(), Qt::LocalTime);
        QVERIFY(before <= stamp.toMSecsSinceEpoch() && stamp.toMSecsSinceEpoch() <= after);
        QCOMPARE(copy.timestamp(), stamp);
        QCOMPARE(&root.timestamp(), &stamp);
        QCOMPARE(root.timestamp(),
                 QDateTime::fromMSecsSinceEpoch(stamp.toMSecsSinceEpoch(), Qt::LocalTime));
        root.reset();
        QVERIFY(root.timestamp().toMSecsSinceEpoch() >= after + 30);
    }

    // Timestamps are read as Qt reads an ISO 8601 date-time, whichever form
    // they take, in a zone with daylight saving time (where a local time may
    // fall into the hour skipped in spring and be invalid).
    void timestampsReadAsQtReadsThem_data()
    {
        QTest::addColumn<QString>("text");
        for (const char* text : {"2021-03-04T05:06:07",
                                 "2021-03-04T05:06:07Z",
                                 "2021-03-04T05:06:07+02:00",
                                 "2021-03-04T05:06:07-05:30",
                                 "2021-03-04T05:06:07+00:00",
                                 "2021-03-04T05:06:07-00:00",
                                 "2021-03-04T05:06:07+14:59",
                                 "2021-03-04T05:06:07+15:00",
                                 "2021-03-04T05:06:07+02:60",
                                 "2024-02-29T23:59:59",
                                 "2021-02-29T00:00:00",
                                 "2021-02-30T00:00:00",
                                 "2021-13-01T00:00:00",
                                 "0000-01-01T00:00:00",
                                 "2021-03-04T24:00:00",
                                 "2021-03-04T23:60:00",
                                 "2021-03-04T23:59:60",
                                 "2021-03-04T05:06:07.250",
                                 "2021-03-04t05:06:07",
                                 "2021-03-04 05:06:07",
                                 "2021-03-04T05:06:07z",
                                 "2021-03-04T05:06:07+0200",
                                 "2021-03-04T05:06:07+",
                                 "2021-03-04T05:06:07+02",
                                 "2021-03-04T05:06",
                                 "2021-03-04",
                                 "2021-03-04T05:06:07 ",
                                 "\xEF\xBC\x92"
                                 "021-03-04T05:06:07",
                                 "2021-03-28T02:30:00",
                                 "2021-03-28T01:59:59",
                                 "2021-10-31T02:30:00",
                                 "2021-03-28T02:30:00+01:00",
                                 ""}) {
            QTest::newRow(text) << QString::fromUtf8(text);
        }
    }
    void timestampsReadAsQtReadsThem()
    {
        QFETCH(QString, text);
        const QByteArray zone = qgetenv("TZ");
        qputenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
        const QDateTime read = XmlKit::parseDateTime(text);
        const QDateTime qt = QDateTime::fromString(text, Qt::ISODate);
        if (zone.isNull())
            qunsetenv("TZ");
        else
            qputenv("TZ", zone);
        QCOMPARE(read.isNull(), qt.isNull());
        QCOMPARE(read.isValid(), qt.isValid());
        QCOMPARE(read.date(), qt.date());
        QCOMPARE(read.time(), qt.time());
        QCOMPARE(read.timeSpec(), qt.timeSpec());
        QCOMPARE(read.offsetFromUtc(), qt.offsetFromUtc());
        QCOMPARE(read.toMSecsSinceEpoch(), qt.toMSecsSinceEpoch());
        QCOMPARE(read, qt);
        QCOMPARE(XmlKit::formatDateTime(read), XmlKit::formatDateTime(qt));
    }
};

QTEST_GUILESS_MAIN(TestResponses)
#include "tst_responses.moc"
