#include "KelXmlTest.h"

#include <XmlDBMType.h>
#include <XmlFreqThrListType.h>
#include <XmlFreqThrPairType.h>

#include <QtTest>

#include <memory>
#include <vector>

using namespace KelXml;
using KelXmlTest::located;

namespace {

// A pair whose accumulated text can be looked at without recomputing it.
struct PairProbe : XmlFreqThrPairType
{
    using XmlElementBase::mySyntaxError;
};

// An element named at run time, from a string that dies before the element.
struct NamedProbe : XmlElementBase
{
    explicit NamedProbe(int n)
        : XmlElementBase(QStringLiteral("Probe") + QString::number(n))
    {}
    void processXml(QXmlStreamReader&, const QString&) override {}
    void produceXml(QXmlStreamWriter&, const QString&) const override {}
    using XmlElementBase::addSyntaxError;
    using XmlElementBase::classname;
    using XmlElementBase::mySyntaxError;
};

// Renders a walk as syntaxError() frames it (a block only around messages),
// and records the calls; it wants no more after `limit` messages.
struct Rendering : XmlReportSink
{
    explicit Rendering(int limitCount = -1)
        : limit(limitCount)
    {}
    void enter(const QString& classname) override
    {
        frames.append(classname);
        calls.append("enter " + classname);
    }
    void message(const QString& text) override
    {
        for (; opened < frames.size(); ++opened)
            lines.append("+++ in " + frames.at(opened) + " Begin:");
        lines.append(text);
        calls.append("message");
        ++messages;
    }
    void leave() override
    {
        if (opened == frames.size()) {
            lines.append("--- in " + frames.last() + " End");
            --opened;
        }
        frames.removeLast();
        calls.append("leave");
    }
    bool wantsMore() const override { return limit < 0 || messages < limit; }

    int limit;
    int messages = 0;
    QStringList frames;
    int opened = 0;
    QStringList lines;
    QStringList calls;
};

} // namespace

class TestXmlElementBase : public QObject
{
    Q_OBJECT

private slots:
    // Line and column are those of the reader, counted from 1 and 0 respectively.
    void readerErrorIsLocated()
    {
        XmlDBMType d;
        QCOMPARE(KelXmlTest::read(d, QString(11, '\n') + "<DBM version=\"1.0\">not-numeric</DBM>"),
                 QString("in XmlDBMType (line 12, column 31): Illegal value (must be numeric)."));
    }

    // Off its start tag an element refuses to read and resets nothing but its version.
    void wrongPosition()
    {
        QXmlStreamReader reader("<N>x</N>");
        for (int i = 0; i < 3; ++i) // onto the text
            reader.readNext();
        XmlDBMType dBm;
        dBm.setVersion("2.0");
        dBm.setDBM(5.0);
        dBm.processXml(reader, "N");
        QCOMPARE(reader.errorString(), located("XmlDBMType", 1, 5, "Parse error (wrong position)"));
        QVERIFY(dBm.version() == "1.0" && dBm.dBm() == 5.0);
    }

    // An empty attribute keeps the default (a 2.0 is kept as read: see the nested report).
    void versionAttribute()
    {
        XmlFreqType freq;
        freq.setVersion("3.0");
        QCOMPARE(KelXmlTest::read(freq, "<F version=\"\" unit=\"MHz\">5</F>"), QString());
        QCOMPARE(freq.version(), QString("1.0"));
    }

    // Were the parent to go on, it would refuse <Bogus/> and replace the message.
    void childErrorEndsTheParentSilently()
    {
        XmlFreqThrPairType pair;
        QCOMPARE(KelXmlTest::read(pair, "<P><Frequency>5</Frequency><Bogus/></P>"),
                 located("XmlFreqType", 1, 14, "Missing attribute: \"unit\""));
    }

    // An unsupported version is read without complaint and only reported; blocks nest,
    // valid children add nothing, a second call gives the same text, and a copy carries
    // the last text along.
    void nestedReportIsStableAndCopied()
    {
        PairProbe pair;
        QCOMPARE(KelXmlTest::read(pair, "<P version=\"2.0\"><Frequency unit=\"MHz\">-5</Frequency>"
                                        "<RxThreshold unit=\"dBm\">-50</RxThreshold></P>"),
                 QString());
        const QString report = "+++ in XmlFreqThrPairType Begin:\nVersion \"2.0\" not supported\n"
                               "+++ in XmlFreqType Begin:\nIllegal frequency.\n"
                               "--- in XmlFreqType End\n--- in XmlFreqThrPairType End";
        QCOMPARE(pair.syntaxError(), report);
        QCOMPARE(pair.syntaxError(), report);

        const XmlFreqThrPairType copy(pair);
        pair.reset();
        QVERIFY(pair.mySyntaxError().isNull());
        static_cast<XmlFreqThrPairType&>(pair) = copy;
        QCOMPARE(pair.mySyntaxError(), report);
    }

    // A parent holds its children's blocks as they were when it was checked:
    // replacing or re-checking a child later changes nothing in it, and a copy
    // that adds to its text leaves the original's alone.
    void accumulatedBlocksStayAsBuilt()
    {
        PairProbe pair;
        QCOMPARE(KelXmlTest::read(pair, "<P><Frequency unit=\"MHz\">-5</Frequency>"
                                        "<RxThreshold unit=\"dBm\">-50</RxThreshold></P>"),
                 QString());
        const QString report = pair.syntaxError();
        QVERIFY(report.contains("Illegal frequency."));

        XmlFreqType valid;
        valid.setFrequency_MHz(5.0);
        pair.setFrequency(valid);
        QCOMPARE(pair.mySyntaxError(), report);
        PairProbe copy(pair);
        QCOMPARE(copy.syntaxError(), QString());
        QCOMPARE(pair.mySyntaxError(), report);

        NamedProbe probe(1);
        probe.addSyntaxError("first");
        NamedProbe other(probe);
        other.addSyntaxError("second");
        QCOMPARE(probe.mySyntaxError(),
                 QStringLiteral("+++ in Probe1 Begin:\nfirst\n--- in Probe1 End"));
        QCOMPARE(other.mySyntaxError(),
                 QStringLiteral("+++ in Probe1 Begin:\nfirst\nsecond\n--- in Probe1 End"));
    }

    // The walk hands over exactly the report's lines, entering valid children
    // too, and keeps no text in the tree.
    void walkMatchesTheReport_data()
    {
        QTest::addColumn<QString>("xml");
        QTest::newRow("valid") << "<L><Pair><Frequency unit=\"MHz\">5</Frequency>"
                                  "<RxThreshold unit=\"dBm\">-5</RxThreshold></Pair></L>";
        QTest::newRow("own message first")
            << "<L version=\"2.0\"><Pair><Frequency unit=\"MHz\">5</Frequency>"
               "<RxThreshold unit=\"dBm\">-5</RxThreshold></Pair></L>";
        QTest::newRow("nested") << "<L><Pair version=\"2.0\"><Frequency unit=\"MHz\">5</Frequency>"
                                   "<RxThreshold unit=\"dBW\">-5</RxThreshold></Pair>"
                                   "<Pair><Frequency unit=\"MHz\">5</Frequency>"
                                   "<RxThreshold unit=\"dBm\">-5</RxThreshold></Pair>"
                                   "<Pair><Frequency unit=\"MHz\">-5</Frequency>"
                                   "<RxThreshold unit=\"dBm\">-5</RxThreshold></Pair></L>";
    }
    void walkMatchesTheReport()
    {
        QFETCH(QString, xml);
        XmlFreqThrListType list;
        QCOMPARE(KelXmlTest::read(list, xml), QString());
        Rendering walk;
        list.reportTo(walk);
        QCOMPARE(walk.frames, QStringList());
        const QString report = list.syntaxError();
        QCOMPARE(walk.lines.join('\n'), report);
        QCOMPARE(walk.calls.count("enter XmlFreqThrPairType"), list.freqThrPairs().size());
    }

    // A sink that has what it wants ends the walk: nothing more is entered.
    void walkStopsWhenTheSinkIsFull()
    {
        XmlFreqThrListType list;
        QCOMPARE(KelXmlTest::read(list,
                                  "<L><Pair version=\"2.0\"><Frequency unit=\"MHz\">-5</Frequency>"
                                  "<RxThreshold unit=\"dBm\">-5</RxThreshold></Pair>"
                                  "<Pair version=\"3.0\"><Frequency unit=\"MHz\">5</Frequency>"
                                  "<RxThreshold unit=\"dBm\">-5</RxThreshold></Pair></L>"),
                 QString());
        Rendering first(1);
        list.reportTo(first);
        QCOMPARE(first.calls, QStringList({"enter XmlFreqThrListType", "enter XmlFreqThrPairType",
                                           "message", "leave", "leave"}));
        QCOMPARE(first.lines.at(2), QStringLiteral("Version \"2.0\" not supported"));
    }

    // The class name is kept whatever string it came from, and each object
    // keeps its own report.
    void namesFromTemporaryStrings()
    {
        std::vector<std::unique_ptr<NamedProbe>> probes;
        for (int n = 0; n < 300; ++n)
            probes.emplace_back(new NamedProbe(n % 100));
        for (int n = 0; n < 300; ++n) {
            QCOMPARE(probes[n]->classname(), QStringLiteral("Probe%1").arg(n % 100));
            if (n % 2)
                probes[n]->addSyntaxError(QStringLiteral("fault %1").arg(n));
        }
        const NamedProbe copy(*probes[3]);
        probes[3]->reset();
        QCOMPARE(probes[3]->syntaxError(), QString());
        QCOMPARE(probes[3]->classname(), QStringLiteral("Probe3"));
        QCOMPARE(copy.classname(), QStringLiteral("Probe3"));
        QCOMPARE(copy.mySyntaxError(),
                 QStringLiteral("+++ in Probe3 Begin:\nfault 3\n--- in Probe3 End"));
        QCOMPARE(probes[5]->mySyntaxError(),
                 QStringLiteral("+++ in Probe5 Begin:\nfault 5\n--- in Probe5 End"));
    }
};

QTEST_GUILESS_MAIN(TestXmlElementBase)
#include "tst_xmlelementbase.moc"
