// The propagation model selection: the model texts, the hand-made child
// order of both modes, what reading replaces, and the report and writing
// orders.

#include "KelXmlTest.h"

#include <XmlPropModelType.h>

#include <QtTest>

using namespace KelXml;
using KelXmlTest::block;

namespace {

const QString reference = QStringLiteral("<Reference>r</Reference>");

// The children a selection holds, as letters: M(odel), I(TM), 3 (P.533), H(ata).
QString held(const XmlPropModelType& s)
{
    return QString(s.hasModel() ? "M" : "") + (s.hasITM() ? "I" : "") + (s.hasP533() ? "3" : "") +
           (s.hasHata() ? "H" : "");
}

} // namespace

class TestPropModel : public QObject
{
    Q_OBJECT

private slots:
    // The whole element text, comments left out, must equal a model text
    // exactly; a refused text doubles the full stop.
    void modelTexts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("model");
        QTest::addColumn<QString>("written");
        QTest::newRow("around a comment") << "P.5<!-- -->33" << 7 << "P.533";
        QTest::newRow("trailing blank") << "ITM " << 0 << "UNDEFINED";
    }
    void modelTexts()
    {
        QFETCH(QString, text);
        QFETCH(int, model);
        QFETCH(QString, written);
        XmlPropModelEnumType selected;
        selected.setModel(XmlPropModelEnumType::Itm);
        const QString xml = "<S>" + text + "</S>";
        QCOMPARE(KelXmlTest::read(selected, xml),
                 model ? QString()
                       : KelXmlTest::located("XmlPropModelEnumType", 1, xml.size(),
                                             "Illegal enum value."));
        QCOMPARE(int(selected.model()), model);
        QCOMPARE(KelXmlTest::write(selected, "S"), "<S>" + written + "</S>");
        QCOMPARE(selected.syntaxError(),
                 model ? QString() : block("XmlPropModelEnumType", {"No model selected."}));
    }

    // The model first if at all, then at most one parameter set, then the
    // reference, which command mode needs and the other mode refuses.
    void selectionReading_data()
    {
        QTest::addColumn<bool>("command");
        QTest::addColumn<QString>("content");
        QTest::addColumn<QString>("error");
        QTest::addColumn<QString>("held");
        const QString model = "<SelectModel>ITM</SelectModel>", itm = "<PropertiesITM/>";
        QTest::newRow("set, model") << true << itm + model << "Unexpected element \"SelectModel\""
                                    << "I";
        QTest::newRow("set after reference")
            << true << reference + itm << "Unexpected element \"PropertiesITM\""
            << "";
        QTest::newRow("not a command") << false << model + itm << QString() << "MI";
        QTest::newRow("reference, not a command")
            << false << reference << "Unexpected element \"Reference\""
            << "";
    }
    void selectionReading()
    {
        QFETCH(bool, command);
        QFETCH(QString, content);
        QFETCH(QString, error);
        QFETCH(QString, held);
        XmlPropModelType selection(command);
        const QString read = KelXmlTest::read(selection, "<PM>" + content + "</PM>");
        QVERIFY2(error.isEmpty() ? read.isEmpty()
                                 : read.startsWith("in XmlPropModelType (") &&
                                       read.endsWith("): " + error + '.'),
                 qPrintable(read));
        QCOMPARE(::held(selection), held);
    }

    // Reading replaces the kinds it meets by fresh objects and keeps the rest;
    // two sets held are then a fault of content.
    void readingReplacesOnlyWhatItMeets()
    {
        XmlPropModelType selection(true);
        XmlPropModelEnumType itm;
        itm.setModel(XmlPropModelEnumType::Itm);
        selection.setModel(itm);
        XmlPropModelP452Type p452;
        p452.setDeltaN(45.59);
        selection.setP452(p452);
        selection.setFreespace(XmlPropModelFSType());
        selection.setOrderDef(XmlOrderDef::createValidInstance());
        QCOMPARE(KelXmlTest::read(selection, "<PM><PropertiesP452><TimePct>10</TimePct>"
                                             "</PropertiesP452>" +
                                                 reference + "</PM>"),
                 QString());
        QCOMPARE(selection.model()->model(), XmlPropModelEnumType::Itm);
        QVERIFY(!selection.P452()->hasDeltaN() && selection.P452()->hasTimePct());
        QVERIFY(selection.hasFreespace() && selection.hasOrderDef());
        QCOMPARE(selection.syntaxError(),
                 block("XmlPropModelType", {"Illegal number of elements."}));
    }

    // Nested report: model, reference (command mode only), sets in writing
    // order, then the count of sets.
    void report_data()
    {
        QTest::addColumn<bool>("command");
        QTest::addColumn<QStringList>("report");
        const QString model = block("XmlPropModelEnumType", {"No model selected."});
        const QString freespace = block("XmlPropModelFSType", {"K-factor out of bounds"});
        const QString hata = block("XmlPropModelHataType", {"Illegal AreaType"});
        const QString ref = block("XmlreferenceType", {"String too short (min. 1)"});
        const QString count = "Illegal number of elements.";
        QTest::newRow("command") << true << QStringList{model, ref, freespace, hata, count};
        QTest::newRow("not a command") << false << QStringList{model, freespace, hata, count};
    }
    void report()
    {
        QFETCH(bool, command);
        QFETCH(QStringList, report);
        XmlPropModelType selection(command);
        XmlPropModelHataType hata;
        hata.setAreaType(XmlPropModelHataType::AreaUndefined);
        selection.setHata(hata);
        XmlPropModelFSType freespace;
        freespace.setKfactor(5.0001);
        selection.setFreespace(freespace);
        selection.setModel(XmlPropModelEnumType());
        QVERIFY(!selection.isValid());
        QCOMPARE(selection.syntaxError(), block("XmlPropModelType", report));
    }

    // Writing order is the table's; Hata travels as "PropertiesOkumura"; the
    // order definition is never written; reset() keeps the mode.
    void writingAndReset()
    {
        XmlPropModelType selection(true);
        XmlPropModelHataType hata;
        hata.setAreaType(XmlPropModelHataType::Urban);
        selection.setHata(hata);
        selection.setP533(XmlPropModelP533Type());
        XmlPropModelEnumType model;
        model.setModel(XmlPropModelEnumType::OkumuraHata);
        selection.setModel(model);
        selection.setOrderDef(XmlOrderDef::createValidInstance());
        QCOMPARE(KelXmlTest::write(selection, "PM"),
                 "<PM><SelectModel>Okumura-Hata</SelectModel><PropertiesP533/><PropertiesOkumura>"
                 "<AreaType>Urban</AreaType></PropertiesOkumura><Reference></Reference></PM>");
        selection.reset();
        QVERIFY(selection.isCommand() && !selection.hasOrderDef());
        QCOMPARE(held(selection), QString());

        XmlPropModelType plain(false);
        plain.setHata(hata);
        QCOMPARE(KelXmlTest::write(plain, "PM"),
                 "<PM><PropertiesOkumura><AreaType>Urban</AreaType></PropertiesOkumura></PM>");
    }
};

QTEST_GUILESS_MAIN(TestPropModel)
#include "tst_propmodel.moc"
