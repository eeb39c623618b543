// The walk over an element tree shows exactly what the tree writes, typed;
// equality of trees is built on it.

#include "KelXmlTest.h"

#include <XmlDocumentReader.h>
#include <XmlElementBase.h>
#include <XmlElementRegistry.h>
#include <XmlFieldstrengthType.h>
#include <XmlFreqType.h>
#include <XmlWalk.h>
#include <responses/XmlAutoRespType.h>
#include <scenario/XmlAreaPolyType.h>
#include <scenario/XmlKelBtType.h>

#include <QDir>
#include <QFile>
#include <QTimeZone>

#include <cmath>
#include <limits>
#include <memory>

using namespace KelXml;

namespace {

// The walk as lines: "<Name a=v>", "=text [unit]", "</Name>".
class Lines : public XmlWalker
{
public:
    QStringList lines;
    QList<XmlValue> values;
    QStringList classes;

    void enter(const QString& elementName, const QString& className,
               const XmlElementBase* element) override
    {
        QCOMPARE(element != nullptr, !className.isNull());
        flush();
        m_open = QLatin1Char('<') + elementName;
        classes << className;
    }
    void attribute(const QString& name, const XmlValue& value) override
    {
        QVERIFY(!m_open.isEmpty());
        m_open += QLatin1Char(' ') + name + QLatin1Char('=') + value.text();
    }
    void value(const XmlValue& value) override
    {
        flush();
        if (!value.text().isEmpty())
            lines << QLatin1Char('=') + value.text();
        values << value;
    }
    void leave() override
    {
        flush();
        lines << QStringLiteral("</>");
    }

private:
    void flush()
    {
        if (!m_open.isEmpty())
            lines << m_open + QLatin1Char('>');
        m_open.clear();
    }
    QString m_open;
};

// The same lines from the written XML.
QStringList linesOfXml(const QString& xml)
{
    QStringList lines;
    QXmlStreamReader reader(xml);
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement()) {
            QString line = QLatin1Char('<') + reader.name().toString();
            for (const QXmlStreamAttribute& attribute : reader.attributes())
                line += QLatin1Char(' ') + attribute.name().toString() + QLatin1Char('=') +
                        attribute.value().toString();
            lines << line + QLatin1Char('>');
        } else if (reader.isCharacters() && !reader.isWhitespace()) {
            lines << QLatin1Char('=') + reader.text().toString();
        } else if (reader.isEndElement()) {
            lines << QStringLiteral("</>");
        }
    }
    // A few classes write names their own reader refuses (with spaces): the
    // lines end where the reader stopped, the last one perhaps cut short.
    if (reader.hasError() && !lines.isEmpty())
        lines.removeLast();
    return lines;
}

struct Sample
{
    QString className;
    QString path;
};

// Every sample that reads, by the class of its folder.
QList<Sample> readableSamples()
{
    QList<Sample> samples;
    const QDir examples(QStringLiteral(KELXML_EXAMPLES));
    for (const QString& folder : examples.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (XmlElementRegistry::resolve(folder).isEmpty())
            continue;
        const QDir dir(examples.filePath(folder));
        for (const QString& file : dir.entryList({QStringLiteral("*.xml")}, QDir::Files)) {
            if (!file.startsWith(QLatin1String("unreadable")))
                samples.append({folder, dir.filePath(file)});
        }
    }
    return samples;
}

// The columns className and path, a row per readable sample.
void addSampleRows()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QString>("path");
    for (const Sample& sample : readableSamples())
        QTest::newRow(qPrintable(sample.path.section(QLatin1Char('/'), -2)))
            << sample.className << sample.path;
}

XmlReadResult readFile(const QString& className, const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return XmlDocumentReader().read(className, file.readAll());
}

XmlReadResult readBytes(const QString& className, const QByteArray& bytes)
{
    return XmlDocumentReader().read(className, bytes);
}

QByteArray bytesOf(const IXmlElement& element, const QString& name)
{
    QByteArray bytes;
    QXmlStreamWriter writer(&bytes);
    writer.setAutoFormatting(true);
    writer.writeStartDocument();
    element.produceXml(writer, name);
    writer.writeEndDocument();
    return bytes;
}

const XmlElementBase& base(const IXmlElement& element)
{
    return dynamic_cast<const XmlElementBase&>(element);
}

} // namespace

class TestXmlWalk : public QObject
{
    Q_OBJECT

private slots:
    void walkShowsWhatIsWritten_data();
    void walkShowsWhatIsWritten();
    void typedValues();
    void stopsWhenTheWalkerWantsNoMore();

    void equalityOverSamples_data();
    void equalityOverSamples();
    void nanEqualsNan();
    void signedZerosDiffer();
    void dateTimesNeedTheSameWriting();
    void classAndVersionCount();
};

void TestXmlWalk::walkShowsWhatIsWritten_data()
{
    addSampleRows();
    for (const XmlElementRegistry::Entry& entry : XmlElementRegistry::entries())
        QTest::newRow(qPrintable(entry.className + QStringLiteral(" default")))
            << entry.className << QString();
}

// Element names, attributes and texts in writing order, for a default object
// of every class and for every sample: the walk and the written XML agree.
void TestXmlWalk::walkShowsWhatIsWritten()
{
    QFETCH(QString, className);
    QFETCH(QString, path);
    std::unique_ptr<IXmlElement> element;
    if (path.isEmpty()) {
        element = XmlElementRegistry::create(className);
    } else {
        XmlReadResult result = readFile(className, path);
        QVERIFY2(!result.error, qPrintable(result.error.text()));
        element = std::move(result.root);
    }
    QVERIFY(element);
    const QString name = QStringLiteral("Root");
    Lines walk;
    base(*element).walk(walk, name);
    const QString written = KelXmlTest::write(*element, name);
    const QStringList lines = linesOfXml(written);
    if (QXmlStreamReader(written).hasError() || lines.size() < walk.lines.size())
        QCOMPARE(walk.lines.mid(0, lines.size()), lines);
    else
        QCOMPARE(walk.lines, lines);
    QCOMPARE(walk.classes.first(), XmlElementRegistry::resolve(className));
}

void TestXmlWalk::typedValues()
{
    XmlFreqType frequency;
    QCOMPARE(KelXmlTest::read(frequency, QStringLiteral(R"(<F version="1.0" unit="kHz">1500</F>)")),
             QString());
    Lines walk;
    frequency.walk(walk, QStringLiteral("F"));
    QCOMPARE(walk.values.size(), 1);
    const XmlValue value = walk.values.first();
    QCOMPARE(value.type(), XmlValue::Number);
    QCOMPARE(value.unit(), QStringLiteral("kHz"));
    // The value held (MHz) and the text written (in the unit read).
    QCOMPARE(value.toDouble(), frequency.frequency_MHz());
    QCOMPARE(walk.lines.at(1), QLatin1Char('=') + value.text());
    QCOMPARE(walk.lines.first(), QStringLiteral("<F version=1.0 unit=kHz>"));

    XmlAutoRespType response;
    response.setStatus(XmlAutoRespType::Ack);
    const QDateTime when(QDate(2021, 3, 4), QTime(5, 6, 7), Qt::UTC);
    response.setEstimatedTime(when);
    Lines responseWalk;
    response.walk(responseWalk, QStringLiteral("Automatic"));
    const XmlValue& status = responseWalk.values.size() ? responseWalk.values.last() : XmlValue();
    QCOMPARE(status.type(), XmlValue::DateTime);
    QCOMPARE(status.toDateTime(), when);
    QCOMPARE(status.text(), QStringLiteral("2021-03-04T05:06:07Z"));
    QVERIFY(status.unit().isNull());
}

void TestXmlWalk::stopsWhenTheWalkerWantsNoMore()
{
    // A walker that wants only the first element gets no child, and every
    // element it entered is left.
    struct First : XmlWalker
    {
        int entered = 0;
        int left = 0;
        void enter(const QString&, const QString&, const XmlElementBase*) override { ++entered; }
        void attribute(const QString&, const XmlValue&) override {}
        void value(const XmlValue&) override {}
        void leave() override { ++left; }
        bool wantsMore() const override { return entered == 0; }
    } first;
    XmlReadResult result =
        readFile(QStringLiteral("scenario"),
                 QStringLiteral(KELXML_EXAMPLES "/XmlKelBtType/valid-harbour-network.xml"));
    QVERIFY(result.root);
    base(*result.root).walk(first, QStringLiteral("Scenario"));
    QCOMPARE(first.entered, 1);
    QCOMPARE(first.left, 1);
}

void TestXmlWalk::equalityOverSamples_data()
{
    addSampleRows();
}

// A tree equals its copy; equal trees write the same bytes; changing any one
// value of the written form changes the tree unless it writes the same bytes.
void TestXmlWalk::equalityOverSamples()
{
    QFETCH(QString, className);
    QFETCH(QString, path);
    const XmlReadResult read = readFile(className, path);
    QVERIFY(read.root);
    const std::unique_ptr<IXmlElement> copy = XmlElementRegistry::copy(className, *read.root);
    QVERIFY(copy);
    QVERIFY(base(*read.root) == base(*copy));
    QVERIFY(!(base(*read.root) != base(*copy)));
    QCOMPARE(bytesOf(*copy, read.rootName), bytesOf(*read.root, read.rootName));

    // Each text of the sample in turn, a digit added: where the tree then
    // writes other bytes it is unequal, and where it is equal it writes the
    // same bytes.
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray original = file.readAll();
    const QByteArray written = bytesOf(*read.root, read.rootName);
    int edits = 0;
    int changed = 0;
    int from = 0;
    while (edits < 40) {
        const int open = original.indexOf('>', from);
        const int close = open < 0 ? -1 : original.indexOf('<', open);
        if (close < 0)
            break;
        from = close;
        if (original.mid(open + 1, close - open - 1).trimmed().isEmpty())
            continue;
        QByteArray edited = original;
        edited.insert(close, '7');
        const XmlReadResult other = readBytes(className, edited);
        if (!other.root || other.error)
            continue;
        ++edits;
        const QString where = QString::fromUtf8(edited.mid(open, 40));
        const bool same = base(*read.root) == base(*other.root);
        const bool sameBytes = bytesOf(*other.root, read.rootName) == written;
        if (same)
            QVERIFY2(sameBytes, qPrintable(where));
        if (!sameBytes) {
            QVERIFY2(!same, qPrintable(where));
            ++changed;
        }
    }
    QVERIFY(edits == 0 || changed > 0 || !read.root->isValid());
}

void TestXmlWalk::nanEqualsNan()
{
    XmlFieldstrengthType a;
    QCOMPARE(KelXmlTest::read(a, QStringLiteral(R"(<T version="1.0" unit="dBm">nan</T>)")),
             QString());
    QVERIFY(std::isnan(a.fieldstrength()));
    const XmlFieldstrengthType copy(a);
    QVERIFY(a == copy);
    XmlFieldstrengthType other;
    KelXmlTest::read(other, QStringLiteral(R"(<T version="1.0" unit="dBm">-107</T>)"));
    QVERIFY(a != other);
}

void TestXmlWalk::signedZerosDiffer()
{
    XmlValue zero = XmlValue::number(0.0, QStringLiteral("0"));
    XmlValue minusZero = XmlValue::number(-0.0, QStringLiteral("-0"));
    QVERIFY(zero != minusZero);
    QVERIFY(zero == XmlValue::number(0.0, QStringLiteral("0")));
    // The unit counts.
    QVERIFY(zero != zero.withUnit(QStringLiteral("dBm")));
    const double nan = std::numeric_limits<double>::quiet_NaN();
    QVERIFY(XmlValue::number(nan, QStringLiteral("nan")) ==
            XmlValue::number(-nan, QStringLiteral("nan")));
}

void TestXmlWalk::dateTimesNeedTheSameWriting()
{
    const QDateTime utc(QDate(2024, 5, 14), QTime(5, 6, 7), Qt::UTC);
    const QDateTime offset = utc.toOffsetFromUtc(2 * 3600);
    QCOMPARE(utc, offset); // the same instant ...
    // ... written otherwise: unequal.
    QVERIFY(XmlValue::dateTime(utc) != XmlValue::dateTime(offset));
    QVERIFY(XmlValue::dateTime(offset) == XmlValue::dateTime(utc.toOffsetFromUtc(7200)));
    QVERIFY(XmlValue::dateTime(QDateTime()) == XmlValue::dateTime(QDateTime()));
    QVERIFY(XmlValue::dateTime(QDateTime()) != XmlValue::dateTime(utc));

    XmlAutoRespType a;
    a.setEstimatedTime(utc);
    XmlAutoRespType b(a);
    QVERIFY(a == b);
    b.setEstimatedTime(offset);
    QVERIFY(a != b);
    QVERIFY(KelXmlTest::write(a, QStringLiteral("A")) != KelXmlTest::write(b, QStringLiteral("A")));
}

void TestXmlWalk::classAndVersionCount()
{
    XmlAreaPolyType polygon;
    XmlAreaPolyType other(polygon);
    QVERIFY(polygon == other);
    other.setVersion(QStringLiteral("2.0"));
    QVERIFY(polygon != other);
    // Another class with the same (empty) content is another tree.
    XmlFreqType frequency;
    XmlFieldstrengthType level;
    QVERIFY(XmlFreqType() == frequency);
    QVERIFY(static_cast<const XmlElementBase&>(frequency) != level);
    // The report is no content.
    XmlKelBtType scenario;
    const XmlKelBtType fresh;
    scenario.syntaxError();
    QVERIFY(scenario == fresh);
}

QTEST_GUILESS_MAIN(TestXmlWalk)
#include "tst_xmlwalk.moc"
