// The child tables of composite elements, the parameter tables and the
// enumeration texts, tested through small classes built on them the way the
// library's classes are.

#include "KelXmlTest.h"

#include <XmlComposite.h>
#include <XmlDecibelType.h>
#include <XmlElementReader.h>
#include <XmlEnumTexts.h>
#include <XmlFreqType.h>
#include <XmlLayout.h>
#include <XmlObjNameType.h>
#include <XmlParamSet.h>
#include <XmlParams.h>

#include <QDateTime>
#include <QtTest>

using namespace KelXml;
using KelXmlTest::block;

namespace {

// <S version="1.0">[<Note/>] <Name/> (<Low/>|<High/>) <Gain/>* [<Link/>]</S>:
// the note may stand before or after the name, the link anywhere once (then
// nothing else), and the element needs a gain when it has a high frequency.
class XmlSampleType : public XmlVersionedComposite
{
public:
    XmlSampleType()
        : XmlVersionedComposite(layout())
    {}

    static const XmlLayout& layout()
    {
        using S = XmlSampleType;
        static const XmlLayout layout =
            XmlLayout(
                "XmlSampleType", XmlElementReader::ElementWording, XmlLayout::CheckedVersion,
                {
                    XmlField::optional("Note", &S::note).refusedBy({"Note", "Low", "High", "Gain"}),
                    XmlField::object("Name", &S::name),
                    XmlField::oneOf(
                        {XmlField::optional("Low", &S::low), XmlField::optional("High", &S::high)},
                        "Neither Low nor High"),
                    XmlField::list("Gain", &S::gains),
                    XmlField::optional("Link", &S::link).anywhere().replaced().writtenAs("Linked"),
                })
                .completeWhen([](const XmlSeen& seen) {
                    return !seen.has(QStringLiteral("High")) || seen.has(QStringLiteral("Gain"));
                });
        return layout;
    }

    XmlOwnedPtr<XmlObjNameType> note;
    XmlObjNameType name;
    XmlOwnedPtr<XmlFreqType> low;
    XmlOwnedPtr<XmlFreqType> high;
    XmlOwnedList<XmlDecibelType> gains;
    XmlOwnedPtr<XmlObjNameType> link;
};

// Two fields: a repeatable number with its own fallback, and an enumeration
// written under the set's own name.
class XmlSampleSet : public XmlParamSet
{
public:
    XmlSampleSet()
        : XmlParamSet(table())
    {}
    static const XmlParamTable& table()
    {
        static const XmlParamTable table =
            XmlParamTable(
                "XmlSampleSet",
                {
                    XmlParam::number("Range", 5.0, 2, "Illegal range").fallback(7.0).repeated(),
                    XmlParam::choice("Mode", XmlEnumTexts::numbered({"Slow", "Fast"}), 0,
                                     "Illegal mode")
                        .writtenUnderSetName(),
                })
                .resetBeforeReading();
        return table;
    }
    using XmlParamSet::has;
    using XmlParamSet::set;
    using XmlParamSet::value;
    using XmlParamSet::within;
};

const XmlEnumTexts modes = XmlEnumTexts::numbered({"Slow", "Fast"});

// Attributes and converted texts:
// <V mode=".." final=".." count=".." at=".." unit=".."><Label/><Ratio/><Count/><Kind/><When/></V>,
// each text optional, in that order.
class XmlValuesType : public XmlComposite
{
public:
    XmlValuesType()
        : XmlComposite(layout())
    {}

    static const XmlLayout& layout()
    {
        using S = XmlValuesType;
        static const XmlLayout layout(
            "XmlValuesType", XmlElementReader::NamedWording, XmlLayout::NoVersion,
            {
                XmlAttribute::enumeration("mode", &S::mode, modes),
                XmlAttribute::boolean("final", &S::final),
                XmlAttribute::integer("count", &S::count),
                XmlAttribute::dateTime("at", &S::setAt, &S::at),
                XmlAttribute::text("unit", &S::unit, "No unit"),
                XmlField::text("Label", &S::label).notRequired(),
                XmlField::number("Ratio", &S::ratio, 'f', 2).notRequired(),
                XmlField::number("Number", &S::number, -1, "Illegal number").notRequired(),
                XmlField::enumeration("Kind", &S::kind, modes, "Illegal kind").notRequired(),
                XmlField::dateTime("When", &S::when, "Illegal when").notRequired(),
            });
        return layout;
    }
    void setAt(const QDateTime& time)
    {
        atSet = true;
        atValue = time;
    }
    const QDateTime& at() const { return atValue; }

    int mode = 0;
    bool final = true;
    int count = -5;
    bool atSet = false;
    QDateTime atValue;
    XmlText unit;
    QString label;
    double ratio = -1.0;
    int number = 0;
    int kind = 0;
    QDateTime when;
};

// The rows read in the element's own loop:
// <N>[<Skip>..</Skip>]* <Note>text</Note> [<Block><Size/>[<Tag/>]</Block>] (<None/> | <Item/>*)
// with any number of <Ping/> anywhere, each counted when it closes, and no
// number between the children.
class XmlNestedType : public XmlComposite
{
public:
    XmlNestedType()
        : XmlComposite(layout())
    {}

    static const XmlLayout& layout()
    {
        using S = XmlNestedType;
        static const XmlLayout layout =
            XmlLayout("XmlNestedType", XmlElementReader::NamedWording, XmlLayout::NoVersion,
                      {
                          XmlField::marker("Skip").anywhere().repeated(),
                          XmlField::wrapper("Ping", {})
                              .anywhere()
                              .repeated()
                              .notRequired()
                              .notWritten()
                              .afterRead(&S::ping),
                          XmlField::characters("Note", &S::takeNote, &S::giveNote),
                          XmlField::wrapper("Block",
                                            {XmlField::number("Size", &S::size, -1, "Illegal size"),
                                             XmlField::text("Tag", &S::tag).notRequired()})
                              .after({"Note"})
                              .notRequired()
                              .writtenWhen(&S::hasBlock),
                          XmlField::oneOf({XmlField::marker("None").writtenWhen(&S::none),
                                           XmlField::list("Item", &S::items)},
                                          "Neither None nor Item"),
                      })
                .onText(&S::stray);
        return layout;
    }
    // Only text marks the note as read.
    static bool takeNote(XmlNestedType& self, QStringView text)
    {
        self.note = text.toString();
        return !text.trimmed().isEmpty();
    }
    static QString giveNote(const XmlNestedType& self) { return self.note; }
    static void ping(XmlNestedType& self) { ++self.pings; }
    static void stray(XmlNestedType&, XmlElementReader& in, QStringView text)
    {
        if (text.trimmed() == QLatin1String("!"))
            in.fail(QStringLiteral("Stray text"));
    }
    bool hasBlock() const { return size >= 0; }
    bool none() const { return items.isEmpty(); }

    QString note;
    int size = -1;
    QString tag;
    XmlOwnedList<XmlObjNameType> items;
    int pings = 0;
};

const QString name = QStringLiteral("<Name>A</Name>");
const QString low = QStringLiteral("<Low version=\"1.0\" unit=\"MHz\">1</Low>");
const QString high = QStringLiteral("<High version=\"1.0\" unit=\"MHz\">2</High>");
const QString gain = QStringLiteral("<Gain version=\"1.0\" unit=\"dB\">3</Gain>");
const QString note = QStringLiteral("<Note>n</Note>");
const QString link = QStringLiteral("<Link>L</Link>");

QString sample(const QString& children, const QString& version = QStringLiteral("1.0"))
{
    return QStringLiteral("<S version=\"%1\">%2</S>").arg(version, children);
}

} // namespace

class TestXmlLayout : public QObject
{
    Q_OBJECT

private slots:
    void childRules_data()
    {
        QTest::addColumn<QString>("xml");
        QTest::addColumn<QString>("error");
        const QString end = QStringLiteral("Unexpected token \"EndElement\"");
        QTest::newRow("minimal") << sample(name + low) << QString();
        QTest::newRow("note before name") << sample(note + name + low) << QString();
        QTest::newRow("note after name") << sample(name + note + low) << QString();
        QTest::newRow("note after shape")
            << sample(name + low + note) << "Unexpected element \"Note\"";
        QTest::newRow("second shape") << sample(name + low + high) << "Unexpected element \"High\"";
        QTest::newRow("no shape") << sample(name) << end;
        QTest::newRow("gains repeat") << sample(name + low + gain + gain) << QString();
        QTest::newRow("completeness predicate") << sample(name + high) << end;
        QTest::newRow("link first") << sample(link + name + low) << "Unexpected element \"Name\"";
        QTest::newRow("link last") << sample(name + low + link) << QString();
        QTest::newRow("second link")
            << sample(name + low + link + link) << "Unexpected element \"Link\"";
        QTest::newRow("checked version")
            << sample(name + low, QStringLiteral("2.0")) << "Version not supported: 2.0";
    }
    void childRules()
    {
        QFETCH(QString, xml);
        QFETCH(QString, error);
        XmlSampleType element;
        const QString read = KelXmlTest::read(element, xml);
        if (error.isEmpty())
            QCOMPARE(read, QString());
        else
            QVERIFY2(read.startsWith(QLatin1String("in XmlSampleType (line 1, column ")) &&
                         read.endsWith(QStringLiteral("): ") + error + QLatin1Char('.')),
                     qPrintable(read));
    }

    // Written in table order under the written names; reading a shape deletes
    // the other one, and a replaced child loses what it held.
    void writingAndReplacing()
    {
        XmlSampleType element;
        element.high.assign(XmlFreqType());
        element.link.assign(XmlObjNameType());
        element.link->setObjName(QStringLiteral("old"));
        QCOMPARE(KelXmlTest::read(element, sample(name + note + low + gain + link)), QString());
        QVERIFY(!element.high);
        QCOMPARE(element.link->objName(), QStringLiteral("L"));
        QCOMPARE(KelXmlTest::write(element, QStringLiteral("S")),
                 QStringLiteral("<S version=\"1.0\"><Note>n</Note><Name>A</Name>"
                                "<Low version=\"1.0\" unit=\"MHz\">1.000000</Low>"
                                "<Gain version=\"1.0\" unit=\"dB\">3.000000</Gain>"
                                "<Linked>L</Linked></S>"));
        element.reset();
        QVERIFY(!element.note && !element.low && !element.link && element.gains.isEmpty());
        QCOMPARE(element.version(), QStringLiteral("1.0"));
    }

    // The report names the one shape present, or gives the choice's message
    // for none and for both.
    void choiceReport()
    {
        XmlSampleType element;
        element.name.setObjName(QStringLiteral("A"));
        QCOMPARE(element.syntaxError(), block("XmlSampleType", {"Neither Low nor High"}));
        element.low.assign(XmlFreqType());
        QCOMPARE(element.syntaxError(),
                 block("XmlSampleType", {block("XmlFreqType", {"Illegal frequency."})}));
        element.high.assign(XmlFreqType());
        QCOMPARE(element.syntaxError(), block("XmlSampleType", {"Neither Low nor High"}));
        QVERIFY(!element.isValid());
    }

    void parameterTable_data()
    {
        QTest::addColumn<QString>("children");
        QTest::addColumn<QString>("error");
        QTest::addColumn<double>("range");
        QTest::addColumn<bool>("hasRange");
        QTest::addColumn<int>("mode");
        QTest::newRow("last range wins")
            << "<Range>1</Range><Range>2</Range><Mode>Fast</Mode>" << QString() << 2.0 << true << 2;
        QTest::newRow("bad number takes the fallback") << "<Range>x</Range>"
                                                       << "Illegal range" << 7.0 << false << 0;
        QTest::newRow("bad text") << "<Mode>fast</Mode>"
                                  << "Illegal mode" << 5.0 << false << 0;
        QTest::newRow("undefined is no text") << "<Mode>UNDEFINED</Mode>"
                                              << "Illegal mode" << 5.0 << false << 0;
        QTest::newRow("order") << "<Mode>Slow</Mode><Range>1</Range>"
                               << "Unexpected token \"StartElement\": Range" << 5.0 << false << 1;
    }
    void parameterTable()
    {
        QFETCH(QString, children);
        QFETCH(QString, error);
        QFETCH(double, range);
        QFETCH(bool, hasRange);
        QFETCH(int, mode);
        XmlSampleSet set;
        set.set(0, 9.0); // reading starts from a reset set
        const QString read = KelXmlTest::read(set, "<P>" + children + "</P>");
        QCOMPARE(read.isEmpty(), error.isEmpty());
        QVERIFY2(error.isEmpty() || read.endsWith(error + "."), qPrintable(read));
        QCOMPARE(set.value(0), range);
        QCOMPARE(set.has(0), hasRange);
        QCOMPARE(int(set.value(1)), mode);
    }

    void parameterWritingAndBounds()
    {
        XmlSampleSet set;
        QCOMPARE(KelXmlTest::write(set, "P"), QStringLiteral("<P/>"));
        QVERIFY(set.within(0, 6.0, 7.0)); // unset fields are never out of bounds
        set.set(0, 0.125);
        set.set(1, 3); // outside the enumeration
        QCOMPARE(KelXmlTest::write(set, "P"),
                 QStringLiteral("<P><Range>0.13</Range><P>UNDEFINED</P></P>"));
        QVERIFY(set.within(0, 0.125, 0.125));
        QVERIFY(!set.within(0, 0.126, 1.0));
        set.set(0, qQNaN());
        QVERIFY(set.within(0, 0.0, 1.0)); // NaN is neither below nor above
    }

    // Every attribute is read, refused or not; the first refusal is the one
    // reported, and a refused value is set as each kind sets it.
    void attributeRows_data()
    {
        QTest::addColumn<QString>("attributes");
        QTest::addColumn<QString>("error");
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("final");
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("unit");
        const QString good =
            QStringLiteral("mode=\"Fast\" final=\"tRUE\" count=\"3\" at=\"2021-03-04T05:06:07\" "
                           "unit=\"m\"");
        QTest::newRow("all given") << good << QString() << 2 << true << 3 << "m";
        QTest::newRow("false as 0")
            << QString(good).replace("tRUE", "0") << QString() << 2 << false << 3 << "m";
        QTest::newRow("enumeration absent")
            << QString(good).remove("mode=\"Fast\" ") << "Illegal attribute value in \"mode\"" << 0
            << true << 3 << "m";
        QTest::newRow("enumeration in another case")
            << QString(good).replace("Fast", "fast") << "Illegal attribute value in \"mode\"" << 0
            << true << 3 << "m";
        QTest::newRow("boolean refused, kept")
            << QString(good).replace("tRUE", "yes") << "Illegal attribute value in \"final\"" << 2
            << true << 3 << "m";
        QTest::newRow("integer absent, kept")
            << QString(good).remove("count=\"3\" ") << "Missing attribute: \"count\"" << 2 << true
            << -5 << "m";
        QTest::newRow("integer no number")
            << QString(good).replace("\"3\"", "\"3x\"")
            << "Illegal attribute value (must be numeric)" << 2 << true << 0 << "m";
        QTest::newRow("date-time refused")
            << QString(good).replace("2021-03-04", "2021-13-04")
            << "Illegal attribute value in \"at\"" << 2 << true << 3 << "m";
        QTest::newRow("text empty, own message")
            << QString(good).replace("\"m\"", "\"\"") << "No unit" << 2 << true << 3 << "";
        QTest::newRow("first refusal reported")
            << QString(good).replace("Fast", "x").replace("\"3\"", "\"y\"")
            << "Illegal attribute value in \"mode\"" << 0 << true << 0 << "m";
    }
    void attributeRows()
    {
        QFETCH(QString, attributes);
        QFETCH(QString, error);
        QFETCH(int, mode);
        QFETCH(bool, final);
        QFETCH(int, count);
        QFETCH(QString, unit);
        XmlValuesType element;
        const QString read = KelXmlTest::read(element, "<V " + attributes + "/>");
        QVERIFY2(error.isEmpty() ? read.isEmpty() : read.endsWith("): " + error + "."),
                 qPrintable(read));
        QCOMPARE(element.mode, mode);
        QCOMPARE(element.final, final);
        QCOMPARE(element.count, count);
        QVERIFY(element.atSet); // the setter takes an invalid date-time too
        QCOMPARE(element.atValue.isValid(), !attributes.contains("2021-13"));
        QCOMPARE(element.unit.toString(), unit);
    }

    // Texts converted on reading: a refused one fails with the row's message
    // and leaves the value its kind gives.
    void textRows_data()
    {
        QTest::addColumn<QString>("children");
        QTest::addColumn<QString>("error");
        QTest::addColumn<double>("ratio");
        QTest::addColumn<int>("number");
        QTest::addColumn<int>("kind");
        QTest::newRow("all taken") << "<Label> a </Label><Ratio>0.5</Ratio><Number>7</Number>"
                                      "<Kind>Slow</Kind><When>2021-03-04T05:06:07</When>"
                                   << QString() << 0.5 << 7 << 1;
        QTest::newRow("a ratio that is no number gives 0")
            << "<Ratio>x</Ratio>" << QString() << 0.0 << 0 << 0;
        QTest::newRow("number refused takes the fallback") << "<Number>7.5</Number>"
                                                           << "Illegal number" << -1.0 << -1 << 0;
        QTest::newRow("kind refused gives 0") << "<Kind>UNDEFINED</Kind>"
                                              << "Illegal kind" << -1.0 << 0 << 0;
        QTest::newRow("date-time refused") << "<When>today</When>"
                                           << "Illegal when" << -1.0 << 0 << 0;
        QTest::newRow("order") << "<Kind>Fast</Kind><Ratio>1</Ratio>"
                               << "Unexpected token \"StartElement\": Ratio" << -1.0 << 0 << 2;
    }
    void textRows()
    {
        QFETCH(QString, children);
        QFETCH(QString, error);
        QFETCH(double, ratio);
        QFETCH(int, number);
        QFETCH(int, kind);
        XmlValuesType element;
        const QString read = KelXmlTest::read(
            element, "<V mode=\"Slow\" final=\"1\" count=\"1\" at=\"2021-03-04T05:06:07\" "
                     "unit=\"m\">" +
                         children + "</V>");
        QVERIFY2(error.isEmpty() ? read.isEmpty() : read.endsWith("): " + error + "."),
                 qPrintable(read));
        QCOMPARE(element.ratio, ratio);
        QCOMPARE(element.number, number);
        QCOMPARE(element.kind, kind);
        if (children.contains("<When>2021"))
            QCOMPARE(element.when, QDateTime(QDate(2021, 3, 4), QTime(5, 6, 7)));
        if (children.contains("<Label>"))
            QCOMPARE(element.label, QStringLiteral(" a "));
    }

    // Attributes are written after the version, in table order, the texts
    // in each row's format.
    void valuesWritten()
    {
        XmlValuesType element;
        element.mode = 3; // outside the texts
        element.final = false;
        element.atValue = QDateTime(QDate(2021, 3, 4), QTime(5, 6, 7));
        element.unit = QStringLiteral("m");
        element.ratio = 0.125;
        element.number = 4;
        element.kind = 2;
        QCOMPARE(KelXmlTest::write(element, "V"),
                 QStringLiteral("<V mode=\"UNDEFINED\" final=\"false\" count=\"-5\" "
                                "at=\"2021-03-04T05:06:07\" unit=\"m\"><Label></Label>"
                                "<Ratio>0.13</Ratio><Number>4</Number><Kind>Fast</Kind>"
                                "<When></When></V>"));
    }

    // Markers, wrappers and texts read in the element's own loop.
    void loopRows_data()
    {
        QTest::addColumn<QString>("children");
        QTest::addColumn<QString>("error");
        QTest::addColumn<int>("size");
        QTest::addColumn<int>("items");
        const QString note = QStringLiteral("<Note>n</Note>");
        const QString block = QStringLiteral("<Block><Size>2</Size></Block>");
        QTest::newRow("minimal") << note + "<None/>" << QString() << -1 << 0;
        QTest::newRow("items repeat")
            << note + "<Item>a</Item><Item>b</Item>" << QString() << -1 << 2;
        QTest::newRow("no choice after the items")
            << note + "<Item>a</Item><None/>"
            << "Unexpected token \"StartElement\": None" << -1 << 1;
        QTest::newRow("no items after the choice")
            << note + "<None/><Item>a</Item>"
            << "Unexpected token \"StartElement\": Item" << -1 << 0;
        QTest::newRow("a marker's content is the element's")
            << "<Skip>x<Skip/></Skip>" + note + "<None><Ping/></None>" << QString() << -1 << 0;
        QTest::newRow("a note of whitespace is no note")
            << "<Note> </Note>" + block << "Unexpected token \"StartElement\": Block" << -1 << 0;
        QTest::newRow("the note again after an empty one")
            << "<Note></Note>" + note + "<None/>" << QString() << -1 << 0;
        QTest::newRow("no element in a note")
            << "<Note>n<Skip/></Note>"
            << "Unexpected token \"StartElement\": Skip" << -1 << 0;
        QTest::newRow("a wrapper's rows only inside it")
            << note + "<Size>2</Size>"
            << "Unexpected token \"StartElement\": Size" << -1 << 0;
        QTest::newRow("a wrapper closes with its rows")
            << note + "<Block></Block>"
            << "Unexpected token \"EndElement\": Block" << -1 << 0;
        QTest::newRow("the element's rows inside a wrapper")
            << note + "<Block><Item>a</Item><Size>2</Size></Block>" << QString() << 2 << 1;
        QTest::newRow("a wrapper opens again while open, closes once")
            << note + "<Block><Block><Size>2</Size></Block></Block>"
            << "Unexpected token \"EndElement\": Block" << 2 << 0;
        QTest::newRow("a closed wrapper is read")
            << note + block + block + "<None/>"
            << "Unexpected token \"StartElement\": Block" << 2 << 0;
        QTest::newRow("a wrapper's row refused") << note + "<Block><Size>x</Size></Block>"
                                                 << "Illegal size" << -1 << 0;
        QTest::newRow("a number between the children") << note + " ! <None/>"
                                                       << "Stray text" << -1 << 0;
        QTest::newRow("the choice needed")
            << note << "Unexpected token \"EndElement\": N" << -1 << 0;
    }
    void loopRows()
    {
        QFETCH(QString, children);
        QFETCH(QString, error);
        QFETCH(int, size);
        QFETCH(int, items);
        XmlNestedType element;
        const QString read = KelXmlTest::read(element, "<N>" + children + "</N>");
        QVERIFY2(error.isEmpty() ? read.isEmpty() : read.endsWith("): " + error + "."),
                 qPrintable(read));
        QCOMPARE(element.size, size);
        QCOMPARE(element.items.size(), items);
    }

    // A repeated wrapper needs one end tag per start tag and counts each; the
    // element's own end tag comes first, also inside a row of the same name.
    void repeatedWrapperAndOwnName()
    {
        XmlNestedType element;
        QCOMPARE(KelXmlTest::read(element, "<N><Ping><Ping/></Ping><Note>n</Note><None/></N>"),
                 QString());
        QCOMPARE(element.pings, 2);

        XmlNestedType named;
        // The inner end tag is the element's own, which may not end yet.
        QVERIFY(KelXmlTest::read(named, "<Block><Note>n</Note><Block><Size>2</Size></Block>"
                                        "<None/></Block>")
                    .endsWith(": Unexpected token \"EndElement\": Block."));
        QCOMPARE(named.size, 2);
    }

    // Written as read: the note, the wrapper while it holds something, the
    // marker for an empty choice; the repeated wrapper is never written.
    void loopRowsWritten()
    {
        XmlNestedType element;
        element.note = QStringLiteral("n");
        QCOMPARE(KelXmlTest::write(element, "N"), QStringLiteral("<N><Note>n</Note><None/></N>"));
        element.size = 2;
        element.items.appendNew()->setObjName(QStringLiteral("a"));
        QCOMPARE(KelXmlTest::write(element, "N"),
                 QStringLiteral("<N><Note>n</Note><Block><Size>2</Size><Tag></Tag></Block>"
                                "<Item>a</Item></N>"));
        element.reset();
        QVERIFY(element.items.isEmpty());
    }

    void enumerationTexts()
    {
        const XmlEnumTexts numbered = XmlEnumTexts::numbered({"A", "B"});
        QCOMPARE(numbered.parse(QStringLiteral("B")), std::optional<int>(2));
        QCOMPARE(numbered.parse(QStringLiteral(" B")), std::optional<int>());
        QCOMPARE(numbered.parse(QStringLiteral("UNDEFINED")), std::optional<int>());
        QCOMPARE(numbered.text(0), QStringLiteral("UNDEFINED"));
        QCOMPARE(numbered.text(3), QStringLiteral("UNDEFINED"));
        const XmlEnumTexts fromZero({{0, "Off"}, {1, "On"}}, "On");
        QCOMPARE(fromZero.parse(QStringLiteral("Off")), std::optional<int>(0));
        QCOMPARE(fromZero.text(-1), QStringLiteral("On"));
    }
};

QTEST_GUILESS_MAIN(TestXmlLayout)
#include "tst_xmllayout.moc"
