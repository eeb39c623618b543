// The document entry point: hostile inputs are refused early, located and
// named after the limit that refused them; valid documents read exactly as
// with processXml.

#include "KelXmlTest.h"

#include <XmlCmdRoot.h>
#include <XmlDocumentReader.h>
#include <XmlElementRegistry.h>

#include <QBuffer>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <cstring>
#include <ctime>
#include <functional>
#include <limits>

using namespace KelXml;

Q_DECLARE_METATYPE(KelXml::XmlReadError::Kind)

namespace {

// Instrumented code (sanitizers, valgrind) runs many times slower: time
// budgets grow and the cost comparison is only reported.
bool instrumented()
{
#ifdef KELXML_SANITIZED
    return true;
#else
    return qgetenv("LD_PRELOAD").contains("vgpreload");
#endif
}

qint64 refusalBudgetMs()
{
    return instrumented() ? 2000 : 50;
}

const qint64 MiB = 1024 * 1024;

// Generators of the hostile inputs.
QByteArray nested(int depth)
{
    return QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
}

QByteArray attributes(int count)
{
    QByteArray tag("<a");
    for (int i = 0; i < count; ++i)
        tag += " a" + QByteArray::number(i) + "=\"1\"";
    return tag + "/>";
}

QByteArray textNode(qint64 length)
{
    QByteArray document;
    document.reserve(int(length + 7));
    document += "<a>";
    document += QByteArray(int(length), 'x');
    document += "</a>";
    return document;
}

QByteArray billionLaughs()
{
    QByteArray document("<?xml version=\"1.0\"?>\n<!DOCTYPE lolz [\n<!ENTITY lol \"lol\">\n");
    for (int i = 1; i < 10; ++i) {
        document += "<!ENTITY lol" + QByteArray::number(i) + " \"";
        const QByteArray previous = i == 1 ? "&lol;" : "&lol" + QByteArray::number(i - 1) + ";";
        document += previous.repeated(10) + "\">\n";
    }
    return document + "]>\n<lolz>&lol9;</lolz>\n";
}

QByteArray quadraticEntity()
{
    return "<!DOCTYPE d [<!ENTITY a \"" + QByteArray(4000, 'a') + "\">]><d>" +
           QByteArray("&a;").repeated(50000) + "</d>";
}

// 1-based column of the first occurrence of needle on a one-line document.
qint64 columnOf(const QByteArray& document, const char* needle)
{
    return document.indexOf(needle) + 1;
}

XmlReadLimits smallLimits()
{
    XmlReadLimits limits;
    limits.maxBytes = 1000;
    limits.maxDepth = 4;
    limits.maxAttributes = 3;
    limits.maxValueLength = 10;
    return limits;
}

} // namespace

class TestXmlDocumentReader : public QObject
{
    Q_OBJECT

private slots:
    // Each hostile input is refused through the byte array and a device, in
    // time, with the kind, limit and position of its first fault.
    void refused_data()
    {
        QTest::addColumn<QByteArray>("document");
        QTest::addColumn<bool>("small"); // read with smallLimits() instead of the defaults
        QTest::addColumn<XmlReadError::Kind>("kind");
        QTest::addColumn<QString>("limit");
        QTest::addColumn<qint64>("line");
        QTest::addColumn<qint64>("column");

        const QByteArray a33 = attributes(33);
        QTest::newRow("33 attributes") << a33 << false << XmlReadError::AttributesLimit
                                       << "maxAttributes" << qint64(1) << columnOf(a33, "a32=");
        const QByteArray a320 = attributes(320);
        QTest::newRow("320 attributes") << a320 << false << XmlReadError::AttributesLimit
                                        << "maxAttributes" << qint64(1) << columnOf(a320, "a32=");
        const QByteArray a40000 = attributes(40000);
        QTest::newRow("40000 attributes")
            << a40000 << false << XmlReadError::AttributesLimit << "maxAttributes" << qint64(1)
            << columnOf(a40000, "a32=");
        // Quotes hide '>' and the other kind of quote; the fourth value counts.
        const QByteArray quoted("<a b=\">\" c='>\"' d=\"'\" e=\"x\"/>");
        QTest::newRow("quoted > and quotes")
            << quoted << true << XmlReadError::AttributesLimit << "maxAttributes" << qint64(1)
            << columnOf(quoted, "e=");

        QTest::newRow("depth 65") << nested(65) << false << XmlReadError::DepthLimit << "maxDepth"
                                  << qint64(1) << qint64(3 * 64 + 1);
        QTest::newRow("depth 640") << nested(640) << false << XmlReadError::DepthLimit << "maxDepth"
                                   << qint64(1) << qint64(3 * 64 + 1);
        QTest::newRow("depth 1000000")
            << QByteArray("<a>").repeated(1000000) << false << XmlReadError::DepthLimit
            << "maxDepth" << qint64(1) << qint64(3 * 64 + 1);
        QTest::newRow("depth after empty tags")
            << QByteArray("<a>\n<b/><b x='/'/><c></c>\n<b><c><d><e>") << true
            << XmlReadError::DepthLimit << "maxDepth" << qint64(3) << qint64(10);

        QTest::newRow("text 11") << textNode(11) << true << XmlReadError::ValueLengthLimit
                                 << "maxValueLength" << qint64(1) << qint64(4);
        QTest::newRow("attribute value 11")
            << QByteArray("<a\nb=\"12345678901\"/>") << true << XmlReadError::ValueLengthLimit
            << "maxValueLength" << qint64(2) << qint64(4);
        QTest::newRow("name 11") << QByteArray("<abcdefghijk/>") << true
                                 << XmlReadError::ValueLengthLimit << "maxValueLength" << qint64(1)
                                 << qint64(2);
        QTest::newRow("comment 11")
            << QByteArray("<a><!--12345678901--></a>") << true << XmlReadError::ValueLengthLimit
            << "maxValueLength" << qint64(1) << qint64(8);
        QTest::newRow("CDATA 11") << QByteArray("<a><![CDATA[12345678901]]></a>") << true
                                  << XmlReadError::ValueLengthLimit << "maxValueLength" << qint64(1)
                                  << qint64(13);
        QTest::newRow("processing instruction 11")
            << QByteArray("<a/><?pi 345678901?>") << true << XmlReadError::ValueLengthLimit
            << "maxValueLength" << qint64(1) << qint64(7);

        QTest::newRow("size 1001") << QByteArray(1001, ' ') << true << XmlReadError::SizeLimit
                                   << "maxBytes" << qint64(1) << qint64(1);
        QTest::newRow("200 MB text node") << textNode(200 * MiB) << false << XmlReadError::SizeLimit
                                          << "maxBytes" << qint64(1) << qint64(1);

        QTest::newRow("billion laughs")
            << billionLaughs() << false << XmlReadError::Dtd << "" << qint64(2) << qint64(1);
        QTest::newRow("quadratic entity")
            << quadraticEntity() << false << XmlReadError::Dtd << "" << qint64(1) << qint64(1);
        QTest::newRow("DTD after root") << QByteArray("<a/>\r\n<!DOCTYPE a>") << false
                                        << XmlReadError::Dtd << "" << qint64(2) << qint64(1);

        // Columns count characters: é, € and the clef take 2, 3 and 4 bytes.
        QTest::newRow("NUL in text")
            << QByteArray("<a>\xC3\xA9\xE2\x82\xAC\xF0\x9D\x84\x9E\0</a>", 17) << false
            << XmlReadError::Encoding << "" << qint64(1) << qint64(7);
        QTest::newRow("NUL in value") << QByteArray("<a b=\"\0\"/>", 10) << false
                                      << XmlReadError::Encoding << "" << qint64(1) << qint64(7);
        QTest::newRow("NUL in comment") << QByteArray("<a/><!--\0-->", 12) << false
                                        << XmlReadError::Encoding << "" << qint64(1) << qint64(9);
        QTest::newRow("lone continuation byte")
            << QByteArray("<a>\x80</a>") << false << XmlReadError::Encoding << "" << qint64(1)
            << qint64(4);
        QTest::newRow("overlong slash") << QByteArray("<a b='\xC0\xAF'/>") << false
                                        << XmlReadError::Encoding << "" << qint64(1) << qint64(7);
        QTest::newRow("overlong three bytes")
            << QByteArray("<a>\xE0\x80\xAF</a>") << false << XmlReadError::Encoding << ""
            << qint64(1) << qint64(4);
        QTest::newRow("surrogate") << QByteArray("<a>\n\xED\xA0\x80</a>") << false
                                   << XmlReadError::Encoding << "" << qint64(2) << qint64(1);
        QTest::newRow("above U+10FFFF") << QByteArray("<a>\xF4\x90\x80\x80</a>") << false
                                        << XmlReadError::Encoding << "" << qint64(1) << qint64(4);
        QTest::newRow("cut sequence at end")
            << QByteArray("<a/>\xE2\x82") << false << XmlReadError::Encoding << "" << qint64(1)
            << qint64(5);
        QTest::newRow("Latin-1 declared")
            << QByteArray("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xE9</a>") << false
            << XmlReadError::Encoding << "" << qint64(1) << qint64(31);
        QTest::newRow("UTF-16 byte order mark")
            << QByteArray("\xFF\xFE<\0a\0/\0>\0", 10) << false << XmlReadError::Encoding << ""
            << qint64(1) << qint64(1);

        // The XML reader's own faults: a truncated document is located at its end.
        QTest::newRow("truncated") << QByteArray("<Command>\n<!-- x -->") << false
                                   << XmlReadError::NotWellFormed << "" << qint64(2) << qint64(11);
        QTest::newRow("truncated start tag")
            << QByteArray("<a") << false << XmlReadError::NotWellFormed << "" << qint64(1)
            << qint64(3);
        QTest::newRow("element after root")
            << QByteArray("<a/> <b/>") << false << XmlReadError::TrailingContent << "" << qint64(1)
            << qint64(9);
        QTest::newRow("text after root")
            << QByteArray("<a/>\nx") << false << XmlReadError::TrailingContent << "" << qint64(2)
            << qint64(1);
        QTest::newRow("no element") << QByteArray("<!-- only -->\n") << false
                                    << XmlReadError::NotWellFormed << "" << qint64(2) << qint64(1);
    }
    void refused()
    {
        QFETCH(QByteArray, document);
        QFETCH(bool, small);
        QFETCH(XmlReadError::Kind, kind);
        QFETCH(QString, limit);
        QFETCH(qint64, line);
        QFETCH(qint64, column);

        const XmlDocumentReader reader(small ? smallLimits() : XmlReadLimits());
        const auto verify = [&](const XmlReadResult& result, qint64 ms, const char* how) {
            const QString what =
                QStringLiteral("%1: %2").arg(QLatin1String(how), result.error.text());
            QVERIFY2(result.error.kind == kind, qPrintable(what));
            QCOMPARE(result.error.limit, limit);
            QCOMPARE(result.error.line, line);
            QCOMPARE(result.error.column, column);
            QVERIFY2(ms <= refusalBudgetMs(), qPrintable(QStringLiteral("%1 ms").arg(ms)));
            if (!limit.isEmpty()) {
                QVERIFY2(result.error.text().endsWith(QStringLiteral("(limit %1)").arg(limit)),
                         qPrintable(what));
            }
            // Refused by the scan: nothing was read.
            if (kind != XmlReadError::NotWellFormed && kind != XmlReadError::TrailingContent)
                QVERIFY(!result.root);
        };

        QElapsedTimer timer;
        timer.start();
        XmlReadResult result = reader.read(QStringLiteral("command"), document);
        verify(result, timer.elapsed(), "bytes");

        QBuffer buffer(&document);
        buffer.open(QIODevice::ReadOnly);
        timer.restart();
        result = reader.read(QStringLiteral("command"), &buffer);
        verify(result, timer.elapsed(), "device");

        if (document.size() > MiB)
            return; // a stream is read up to the size limit: covered by the small rows
        KelXmlTest::Stream stream(document);
        timer.restart();
        result = reader.read(QStringLiteral("command"), &stream);
        verify(result, timer.elapsed(), "stream");
        QVERIFY(stream.taken() <= reader.limits().maxBytes + 1);
    }

    // Just within each limit, the scan lets a document through.
    void acceptedAtTheLimit_data()
    {
        QTest::addColumn<QByteArray>("document");
        QTest::addColumn<bool>("small");
        QTest::newRow("32 attributes") << attributes(32) << false;
        QTest::newRow("3 attributes, quoted >") << QByteArray("<a b='>' c=\">\" d=''/>") << true;
        QTest::newRow("depth 64") << nested(64) << false;
        QTest::newRow("depth 4 with siblings")
            << QByteArray("<a><b><c><d/><d/></c><c><d></d></c></b></a>") << true;
        QTest::newRow("markup in comment, CDATA, PI")
            << QByteArray("<a><b><c><d><!--<e>--><![CDATA[<e>]]><?p <e>?></d></c></b></a>") << true;
        QTest::newRow("DOCTYPE in comment") << QByteArray("<a><!--<!DOCTYPE a>--></a>") << false;
        QTest::newRow("text 10") << textNode(10) << true;
        QTest::newRow("value 10") << QByteArray("<a b='1234567890'/>") << true;
        QTest::newRow("size 1000")
            << QByteArray("<a>") + QByteArray("<b/>").repeated(248) + " </a>" << true;
        QTest::newRow("text 16 MiB") << textNode(16 * MiB) << false;
        QTest::newRow("UTF-8 declared, any case")
            << QByteArray("\xEF\xBB\xBF<?xml version='1.0' encoding='utf-8'?><a>\xC3\xA9</a>")
            << false;
        QTest::newRow("everything UTF-8 allows")
            << QByteArray("<a b='\xF4\x8F\xBF\xBF'>\xEF\xBF\xBD\xED\x9F\xBF\xE0\xA0\x80</a>")
            << false;
    }
    void acceptedAtTheLimit()
    {
        QFETCH(QByteArray, document);
        QFETCH(bool, small);
        const XmlDocumentReader reader(small ? smallLimits() : XmlReadLimits());
        const XmlReadError error = reader.scan(document);
        QVERIFY2(error.isNull(), qPrintable(error.text()));
    }

    // Raised limits let larger documents through; a value ten times its limit
    // is refused after reading no more than the limit allows.
    void changedLimits()
    {
        XmlReadLimits limits;
        limits.maxBytes = 256 * MiB;
        const XmlDocumentReader reader(limits);
        const QByteArray document = textNode(160 * MiB);
        QElapsedTimer timer;
        timer.start();
        const XmlReadError error = reader.scan(document);
        const qint64 ms = timer.elapsed();
        QCOMPARE(error.kind, XmlReadError::ValueLengthLimit);
        QCOMPARE(error.text(), QStringLiteral("line 1, column 4: a text, value, name or comment "
                                              "longer than 16777216 bytes (limit maxValueLength)"));
        QVERIFY2(ms <= refusalBudgetMs(), qPrintable(QStringLiteral("%1 ms").arg(ms)));

        limits.maxValueLength = 160 * MiB;
        QVERIFY(XmlDocumentReader(limits).scan(document).isNull());
        limits.maxAttributes = 40000;
        QVERIFY(XmlDocumentReader(limits).scan(attributes(40000)).isNull());
        limits.maxDepth = 1;
        QCOMPARE(XmlDocumentReader(limits).scan(nested(2)).text(),
                 QStringLiteral("line 1, column 4: elements nested deeper than 1 levels "
                                "(limit maxDepth)"));
    }

    // A large file is refused from its size without being read.
    void largeFiles_data()
    {
        QTest::addColumn<qint64>("size");
        QTest::newRow("640 MiB") << 640 * MiB + 1;
        QTest::newRow("1 GiB") << 1024 * MiB;
    }
    void largeFiles()
    {
        QFETCH(qint64, size);
        QTemporaryDir dir;
        QFile file(dir.filePath(QStringLiteral("large.xml")));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.resize(size)); // sparse: takes no room on disk
        file.seek(0);
        QElapsedTimer timer;
        timer.start();
        const XmlReadResult result = XmlDocumentReader().readCommand(&file);
        const qint64 ms = timer.elapsed();
        QCOMPARE(result.error.text(), QStringLiteral("line 1, column 1: the document is larger "
                                                     "than 67108864 bytes (limit maxBytes)"));
        QCOMPARE(file.pos(), qint64(0));
        QVERIFY2(ms <= refusalBudgetMs(), qPrintable(QStringLiteral("%1 ms").arg(ms)));
        file.close();
        file.remove();
    }

    void devices()
    {
        QBuffer closed;
        XmlReadResult result = XmlDocumentReader().readCommand(&closed);
        QCOMPARE(result.error.kind, XmlReadError::Device);
        QCOMPARE(result.error.text(), QStringLiteral("the device is not open for reading"));
        result = XmlDocumentReader().read(QStringLiteral("XmlNoSuchType"), QByteArray("<a/>"));
        QCOMPARE(result.error.kind, XmlReadError::UnknownClass);
        QVERIFY(!result.root);

        // A device is read from where it stands.
        QByteArray data("junk<Command/>");
        QBuffer buffer(&data);
        buffer.open(QIODevice::ReadOnly);
        buffer.seek(4);
        result = XmlDocumentReader().readCommand(&buffer);
        QVERIFY2(result.error.isNull(), qPrintable(result.error.text()));
        QVERIFY(result.rootAs<XmlCmdRoot>());
        QCOMPARE(result.rootName, QStringLiteral("Command"));
    }

    // A fault of an element class comes through as the class raised it, and
    // the root keeps what it had read; after the root only whitespace,
    // comments and processing instructions may follow.
    void elementFaultsAndTheEnd()
    {
        const XmlDocumentReader reader;
        XmlReadResult result =
            reader.read(QStringLiteral("XmlFreqType"),
                        QByteArray("<?xml version='1.0'?>\n<F unit=\"Hz\"><x/></F>"));
        QCOMPARE(result.error.kind, XmlReadError::Element);
        QCOMPARE(result.error.text(),
                 KelXmlTest::located(QStringLiteral("XmlFreqType"), 2, 17,
                                     QStringLiteral("Unexpected token \"StartElement\"")));
        QVERIFY(result.root);

        result = reader.read(QStringLiteral("XmlFreqType"),
                             QByteArray("<?xml version='1.0'?>\n<!--c--><F unit=\"Hz\">5</F>\n"
                                        "<!-- end --><?done?>\n\n"));
        QVERIFY2(result.error.isNull(), qPrintable(result.error.text()));
        QCOMPARE(result.rootName, QStringLiteral("F"));
        QCOMPARE(KelXmlTest::write(*result.root, QStringLiteral("F")),
                 QStringLiteral("<F version=\"1.0\" unit=\"Hz\">5.000000</F>"));
    }

    // Every sample reads through the entry point as through processXml: the
    // same object, written the same, and the same fault.
    void samplesReadAsWithProcessXml()
    {
        const QDir examples(QStringLiteral(KELXML_EXAMPLES));
        int compared = 0;
        for (const QString& className : examples.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            const QDir dir(examples.filePath(className));
            for (const QString& name : dir.entryList({QStringLiteral("*.xml")})) {
                QFile file(dir.filePath(name));
                QVERIFY(file.open(QIODevice::ReadOnly));
                const QByteArray document = file.readAll();

                auto bare = XmlElementRegistry::create(className);
                QXmlStreamReader stream(document);
                stream.readNextStartElement();
                const QString rootName = stream.name().toString();
                bare->processXml(stream, rootName);

                const XmlReadResult result = XmlDocumentReader().read(className, document);
                const QString where = className + QLatin1Char('/') + name;
                QVERIFY2(result.root, qPrintable(where + result.error.text()));
                QCOMPARE(result.rootName, rootName);
                QCOMPARE(KelXmlTest::write(*result.root, rootName),
                         KelXmlTest::write(*bare, rootName));
                if (stream.hasError()) {
                    QCOMPARE(result.error.message, stream.errorString());
                } else {
                    QVERIFY2(result.error.isNull(), qPrintable(where + result.error.text()));
                    QCOMPARE(result.root->isValid(), bare->isValid());
                }
                ++compared;
            }
        }
        QVERIFY(compared > 50);
    }

    // The scan costs little beside the reading itself: measured on a
    // command message of several megabytes.
    void costOfTheScan()
    {
        QFile sample(QStringLiteral(KELXML_EXAMPLES "/XmlCmdRoot/valid-create-station.xml"));
        QVERIFY(sample.open(QIODevice::ReadOnly));
        const QByteArray text = sample.readAll();
        const int from = text.indexOf("<Create>");
        const int to = text.indexOf("</Create>") + 9;
        const QByteArray document =
            "<Command>" + text.mid(from, to - from).repeated(2000) + "</Command>";
        QVERIFY(document.size() > 2 * MiB);

        const auto bare = [&document]() {
            XmlCmdRoot root;
            QXmlStreamReader stream(document);
            stream.readNextStartElement();
            root.processXml(stream, stream.name().toString());
            return !stream.hasError() && root.getCreateCmds().size() == 2000;
        };
        const auto entry = [&document]() {
            const XmlReadResult result = XmlDocumentReader().readCommand(document);
            return result.error.isNull() &&
                   result.rootAs<XmlCmdRoot>()->getCreateCmds().size() == 2000;
        };
        // Processor time, not wall time: the machine may be shared.
        const auto cpuNs = []() { return qint64(std::clock()) * (1000000000 / CLOCKS_PER_SEC); };
        // The fastest of several runs each, the two alternating, so that a busy
        // moment of the machine does not fall on one side only.
        qint64 scanNs = std::numeric_limits<qint64>::max();
        qint64 bareNs = scanNs;
        qint64 entryNs = scanNs;
        const auto time = [&cpuNs](const std::function<bool()>& work, qint64& fastest) {
            const qint64 start = cpuNs();
            if (!work())
                fastest = -1;
            else if (fastest >= 0)
                fastest = std::min(fastest, cpuNs() - start);
        };
        for (int i = instrumented() ? 6 : 0; i < 7; ++i) {
            time([&document]() { return XmlDocumentReader().scan(document).isNull(); }, scanNs);
            time(bare, bareNs);
            time(entry, entryNs);
        }
        QVERIFY(scanNs > 0 && bareNs > 0 && entryNs > 0);
        qInfo("%d bytes: processXml %lld us, entry point %lld us (%+.1f%%), scan alone %lld us",
              int(document.size()), bareNs / 1000, entryNs / 1000,
              100.0 * double(entryNs - bareNs) / double(bareNs), scanNs / 1000);
        if (instrumented())
            return;
        // Looser than what it measures (about 2 per cent), to stay clear of noise.
        QVERIFY(entryNs < bareNs * 12 / 10);
        QVERIFY(scanNs < bareNs / 10);
    }
};

QTEST_GUILESS_MAIN(TestXmlDocumentReader)
#include "tst_xmldocumentreader.moc"
