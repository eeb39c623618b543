// The document entry point: hostile inputs are refused early, located and
// named after the limit that refused them; valid documents read exactly as
// with processXml. Refusing early is bounded by the bytes taken from the
// device, never by a clock: the scan stops the stream at the block that holds
// the first fault.

#include "KelXmlTest.h"

#include <XmlCmdRoot.h>
#include <XmlDocumentReader.h>
#include <XmlElementRegistry.h>
#include <XmlScanDevice.h>

#include <QBuffer>
#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <cstring>

using namespace KelXml;

Q_DECLARE_METATYPE(KelXml::XmlReadError::Kind)

namespace {

const qint64 MiB = 1024 * 1024;
// What the scan takes from a stream before it hands any of it on.
const qint64 block = XmlScanDevice::defaultBlockSize;

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

// How a document is refused: the kind, limit and place of its first fault.
struct Refusal
{
    XmlReadError::Kind kind;
    QString limit;
    qint64 line;
    qint64 column;
};

// A row of refused(): the document is refused alike from a byte array, a
// file-like device and a stream, unless fromStream says otherwise, and at
// most `taken` bytes (all of it by default) are taken from the stream.
void add(const char* name, const QByteArray& document, bool small, const Refusal& refusal,
         const Refusal& fromStream, qint64 taken = -1)
{
    QTest::newRow(name) << document << small << refusal << fromStream
                        << (taken < 0 ? qint64(document.size()) : taken);
}

void add(const char* name, const QByteArray& document, bool small, const Refusal& refusal,
         qint64 taken = -1)
{
    add(name, document, small, refusal, refusal, taken);
}

// A command message of `creates` create commands, several megabytes for 2000.
QByteArray largeCommand(int creates)
{
    QFile sample(QStringLiteral(KELXML_EXAMPLES "/XmlCmdRoot/valid-create-station.xml"));
    if (!sample.open(QIODevice::ReadOnly))
        return QByteArray();
    const QByteArray text = sample.readAll();
    const int from = text.indexOf("<Create>");
    const int to = text.indexOf("</Create>") + 9;
    return "<Command>" + text.mid(from, to - from).repeated(creates) + "</Command>";
}

QString written(const XmlReadResult& result)
{
    return result.root ? KelXmlTest::write(*result.root, result.rootName) : QString();
}

} // namespace

Q_DECLARE_METATYPE(Refusal)

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
        QTest::addColumn<Refusal>("refusal");
        QTest::addColumn<Refusal>("fromStream");
        QTest::addColumn<qint64>("taken"); // at most, from the stream

        const QByteArray a33 = attributes(33);
        add("33 attributes", a33, false,
            {XmlReadError::AttributesLimit, QStringLiteral("maxAttributes"), qint64(1),
             columnOf(a33, "a32=")});
        const QByteArray a320 = attributes(320);
        add("320 attributes", a320, false,
            {XmlReadError::AttributesLimit, QStringLiteral("maxAttributes"), qint64(1),
             columnOf(a320, "a32=")});
        const QByteArray a40000 = attributes(40000);
        add("40000 attributes", a40000, false,
            {XmlReadError::AttributesLimit, QStringLiteral("maxAttributes"), qint64(1),
             columnOf(a40000, "a32=")},
            block);
        // Quotes hide '>' and the other kind of quote; the fourth value counts.
        const QByteArray quoted("<a b=\">\" c='>\"' d=\"'\" e=\"x\"/>");
        add("quoted > and quotes", quoted, true,
            {XmlReadError::AttributesLimit, QStringLiteral("maxAttributes"), qint64(1),
             columnOf(quoted, "e=")});

        add("depth 65", nested(65), false,
            {XmlReadError::DepthLimit, QStringLiteral("maxDepth"), qint64(1), qint64(3 * 64 + 1)});
        add("depth 640", nested(640), false,
            {XmlReadError::DepthLimit, QStringLiteral("maxDepth"), qint64(1), qint64(3 * 64 + 1)});
        add("depth 1000000", QByteArray("<a>").repeated(1000000), false,
            {XmlReadError::DepthLimit, QStringLiteral("maxDepth"), qint64(1), qint64(3 * 64 + 1)},
            block);
        add("depth after empty tags", QByteArray("<a>\n<b/><b x='/'/><c></c>\n<b><c><d><e>"), true,
            {XmlReadError::DepthLimit, QStringLiteral("maxDepth"), qint64(3), qint64(10)});

        add("text 11", textNode(11), true,
            {XmlReadError::ValueLengthLimit, QStringLiteral("maxValueLength"), qint64(1),
             qint64(4)});
        add("attribute value 11", QByteArray("<a\nb=\"12345678901\"/>"), true,
            {XmlReadError::ValueLengthLimit, QStringLiteral("maxValueLength"), qint64(2),
             qint64(4)});
        add("name 11", QByteArray("<abcdefghijk/>"), true,
            {XmlReadError::ValueLengthLimit, QStringLiteral("maxValueLength"), qint64(1),
             qint64(2)});
        add("comment 11", QByteArray("<a><!--12345678901--></a>"), true,
            {XmlReadError::ValueLengthLimit, QStringLiteral("maxValueLength"), qint64(1),
             qint64(8)});
        add("CDATA 11", QByteArray("<a><![CDATA[12345678901]]></a>"), true,
            {XmlReadError::ValueLengthLimit, QStringLiteral("maxValueLength"), qint64(1),
             qint64(13)});
        add("processing instruction 11", QByteArray("<a/><?pi 345678901?>"), true,
            {XmlReadError::ValueLengthLimit, QStringLiteral("maxValueLength"), qint64(1),
             qint64(7)});

        // A stream's size is known once it has passed the limit: a run too
        // long is met before that.
        const Refusal tooLong{XmlReadError::ValueLengthLimit, QStringLiteral("maxValueLength"), 1,
                              1};
        // A character of several bytes that crosses the limit ends the run there.
        add("text 11 with é", QByteArray("<a>1234567890\xC3\xA9\x80</a>"), true,
            {XmlReadError::ValueLengthLimit, QStringLiteral("maxValueLength"), qint64(1),
             qint64(4)});
        add("name 11 with é", QByteArray("<abcdefghij\xC3\xA9\x80/>"), true,
            {XmlReadError::ValueLengthLimit, QStringLiteral("maxValueLength"), qint64(1),
             qint64(2)});
        add("value 11 with é", QByteArray("<a b='1234567890\xC3\xA9\x80'/>"), true,
            {XmlReadError::ValueLengthLimit, QStringLiteral("maxValueLength"), qint64(1),
             qint64(7)});
        add("name 11 with é at the end", QByteArray("<abcdefghij\xC3\xA9"), true,
            {XmlReadError::ValueLengthLimit, QStringLiteral("maxValueLength"), qint64(1),
             qint64(2)});

        add("size 1001", QByteArray(1001, ' '), true,
            {XmlReadError::SizeLimit, QStringLiteral("maxBytes"), qint64(1), qint64(1)}, tooLong);
        add("size 1001 of markup", QByteArray("<a>") + QByteArray("<b/>").repeated(248) + "  </a>",
            true, {XmlReadError::SizeLimit, QStringLiteral("maxBytes"), qint64(1), qint64(1)});
        add("200 MB text node", textNode(200 * MiB), false,
            {XmlReadError::SizeLimit, QStringLiteral("maxBytes"), qint64(1), qint64(1)},
            {XmlReadError::ValueLengthLimit, QStringLiteral("maxValueLength"), 1, 4},
            16 * MiB + block);

        add("billion laughs", billionLaughs(), false,
            {XmlReadError::Dtd, QString(), qint64(2), qint64(1)});
        add("quadratic entity", quadraticEntity(), false,
            {XmlReadError::Dtd, QString(), qint64(1), qint64(1)}, block);
        add("DTD after root", QByteArray("<a/>\r\n<!DOCTYPE a>"), false,
            {XmlReadError::Dtd, QString(), qint64(2), qint64(1)});

        // Columns count characters: é, € and the clef take 2, 3 and 4 bytes.
        add("NUL in text", QByteArray("<a>\xC3\xA9\xE2\x82\xAC\xF0\x9D\x84\x9E\0</a>", 17), false,
            {XmlReadError::Encoding, QString(), qint64(1), qint64(7)});
        add("NUL in value", QByteArray("<a b=\"\0\"/>", 10), false,
            {XmlReadError::Encoding, QString(), qint64(1), qint64(7)});
        add("NUL in comment", QByteArray("<a/><!--\0-->", 12), false,
            {XmlReadError::Encoding, QString(), qint64(1), qint64(9)});
        add("lone continuation byte", QByteArray("<a>\x80</a>"), false,
            {XmlReadError::Encoding, QString(), qint64(1), qint64(4)});
        add("overlong slash", QByteArray("<a b='\xC0\xAF'/>"), false,
            {XmlReadError::Encoding, QString(), qint64(1), qint64(7)});
        add("overlong three bytes", QByteArray("<a>\xE0\x80\xAF</a>"), false,
            {XmlReadError::Encoding, QString(), qint64(1), qint64(4)});
        add("surrogate", QByteArray("<a>\n\xED\xA0\x80</a>"), false,
            {XmlReadError::Encoding, QString(), qint64(2), qint64(1)});
        add("above U+10FFFF", QByteArray("<a>\xF4\x90\x80\x80</a>"), false,
            {XmlReadError::Encoding, QString(), qint64(1), qint64(4)});
        // Lines end at "\n", "\r\n" and a lone "\r", which may end a block.
        add("after lone CRs", "<a>" + QByteArray("\xC3\xA9\r").repeated(5) + "\x80</a>", false,
            {XmlReadError::Encoding, QString(), qint64(6), qint64(1)});
        add("after CRLFs", "<a>" + QByteArray("\xC3\xA9\r\n").repeated(5) + "x\x80</a>", false,
            {XmlReadError::Encoding, QString(), qint64(6), qint64(2)});
        add("cut sequence at end", QByteArray("<a/>\xE2\x82"), false,
            {XmlReadError::Encoding, QString(), qint64(1), qint64(5)});
        add("Latin-1 declared",
            QByteArray("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xE9</a>"), false,
            {XmlReadError::Encoding, QString(), qint64(1), qint64(31)});
        add("UTF-16 byte order mark", QByteArray("\xFF\xFE<\0a\0/\0>\0", 10), false,
            {XmlReadError::Encoding, QString(), qint64(1), qint64(1)});

        // The XML reader's own faults: a truncated document is located at its end.
        add("truncated", QByteArray("<Command>\n<!-- x -->"), false,
            {XmlReadError::NotWellFormed, QString(), qint64(2), qint64(11)});
        add("truncated start tag", QByteArray("<a"), false,
            {XmlReadError::NotWellFormed, QString(), qint64(1), qint64(3)});
        add("element after root", QByteArray("<a/> <b/>"), false,
            {XmlReadError::TrailingContent, QString(), qint64(1), qint64(9)});
        add("text after root", QByteArray("<a/>\nx"), false,
            {XmlReadError::TrailingContent, QString(), qint64(2), qint64(1)});
        add("no element", QByteArray("<!-- only -->\n"), false,
            {XmlReadError::NotWellFormed, QString(), qint64(2), qint64(1)});
    }
    void refused()
    {
        QFETCH(QByteArray, document);
        QFETCH(bool, small);
        QFETCH(Refusal, refusal);
        QFETCH(Refusal, fromStream);
        QFETCH(qint64, taken);

        const XmlDocumentReader reader(small ? smallLimits() : XmlReadLimits());
        const auto verify = [](const XmlReadResult& result, const Refusal& expected,
                               const char* how) {
            const QString what =
                QStringLiteral("%1: %2").arg(QLatin1String(how), result.error.text());
            QVERIFY2(result.error.kind == expected.kind, qPrintable(what));
            QCOMPARE(result.error.limit, expected.limit);
            QCOMPARE(result.error.line, expected.line);
            QCOMPARE(result.error.column, expected.column);
            if (!expected.limit.isEmpty()) {
                QVERIFY2(
                    result.error.text().endsWith(QStringLiteral("(limit %1)").arg(expected.limit)),
                    qPrintable(what));
            }
            // Refused by the scan: no root, though the reader may have begun it.
            if (expected.kind != XmlReadError::NotWellFormed &&
                expected.kind != XmlReadError::TrailingContent)
                QVERIFY(!result.root);
        };

        verify(reader.read(QStringLiteral("command"), document), refusal, "bytes");

        QBuffer buffer(&document);
        buffer.open(QIODevice::ReadOnly);
        verify(reader.read(QStringLiteral("command"), &buffer), refusal, "device");

        // A stream is read only as far as the block that holds the fault.
        KelXmlTest::Stream stream(document);
        verify(reader.read(QStringLiteral("command"), &stream), fromStream, "stream");
        QVERIFY2(stream.taken() <= taken,
                 qPrintable(QStringLiteral("%1 bytes taken").arg(stream.taken())));
    }

    // The scan carries its state from block to block: cut anywhere, and
    // taken from a stream in pieces of any size, each document is refused
    // as when scanned whole.
    void everyBlockBoundary_data() { refused_data(); }
    void everyBlockBoundary()
    {
        QFETCH(QByteArray, document);
        QFETCH(bool, small);
        if (document.size() > 4096)
            QSKIP("the small documents cover the boundaries");
        const XmlReadLimits limits = small ? smallLimits() : XmlReadLimits();
        const XmlReadError whole = XmlDocumentReader(limits).scan(document);
        for (int size = 1; size <= 16; ++size) {
            XmlScanDevice cut(document, limits, size);
            cut.scanToEnd();
            QCOMPARE(cut.fault().text(), whole.text());
            QCOMPARE(cut.fault().kind, whole.kind);
        }
        if (whole.kind == XmlReadError::SizeLimit)
            return; // a stream's size is known later: refused()
        for (int piece = 1; piece <= 3; ++piece) {
            for (int size = 1; size <= 9; size += 4) {
                KelXmlTest::Stream source(document, KelXmlTest::Stream::Ends, piece);
                XmlScanDevice cut(&source, limits, size);
                cut.scanToEnd();
                QCOMPARE(cut.fault().text(), whole.text());
            }
        }
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
    // is refused after taking from a stream no more than the limit allows.
    void changedLimits()
    {
        XmlReadLimits limits;
        limits.maxBytes = 256 * MiB;
        const XmlDocumentReader reader(limits);
        const QByteArray document = textNode(160 * MiB);
        const QString refusal = QStringLiteral("line 1, column 4: a text, value, name or comment "
                                               "longer than 16777216 bytes (limit maxValueLength)");
        const XmlReadError error = reader.scan(document);
        QCOMPARE(error.kind, XmlReadError::ValueLengthLimit);
        QCOMPARE(error.text(), refusal);
        KelXmlTest::Stream stream(document);
        const XmlReadResult result = reader.readCommand(&stream);
        QCOMPARE(result.error.text(), refusal);
        QVERIFY2(stream.taken() <= 16 * MiB + block, qPrintable(QString::number(stream.taken())));

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
        const XmlReadResult result = XmlDocumentReader().readCommand(&file);
        QCOMPARE(result.error.text(), QStringLiteral("line 1, column 1: the document is larger "
                                                     "than 67108864 bytes (limit maxBytes)"));
        QCOMPARE(file.pos(), qint64(0)); // nothing was read
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

    // A document of many blocks reads from bytes, a file-like device and a
    // stream exactly as processXml reads it, and the device between the
    // source and Qt holds a block, not the document.
    void largeDocumentsReadAsWithProcessXml()
    {
        const QByteArray document = largeCommand(2000);
        QVERIFY(document.size() > 2 * MiB);
        XmlCmdRoot bare;
        QXmlStreamReader stream(document);
        stream.readNextStartElement();
        bare.processXml(stream, stream.name().toString());
        QVERIFY(!stream.hasError());
        const QString expected = KelXmlTest::write(bare, QStringLiteral("Command"));

        const XmlDocumentReader reader;
        XmlReadResult result = reader.readCommand(document);
        QVERIFY2(result.error.isNull(), qPrintable(result.error.text()));
        QCOMPARE(written(result), expected);
        QByteArray copy(document);
        QBuffer buffer(&copy);
        buffer.open(QIODevice::ReadOnly);
        result = reader.readCommand(&buffer);
        QCOMPARE(written(result), expected);
        KelXmlTest::Stream slow(document, KelXmlTest::Stream::Ends, 1000);
        result = reader.readCommand(&slow);
        QCOMPARE(written(result), expected);

        KelXmlTest::Stream source(document);
        XmlScanDevice device(&source, XmlReadLimits());
        QXmlStreamReader qt(&device);
        while (!qt.atEnd())
            qt.readNext();
        QVERIFY(!qt.hasError() && device.finished());
        QCOMPARE(device.taken(), qint64(document.size()));
        QVERIFY2(device.largestHeld() <= block + 16,
                 qPrintable(QString::number(device.largestHeld())));
        XmlScanDevice fromArray(document, XmlReadLimits());
        QXmlStreamReader qtOnArray(&fromArray);
        while (!qtOnArray.atEnd())
            qtOnArray.readNext();
        QVERIFY(fromArray.finished());
        QCOMPARE(fromArray.largestHeld(), qint64(0)); // hands on the array's own bytes
    }

    // A fault deep in a large document is found when the stream reaches it,
    // located as in the whole document, lines counted over every kind of line
    // end and columns over multi-byte characters; the stream is not read
    // past the block that holds it, and the root read before it is let go.
    void lateFaults_data()
    {
        QTest::addColumn<QByteArray>("lineEnd");
        QTest::addColumn<QByteArray>("fault");
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("offset"); // of the fault in its bytes
        QTest::newRow("LF, NUL") << QByteArray("\n") << QByteArray("<x>\0</x>", 9)
                                 << int(XmlReadError::Encoding) << 3;
        QTest::newRow("CRLF, DTD")
            << QByteArray("\r\n") << QByteArray("<!DOCTYPE x>") << int(XmlReadError::Dtd) << 0;
        QTest::newRow("CR, depth") << QByteArray("\r") << QByteArray("<b>").repeated(70)
                                   << int(XmlReadError::DepthLimit) << 63 * 3;
        const QByteArray many = attributes(40);
        QTest::newRow("CRLF, attributes")
            << QByteArray("\r\n") << many << int(XmlReadError::AttributesLimit)
            << int(many.indexOf("a32="));
    }
    void lateFaults()
    {
        QFETCH(QByteArray, lineEnd);
        QFETCH(QByteArray, fault);
        QFETCH(int, kind);
        QFETCH(int, offset);
        // 300 KB of valid content with 'é' and '€' on every line, then the
        // fault, then a megabyte more.
        QByteArray document("<Command>");
        const QByteArray comment = "<!-- \xC3\xA9t\xC3\xA9 \xE2\x82\xAC -->" + lineEnd;
        while (document.size() < 300 * 1000)
            document += comment;
        const int at = document.size();
        document += fault + QByteArray(MiB, ' ') + "</Command>";

        const XmlReadError whole = XmlDocumentReader().scan(document);
        QCOMPARE(int(whole.kind), kind);
        // Lines and columns counted here byte by byte, as the format counts them.
        qint64 line = 1;
        qint64 column = 1;
        for (int i = 0; i < at + offset; ++i) {
            const char c = document[i];
            if (c == '\n' || (c == '\r' && document[i + 1] != '\n')) {
                ++line;
                column = 1;
            } else if ((c & 0xC0) != 0x80) {
                ++column;
            }
        }
        QCOMPARE(whole.line, line);
        QCOMPARE(whole.column, column);
        for (const qint64 piece : {qint64(7), qint64(1) << 20}) {
            KelXmlTest::Stream stream(document, KelXmlTest::Stream::Ends, piece);
            const XmlReadResult result = XmlDocumentReader().readCommand(&stream);
            QCOMPARE(result.error.text(), whole.text());
            QVERIFY(!result.root);
            QVERIFY2(stream.pos() <= at + fault.size() + 2 * block,
                     qPrintable(QString::number(stream.pos())));
        }
    }

    // A document that ends too early is located at its end, after many blocks.
    void truncatedLargeDocument()
    {
        QByteArray document = largeCommand(300);
        document.chop(document.size() - document.lastIndexOf("</Name>"));
        const qint64 lines = document.count('\n') + 1;
        const qint64 column = document.size() - document.lastIndexOf('\n');
        for (const qint64 piece : {qint64(5), qint64(1) << 20}) {
            KelXmlTest::Stream stream(document, KelXmlTest::Stream::Ends, piece);
            const XmlReadResult result = XmlDocumentReader().readCommand(&stream);
            QCOMPARE(result.error.kind, XmlReadError::NotWellFormed);
            QCOMPARE(result.error.line, lines);
            QCOMPARE(result.error.column, column);
            QVERIFY(result.root); // the reader's fault: the root keeps what it read
        }
    }

    // A stream beyond maxBytes is refused once it has passed the limit, when
    // nothing before refused it: one byte more than the limit is taken.
    void streamBeyondTheSizeLimit()
    {
        XmlReadLimits limits;
        limits.maxBytes = 100 * 1000;
        const QByteArray document =
            "<Command>" + QByteArray("<!-- padding -->\n").repeated(10000) + "</Command>";
        KelXmlTest::Stream stream(document);
        const XmlReadResult result =
            XmlDocumentReader(limits).read(QStringLiteral("command"), &stream);
        QCOMPARE(result.error.text(), QStringLiteral("line 1, column 1: the document is larger "
                                                     "than 100000 bytes (limit maxBytes)"));
        QCOMPARE(stream.taken(), limits.maxBytes + 1);
        QVERIFY(!result.root);
    }
};

QTEST_GUILESS_MAIN(TestXmlDocumentReader)
#include "tst_xmldocumentreader.moc"
