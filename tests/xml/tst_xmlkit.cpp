// The reading kit and the owning pointer, tested through a small element
// class built on them the way every class of the library is. (The owning
// list's copies are tested with the list classes.)

#include "KelXmlTest.h"

#include <XmlComposite.h>
#include <XmlDateTime.h>
#include <XmlDecibelType.h>
#include <XmlElementReader.h>
#include <XmlFreqType.h>
#include <XmlKit.h>
#include <XmlLayout.h>
#include <XmlObjNameType.h>

#include <QtTest>

#include <atomic>
#include <thread>
#include <vector>

using namespace KelXml;

namespace {

// <Example version="1.0"><Name/><Frequency/>[<Gain/>]...</Example>: three
// ordered children, the frequency only after the name, the last optional and
// repeatable.
class XmlExampleType : public XmlVersionedComposite
{
public:
    XmlExampleType()
        : XmlVersionedComposite(layout())
    {}

    static const XmlLayout& layout()
    {
        using Self = XmlExampleType;
        static const XmlLayout layout(
            "XmlExampleType", XmlElementReader::NamedWording, XmlLayout::Version,
            {
                XmlField::object("Name", &Self::m_name),
                XmlField::object("Frequency", &Self::m_frequency).after({"Name"}),
                XmlField::list("Gain", &Self::m_gains),
            });
        return layout;
    }

    XmlObjNameType m_name;
    XmlFreqType m_frequency;
    XmlOwnedList<XmlDecibelType> m_gains;
};

const QString name = QStringLiteral("<Name>A</Name>");
const QString frequency = QStringLiteral("<Frequency version=\"1.0\" unit=\"MHz\">1</Frequency>");
const QString gain = QStringLiteral("<Gain version=\"1.0\" unit=\"dB\">3</Gain>");

QString example(const QString& children)
{
    return QStringLiteral("<Example version=\"1.0\">") + children + QStringLiteral("</Example>");
}

} // namespace

class TestXmlKit : public QObject
{
    Q_OBJECT

private slots:
    void childOrder_data()
    {
        QTest::addColumn<QString>("children");
        QTest::addColumn<QString>("error");
        QTest::addColumn<int>("gains");
        QTest::newRow("required only") << name + frequency << QString() << 0;
        QTest::newRow("optional repeated") << name + frequency + gain + gain << QString() << 2;
        QTest::newRow("earlier after later") << name + frequency + gain + frequency
                                             << "Unexpected token \"StartElement\": Frequency" << 1;
        QTest::newRow("single repeated")
            << name + name << "Unexpected token \"StartElement\": Name" << 0;
        QTest::newRow("unknown") << name + QStringLiteral("<Power/>")
                                 << "Unexpected token \"StartElement\": Power" << 0;
        // A required child may be skipped; the end tag then finds it missing.
        QTest::newRow("required missing")
            << name + gain << "Unexpected token \"EndElement\": Example" << 1;
        // A child that must follow another is refused before it, even where
        // the order alone would take it.
        QTest::newRow("before the one it follows")
            << frequency + name << "Unexpected token \"StartElement\": Frequency" << 0;
    }
    void childOrder()
    {
        QFETCH(QString, children);
        QFETCH(QString, error);
        QFETCH(int, gains);
        XmlExampleType element;
        const QString read = KelXmlTest::read(element, example(children));
        if (error.isEmpty())
            QCOMPARE(read, QString());
        else
            QVERIFY2(read.startsWith(QLatin1String("in XmlExampleType (line 1, column ")) &&
                         read.endsWith(QStringLiteral("): ") + error + QLatin1Char('.')),
                     qPrintable(read));
        QCOMPARE(element.m_gains.size(), gains);
    }

    // The rules run once as a verdict and once as a framed, nested report.
    void verdictAndReport()
    {
        XmlExampleType element;
        QCOMPARE(KelXmlTest::read(element, example(name + frequency + gain)), QString());
        QVERIFY(element.isValid());
        QCOMPARE(element.syntaxError(), QString());
        element.m_name.setObjName(QString());
        QVERIFY(!element.isValid());
        QCOMPARE(element.syntaxError(),
                 KelXmlTest::block(
                     "XmlExampleType",
                     {KelXmlTest::block("XmlObjNameType", {"Object name too short (min. 1)."})}));
    }

    // Date-times to the second, without a fraction or an offset for a local
    // time, whatever the Qt version; an invalid one is an empty text.
    void dateTimes()
    {
        const QDateTime local(QDate(2021, 3, 4), QTime(5, 6, 7, 890));
        QCOMPARE(XmlKit::formatDateTime(local), QStringLiteral("2021-03-04T05:06:07"));
        QCOMPARE(XmlKit::formatDateTime(QDateTime()), QString());
        QCOMPARE(XmlKit::parseDateTime(QStringLiteral("2021-03-04T05:06:07")),
                 local.addMSecs(-890));
        QVERIFY(!XmlKit::parseDateTime(QStringLiteral("2020-13-01T00:00:00")).isValid());
    }

    // Copies share nothing with their source, whether a child is there or not.
    void ownedPointerCopies()
    {
        XmlOwnedPtr<XmlFreqType> source = XmlOwnedPtr<XmlFreqType>::make();
        source->setFrequency_MHz(5.0);
        XmlOwnedPtr<XmlFreqType> copy(source);
        source->setFrequency_MHz(7.0);
        QCOMPARE(copy->frequency_MHz(), 5.0);

        const XmlFreqType* kept = copy.get();
        copy = source; // both there: assigned in place
        QCOMPARE(copy.get(), kept);
        QCOMPARE(copy->frequency_MHz(), 7.0);
        copy = XmlOwnedPtr<XmlFreqType>(); // source absent: the child goes
        QVERIFY(!copy);
    }

    // Shared texts: null and empty stay apart, repeated short texts share one
    // string, copies and moves are values, and once the shared table is full
    // new texts are still held exactly.
    void sharedTexts()
    {
        QVERIFY(XmlText().toString().isNull());
        XmlText empty;
        empty.assign(QStringView(u""));
        QVERIFY(!empty.toString().isNull() && empty.isEmpty());
        XmlText fromEmpty = QStringLiteral("");
        QVERIFY(!fromEmpty.toString().isNull());

        XmlText a;
        XmlText b;
        a.assign(u"MHz");
        b = QString::fromLatin1("MHz");
        QCOMPARE(a.toString().constData(), b.toString().constData());

        XmlText copy(a);
        a.assign(u"GHz");
        QCOMPARE(copy.toString(), QStringLiteral("MHz"));
        XmlText moved(std::move(copy));
        QCOMPARE(moved.toString(), QStringLiteral("MHz"));
        const XmlText& same = moved;
        moved = same;
        QCOMPARE(moved.toString(), QStringLiteral("MHz"));

        // Threads that fill the shared table at once each keep their own texts.
        std::vector<std::thread> threads;
        std::atomic<int> wrong{0};
        for (int t = 0; t < 4; ++t) {
            threads.emplace_back([&wrong]() {
                std::vector<XmlText> mine(500);
                for (int i = 0; i < 500; ++i)
                    mine[size_t(i)].assign(QStringLiteral("t%1").arg(i % 300));
                const std::vector<XmlText> kept = mine;
                for (int i = 0; i < 500; ++i)
                    wrong += kept[size_t(i)].toString() != QStringLiteral("t%1").arg(i % 300);
            });
        }
        for (std::thread& thread : threads)
            thread.join();
        QCOMPARE(wrong.load(), 0);

        std::vector<XmlText> many(2000);
        for (int i = 0; i < 2000; ++i)
            many[size_t(i)].assign(QStringLiteral("w%1").arg(i));
        const std::vector<XmlText> copies = many;
        many.clear();
        for (int i = 0; i < 2000; ++i)
            QCOMPARE(copies[size_t(i)].toString(), QStringLiteral("w%1").arg(i));
        const QString longText(100, QLatin1Char('x'));
        XmlText held = longText;
        held.clear();
        QVERIFY(held.toString().isNull());
    }
};

QTEST_GUILESS_MAIN(TestXmlKit)
#include "tst_xmlkit.moc"
