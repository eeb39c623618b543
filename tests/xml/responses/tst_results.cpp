// Grid results, interlink results and result objects: the grid result that
// cannot read what it writes, the wrapper and type rules, the interlink
// result's flags, and the result object that refuses its own end tag.

#include "KelXmlTest.h"

#include <XmlGridResultType.h>
#include <XmlInterlinkResultType.h>
#include <XmlResultObjectType.h>

#include <QtTest>

using namespace KelXml;
using KelXmlTest::block;

namespace {

const QString planning =
    "<Parameters><FirstName>A</FirstName><SecondName>B</SecondName></Parameters>";

// The located error's class and message, without line and column.
QString where(const QString& error)
{
    const QRegularExpression located("^in (\\w+) \\(line \\d+, column \\d+\\): (.*)\\.$");
    const QRegularExpressionMatch match = located.match(error);
    return match.hasMatch() ? match.captured(1) + ": " + match.captured(2) : error;
}

} // namespace

class TestResults : public QObject
{
    Q_OBJECT

private slots:
    // Every object held is written in its own wrapper, in a fixed order and
    // with the file name; reading that back fails in the parameter object,
    // which reads under the wrapper's name and meets the "Parameter" end tag.
    void gridWritingAndReadingBack()
    {
        XmlGridResultType grid;
        grid.setType(XmlGridResultType::FindSites);
        grid.setScreenshotFilename("a.png");
        grid.setCep(XmlCepType());
        grid.setFindSites(XmlFindSitesType());
        const QString written = KelXmlTest::write(grid, "G");
        const QString file = "<ScreenshotFilename>a.png</ScreenshotFilename>";
        QCOMPARE(written, "<G type=\"FindSites\"><FindPossibleSites>" +
                              KelXmlTest::write(XmlFindSitesType(), "Parameter") + file +
                              "</FindPossibleSites><CEP>" +
                              KelXmlTest::write(XmlCepType(), "Parameter") + file + "</CEP></G>");
        XmlGridResultType read;
        QCOMPARE(where(KelXmlTest::read(read, written)),
                 QString("XmlFindSitesType: Unexpected token \"EndElement\": Parameter"));
        QVERIFY(read.hasFindSites() && !read.hasCep() && read.screenshotFilename().isEmpty());
    }

    void gridReading_data()
    {
        QTest::addColumn<QString>("xml");
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("error");
        const QString in = "XmlGridResultType: ";
        QTest::newRow("foreign wrapper")
            << "<G type=\"CEP\"><FindPossibleSites/></G>" << 2
            << in + "Unexpected token \"StartElement\": FindPossibleSites";
        QTest::newRow("file first")
            << "<G type=\"CEP\"><CEP><ScreenshotFilename/><Parameter/></CEP></G>" << 2
            << in + "Unexpected token \"StartElement\": ScreenshotFilename";
        QTest::newRow("empty wrapper")
            << "<G type=\"CEP\"><CEP/></G>" << 2 << in + "Unexpected token \"EndElement\": G";
    }
    void gridReading()
    {
        QFETCH(QString, xml);
        XmlGridResultType grid;
        grid.setType(XmlGridResultType::BestSensorCov);
        QTEST(where(KelXmlTest::read(grid, xml)), "error");
        QTEST(int(grid.type()), "type");
    }

    // The type's own object and no other; a type beyond the table passes.
    // Type 3 holds default detection and DF coverage requests.
    void gridReport()
    {
        const auto report = [](int type) {
            XmlGridResultType grid;
            grid.setType(XmlGridResultType::ResultType(type));
            grid.setScreenshotFilename(type ? "grid.png" : "");
            if (type == XmlGridResultType::DetectProb) {
                grid.setDfCov(XmlDfCovType());
                grid.setDetectProb(XmlDetectProbType());
            }
            return grid.syntaxError();
        };
        const auto in = [](const QStringList& list) { return block("XmlGridResultType", list); };
        const QString mismatch = "Type is '%1' but no %1 parameters or other parameters found";
        QCOMPARE(report(1), in({mismatch.arg("FindSites")}));
        QCOMPARE(report(3), in({mismatch.arg("DetectProb"), XmlDetectProbType().syntaxError(),
                                XmlDfCovType().syntaxError()}));
        QCOMPARE(report(0), in({"Type not defined", "Screenshot path not set"}));
        QCOMPARE(report(6), QString());
    }

    void interlinkReading_data()
    {
        QTest::addColumn<QString>("xml");
        QTest::addColumn<QString>("error");
        const QString in = "XmlInterlinkResultType: ";
        const QString text = "<Text>ok</Text>",
                      file = "<ScreenshotFilename>l.png</ScreenshotFilename>";
        QTest::newRow("Parameters after an empty Result")
            << "<Result/>" + planning + "<Result>" + text + "</Result>" << QString();
        QTest::newRow("Result first") << "<Result>" + text + "</Result>" + planning
                                      << in + "Unexpected token \"StartElement\": Parameters";
        QTest::newRow("Text after file") << planning + "<Result>" + file + text + "</Result>"
                                         << in + "Unexpected token \"StartElement\": Text";
        QTest::newRow("no Text") << planning + "<Result>" + file + "</Result>"
                                 << in + "Unexpected token \"EndElement\": I";
    }
    void interlinkReading()
    {
        QFETCH(QString, xml);
        XmlInterlinkResultType result;
        QTEST(where(KelXmlTest::read(result, "<I>" + xml + "</I>")), "error");
    }

    // No file name is written when empty; the planning's report comes first.
    void interlinkEmpty()
    {
        XmlInterlinkResultType result;
        QVERIFY(!KelXmlTest::write(result, "I").contains("Screenshot"));
        QCOMPARE(result.syntaxError(),
                 block("XmlInterlinkResultType",
                       {XmlInterlinkPlanningType().syntaxError(), "Missing Result Text"}));
    }

    // One object is read in full, then the result object refuses its own end
    // tag all the same; an object of another kind stays; a second is refused.
    void resultObject()
    {
        const QString emitter = KelXmlTest::write(XmlEmitterType(), "Emitter");
        XmlResultObjectType object;
        object.setDf(XmlDfType());
        QCOMPARE(where(KelXmlTest::read(object, "<Station>" + emitter + "</Station>")),
                 QString("XmlResultObjectType: Unexpected token \"EndElement\": Station"));
        QVERIFY(object.hasEmitter() && object.hasDf());
        QCOMPARE(where(KelXmlTest::read(object, "<Station>" + emitter + "<DF/></Station>")),
                 QString("XmlResultObjectType: Unexpected element \"DF\""));
    }
};

QTEST_APPLESS_MAIN(TestResults)
#include "tst_results.moc"
