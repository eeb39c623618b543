// The find-sites request's random-emitter block, its replaced and merged
// selections and its report and writing orders, the probability level's
// message, and the interlink names.

#include "KelXmlTest.h"

#include <XmlCepProbType.h>
#include <XmlFindSitesType.h>
#include <XmlInterlinkPlanningType.h>

#include <QtTest>

using namespace KelXml;
using KelXmlTest::block;

namespace {

// A reader error without its line and column: "in <class>: <message>."
QString unlocated(const QString& error)
{
    const auto from = error.indexOf(" (line ");
    return from < 0 ? error : error.left(from) + error.mid(error.indexOf("): ", from) + 1);
}

QString wrap(const QString& tag, const QString& content)
{
    return "<" + tag + ">" + content + "</" + tag + ">";
}

const QString uninitialized = block("XmlNameAllMultiType", {"Uninitialized."});
const QString areas = wrap("DeploymentAreas", "<All/>"), known = wrap("UseKnownEmitters", "<All/>");

} // namespace

class TestRequests : public QObject
{
    Q_OBJECT

private slots:
    // The level's parse message has no full stop of its own: the located
    // error adds the only one. Reading the known emitters replaces the
    // selection held; the deployment areas, held by value, take in what they read.
    void probabilityAndSelections()
    {
        XmlCepProbType prob;
        QCOMPARE(unlocated(KelXmlTest::read(prob, "<Probability>80</Probability>")),
                 "in XmlCepProbType: Illegal enum value.");

        XmlObjNameType name;
        name.setObjName("X");
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

    // The block counts only when it closes with both Number and Distribution;
    // the count lies in -1..500 and needs a distribution when not negative.
    void randomEmitters_data()
    {
        QTest::addColumn<QString>("content");
        QTest::addColumn<QString>("error");
        QTest::addColumn<int>("number");
        QTest::addColumn<int>("distribution");
        QTest::addColumn<QStringList>("report");
        const QString grid = "<Distribution>Grid</Distribution>";
        const QString bounds = "RandomEmitters/Number out of bounds",
                      notSet = "RandomEmitters distribution not set",
                      refused = "in XmlFindSitesType: Unexpected token \"StartElement\": ";
        const auto emitters = [](const char* number, const QString& more) {
            return wrap("RandomEmitters", wrap("Number", number) + more);
        };
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
        QFETCH(QStringList, report);
        XmlFindSitesType sites;
        QTEST(unlocated(KelXmlTest::read(sites, wrap("FindPossibleSites", content))), "error");
        QTEST(sites.randNumber(), "number");
        QTEST(int(sites.randDistri()), "distribution");
        QCOMPARE(sites.isValid(), report.isEmpty());
        QCOMPARE(sites.syntaxError(),
                 report.isEmpty() ? QString() : block("XmlFindSitesType", report));
    }

    // The report puts the deployment areas before the known emitters. The
    // block is written only with a distribution and a count not negative.
    void findSitesReportAndWriting()
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

        XmlResultGridType grid;
        grid.setSize(XmlResultGridType::Grid1000);
        sites.setResultGrid(grid);
        const QString emitters = "<RandomEmitters><Number>0</Number>"
                                 "<Distribution>Random</Distribution></RandomEmitters>";
        for (const auto& [number, distribution] :
             std::initializer_list<std::pair<int, int>>{{-1, 2}, {5, 0}, {0, 1}}) {
            sites.setRandNumber(number);
            sites.setRandDistri(XmlFindSitesType::Distribution(distribution));
            const QString written = number == 0 ? emitters : QString();
            QCOMPARE(sites.hasRandEmitters(), !written.isEmpty());
            QCOMPARE(KelXmlTest::write(sites, "F"),
                     wrap("F", known + written + areas + "<ResultGrid>1000</ResultGrid>"));
        }
    }

    // A name longer than 128 characters is not taken, so that the report
    // then says it is not set.
    void interlink()
    {
        XmlInterlinkPlanningType link;
        const QString names = wrap("FirstName", QString(129, 'n')) + wrap("SecondName", "B");
        QCOMPARE(unlocated(KelXmlTest::read(link, wrap("InterlinkPlanning", names))),
                 "in XmlInterlinkPlanningType: FirstName too long (max. 128).");
        QCOMPARE(link.syntaxError(),
                 block("XmlInterlinkPlanningType", {"FirstName not set", "SecondName not set"}));
    }

    // The second name comes only after the first: standing first, it is the
    // tag refused (at its own start tag) and nothing is taken.
    void interlinkOrder_data()
    {
        QTest::addColumn<QString>("names");
        QTest::addColumn<QString>("error");
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");
        const QString a = wrap("FirstName", "A"), b = wrap("SecondName", "B");
        QTest::newRow("in order") << a + b << QString() << "A"
                                  << "B";
        QTest::newRow("second first") << b + a
                                      << "in XmlInterlinkPlanningType (line 1, column 31): "
                                         "Unexpected token \"StartElement\": SecondName."
                                      << ""
                                      << "";
        QTest::newRow("second alone") << b
                                      << "in XmlInterlinkPlanningType (line 1, column 31): "
                                         "Unexpected token \"StartElement\": SecondName."
                                      << ""
                                      << "";
        QTest::newRow("first twice") << a + a + b
                                     << "in XmlInterlinkPlanningType (line 1, column 54): "
                                        "Unexpected token \"StartElement\": FirstName."
                                     << "A"
                                     << "";
        QTest::newRow("second missing at the end")
            << a
            << "in XmlInterlinkPlanningType (line 1, column 63): "
               "Unexpected token \"EndElement\": InterlinkPlanning."
            << "A"
            << "";
    }
    void interlinkOrder()
    {
        QFETCH(QString, names);
        QFETCH(QString, error);
        QFETCH(QString, first);
        QFETCH(QString, second);
        XmlInterlinkPlanningType link;
        QCOMPARE(KelXmlTest::read(link, wrap("InterlinkPlanning", names)), error);
        QCOMPARE(link.firstName(), first);
        QCOMPARE(link.secondName(), second);
    }
};

QTEST_GUILESS_MAIN(TestRequests)
#include "tst_requests.moc"
