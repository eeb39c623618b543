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
