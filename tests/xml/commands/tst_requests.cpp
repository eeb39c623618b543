// The six calculation requests and the probability level: child order with
// the named token messages, replaced optional children, writing and report
// orders, the random-emitter block and its bounds, and the station names.

#include "KelXmlTest.h"

#include <XmlBestSensorType.h>
#include <XmlCepProbType.h>
#include <XmlCepType.h>
#include <XmlDetectProbType.h>
#include <XmlDfCovType.h>
#include <XmlFindSitesType.h>
#include <XmlInterlinkPlanningType.h>

#include <QtTest>

#include <memory>

using namespace KelXml;
using KelXmlTest::block;

namespace {

// A reader error without its line and column: "in <class>: <message>."
QString unlocated(const QString& error)
{
    const auto from = error.indexOf(" (line ");
    const auto to = error.indexOf("): ", from);
    return from < 0 || to < 0 ? error : error.left(from) + error.mid(to + 1);
}

std::unique_ptr<IXmlElement> request(const QString& xml)
{
    if (xml.startsWith("<BestSensorCov>"))
        return std::make_unique<XmlBestSensorType>();
    if (xml.startsWith("<DetectionProbability>"))
        return std::make_unique<XmlDetectProbType>();
    if (xml.startsWith("<DFcoverage>"))
        return std::make_unique<XmlDfCovType>();
    return std::make_unique<XmlCepType>();
}

QString wrap(const QString& tag, const QString& content)
{
    return "<" + tag + ">" + content + "</" + tag + ">";
}

QString all(const QString& tag)
{
    return wrap(tag, "<All/>");
}

const QString uninitialized = block("XmlNameAllMultiType", {"Uninitialized."});
const QString areas = all("DeploymentAreas");

} // namespace

class TestRequests : public QObject
{
    Q_OBJECT

private slots:
    // Each child once and in order; a refused child and the end tag of an
    // incomplete request are named in the message.
    void childOrder_data()
    {
        QTest::addColumn<QString>("xml");
        QTest::addColumn<QString>("error");
        const QString rx = all("UseRxDFs"), df = all("UseDFs"), aois = all("AOIs"),
                      grid = "<ResultGrid>50</ResultGrid>", comment = "<Comment>c</Comment>";
        const QString best = "in XmlBestSensorType: Unexpected token ";
        QTest::newRow("best full")
            << wrap("BestSensorCov", rx + aois + grid + comment) << QString();
        QTest::newRow("best AOIs first")
            << wrap("BestSensorCov", aois + rx) << best + "\"StartElement\": UseRxDFs.";
        QTest::newRow("best AOIs missing")
            << wrap("BestSensorCov", rx + grid) << best + "\"EndElement\": BestSensorCov.";
        QTest::newRow("best comment, grid") << wrap("BestSensorCov", rx + aois + comment + grid)
                                            << best + "\"StartElement\": ResultGrid.";
        QTest::newRow("detect comment")
            << wrap("DetectionProbability", rx + aois + comment)
            << "in XmlDetectProbType: Unexpected token \"StartElement\": Comment.";
        QTest::newRow("dfcov UseRxDFs")
            << wrap("DFcoverage", rx + aois)
            << "in XmlDfCovType: Unexpected token \"StartElement\": UseRxDFs.";
        QTest::newRow("cep full") << wrap("CEP", df + aois + "<Probability>95</Probability>" + grid)
                                  << QString();
        QTest::newRow("cep grid, probability")
            << wrap("CEP", df + aois + grid + "<Probability>90</Probability>")
            << "in XmlCepType: Unexpected token \"StartElement\": Probability.";
        // The level's own message has no full stop: the located error adds one.
        QTest::newRow("cep probability 80")
            << wrap("CEP", df + aois + "<Probability>80</Probability>")
            << "in XmlCepProbType: Illegal enum value.";
        QTest::newRow("cep probability UNDEFINED")
            << wrap("CEP", df + aois + "<Probability>UNDEFINED</Probability>")
            << "in XmlCepProbType: Illegal enum value.";
    }
    void childOrder()
    {
        QFETCH(QString, xml);
        QFETCH(QString, error);
        const auto element = request(xml);
        QCOMPARE(unlocated(KelXmlTest::read(*element, xml)), error);
    }

    // Reading a grid, comment or known-emitter selection replaces the one
    // held; a selection held by value takes in what it reads.
    void optionalChildrenAreReplaced()
    {
        XmlResultGridType grid;
        grid.setSize(XmlResultGridType::Grid100);
        XmlObjNameType name;
        name.setObjName("X");
        XmlBestSensorType best;
        best.setResultGrid(grid);
        best.setComment(name);
        QCOMPARE(KelXmlTest::read(best, wrap("BestSensorCov", all("UseRxDFs") + all("AOIs") +
                                                                  "<ResultGrid/><Comment/>")),
                 QString());
        QCOMPARE(int(best.resultGrid()->size()), 0);
        QCOMPARE(best.comment()->objName(), QString());

        XmlNameAllMultiType selection;
        selection.setObjNames({&name});
        XmlFindSitesType sites;
        sites.setKnownEmitters(selection);
        sites.setDeploymentAreas(selection);
        const QString a = wrap("Name", "A");
        QCOMPARE(KelXmlTest::read(
                     sites, wrap("F", wrap("UseKnownEmitters", a) + wrap("DeploymentAreas", a))),
                 QString());
        QCOMPARE(
            KelXmlTest::write(sites, "F"),
            wrap("F", wrap("UseKnownEmitters", a) + wrap("DeploymentAreas", "<Name>X</Name>" + a)));
    }

    // Optional children only when held, the probability before the grid; the
    // report is the children's blocks in that order, without messages of its own.
    void writingAndReportOrder()
    {
        QCOMPARE(KelXmlTest::write(XmlBestSensorType(), "B"),
                 wrap("B", all("UseRxDFs") + all("AOIs")));
        XmlResultGridType grid;
        grid.setSize(XmlResultGridType::Grid10);
        XmlCepProbType prob;
        prob.setProb(XmlCepProbType::Prob66);
        XmlCepType cep;
        cep.setResultGrid(grid);
        cep.setProbability(prob);
        const QString written = KelXmlTest::write(cep, "CEP");
        QCOMPARE(written,
                 wrap("CEP", all("UseDFs") + all("AOIs") +
                                 "<Probability>66</Probability><ResultGrid>10</ResultGrid>"));
        XmlCepType again;
        QCOMPARE(KelXmlTest::read(again, written), QString());
        QCOMPARE(KelXmlTest::write(again, "CEP"), written);

        cep.setResultGrid(XmlResultGridType());
        cep.setProbability(XmlCepProbType());
        QCOMPARE(cep.syntaxError(),
                 block("XmlCepType", {uninitialized, uninitialized,
                                      block("XmlCepProbType", {"Illegal probability value."}),
                                      block("XmlResultGridType", {"Illegal grid size."})}));
    }

    // The block counts only when it closes with both Number and Distribution;
    // the count lies in -1..500 and needs a distribution when not negative.
    void randomEmitters_data()
    {
        QTest::addColumn<QString>("content");
        QTest::addColumn<QString>("error");
        QTest::addColumn<int>("number");
        QTest::addColumn<int>("distribution");
        QTest::addColumn<QStringList>("report");
        const QString grid = "<Distribution>Grid</Distribution>", known = all("UseKnownEmitters");
        const QString bounds = "RandomEmitters/Number out of bounds",
                      notSet = "RandomEmitters distribution not set",
                      refused = "in XmlFindSitesType: Unexpected token \"StartElement\": ";
        const auto emitters = [](const char* number, const QString& more) {
            return wrap("RandomEmitters", wrap("Number", number) + more);
        };
        QTest::newRow("500") << emitters("500", grid) + areas << QString() << 500 << 2
                             << QStringList();
        QTest::newRow("501") << emitters("501", grid) + areas << QString() << 501 << 2
                             << QStringList{bounds};
        QTest::newRow("-2") << emitters("-2", grid) + areas << QString() << -2 << 2
                            << QStringList{bounds};
        QTest::newRow("number abc")
            << emitters("abc", grid) + areas
            << "in XmlFindSitesType: Illegal value for \"Number\" (must be numeric)." << -1 << 0
            << QStringList{uninitialized};
        QTest::newRow("distribution grid")
            << emitters("10", "<Distribution>grid</Distribution>") + areas
            << "in XmlFindSitesType: Illegal value for \"Distribution\"." << 10 << 0
            << QStringList{uninitialized, notSet};
        QTest::newRow("no distribution")
            << emitters("10", QString()) + areas
            << "in XmlFindSitesType: Unexpected token \"EndElement\": RandomEmitters." << 10 << 0
            << QStringList{uninitialized, notSet};
        QTest::newRow("distribution, number")
            << wrap("RandomEmitters", grid + "<Number>3</Number>") << refused + "Number." << -1 << 2
            << QStringList{uninitialized};
        QTest::newRow("number outside") << "<Number>3</Number>" + areas << refused + "Number." << -1
                                        << 0 << QStringList{uninitialized};
        QTest::newRow("block after areas")
            << areas + emitters("3", grid) << refused + "RandomEmitters." << -1 << 0
            << QStringList();
        // Only a completed block refuses the known emitters.
        QTest::newRow("known in open block")
            << emitters("3", known + grid) + areas << QString() << 3 << 2 << QStringList();
        QTest::newRow("block, known")
            << emitters("3", grid) + known << refused + "UseKnownEmitters." << 3 << 2
            << QStringList{uninitialized};
    }
    void randomEmitters()
    {
        QFETCH(QString, content);
        QFETCH(QString, error);
        QFETCH(int, number);
        QFETCH(int, distribution);
        QFETCH(QStringList, report);
        XmlFindSitesType sites;
        QCOMPARE(unlocated(KelXmlTest::read(sites, wrap("FindPossibleSites", content))), error);
        QCOMPARE(sites.randNumber(), number);
        QCOMPARE(int(sites.randDistri()), distribution);
        QCOMPARE(sites.isValid(), report.isEmpty());
        QCOMPARE(sites.syntaxError(),
                 report.isEmpty() ? QString() : block("XmlFindSitesType", report));
    }

    // The report puts the deployment areas before the known emitters.
    void findSitesReport()
    {
        XmlFindSitesType sites;
        sites.setKnownEmitters(XmlNameAllMultiType());
        sites.setResultGrid(XmlResultGridType());
        sites.setRandNumber(501);
        QCOMPARE(sites.syntaxError(),
                 block("XmlFindSitesType",
                       {uninitialized, uninitialized, "RandomEmitters/Number out of bounds",
                        "RandomEmitters distribution not set",
                        block("XmlResultGridType", {"Illegal grid size."})}));
    }

    // The block is written only with a distribution and a count not negative.
    void findSitesWriting_data()
    {
        QTest::addColumn<int>("number");
        QTest::addColumn<int>("distribution");
        QTest::addColumn<QString>("emitters");
        QTest::newRow("-1 grid") << -1 << 2 << QString();
        QTest::newRow("5 undefined") << 5 << 0 << QString();
        QTest::newRow("0 random") << 0 << 1
                                  << "<RandomEmitters><Number>0</Number>"
                                     "<Distribution>Random</Distribution></RandomEmitters>";
    }
    void findSitesWriting()
    {
        QFETCH(int, number);
        QFETCH(int, distribution);
        QFETCH(QString, emitters);
        XmlResultGridType grid;
        grid.setSize(XmlResultGridType::Grid1000);
        XmlFindSitesType sites;
        sites.setResultGrid(grid);
        sites.setKnownEmitters(XmlNameAllMultiType());
        sites.setRandNumber(number);
        sites.setRandDistri(XmlFindSitesType::Distribution(distribution));
        QCOMPARE(sites.hasRandEmitters(), !emitters.isEmpty());
        const QString written = KelXmlTest::write(sites, "F");
        QCOMPARE(written, wrap("F", all("UseKnownEmitters") + emitters + areas +
                                        "<ResultGrid>1000</ResultGrid>"));
        XmlFindSitesType again;
        QCOMPARE(KelXmlTest::read(again, written), QString());
        QCOMPARE(KelXmlTest::write(again, "F"), written);
    }

    // Names of up to 128 characters; a longer one is not taken, so that the
    // report then says it is not set.
    void interlink_data()
    {
        QTest::addColumn<QString>("content");
        QTest::addColumn<QString>("error");
        QTest::addColumn<QStringList>("report");
        const QString n128(128, 'n'), second = wrap("SecondName", "B");
        const QString refused = "in XmlInterlinkPlanningType: Unexpected token ";
        QTest::newRow("128") << wrap("FirstName", n128) + second << QString() << QStringList();
        QTest::newRow("129") << wrap("FirstName", n128 + 'n') + second
                             << "in XmlInterlinkPlanningType: FirstName too long (max. 128)."
                             << QStringList{"FirstName not set", "SecondName not set"};
        QTest::newRow("second first")
            << second + wrap("FirstName", "A") << refused + "\"StartElement\": FirstName."
            << QStringList{"FirstName not set"};
        QTest::newRow("first only")
            << wrap("FirstName", "A") << refused + "\"EndElement\": InterlinkPlanning."
            << QStringList{"SecondName not set"};
    }
    void interlink()
    {
        QFETCH(QString, content);
        QFETCH(QString, error);
        QFETCH(QStringList, report);
        XmlInterlinkPlanningType link;
        const QString xml = wrap("InterlinkPlanning", content);
        QCOMPARE(unlocated(KelXmlTest::read(link, xml)), error);
        QCOMPARE(link.syntaxError(),
                 report.isEmpty() ? QString() : block("XmlInterlinkPlanningType", report));
        if (error.isEmpty())
            QCOMPARE(KelXmlTest::write(link, "InterlinkPlanning"), xml);
    }
};

QTEST_GUILESS_MAIN(TestRequests)
#include "tst_requests.moc"
