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
    void modelTexts()
    {
        XmlPropModelEnumType selected;
        selected.setModel(XmlPropModelEnumType::Itm);
        QCOMPARE(KelXmlTest::read(selected, "<S>P.5<!-- -->33</S>"), QString());
        QCOMPARE(KelXmlTest::write(selected, "S") + selected.syntaxError(), "<S>P.533</S>");
        selected.setModel(XmlPropModelEnumType::Itm);
        QCOMPARE(KelXmlTest::read(selected, "<S>ITM </S>"),
                 KelXmlTest::located("XmlPropModelEnumType", 1, 11, "Illegal enum value."));
        QCOMPARE(int(selected.model()), 0);
        QCOMPARE(KelXmlTest::write(selected, "S"), "<S>UNDEFINED</S>");
        QCOMPARE(selected.syntaxError(), block("XmlPropModelEnumType", {"No model selected."}));
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
        const auto row = [](const char* tag, bool command, const QString& content,
                            const char* error, const char* held) {
            QTest::newRow(tag) << command << content << QString(error) << QString(held);
        };
        row("set, model", true, itm + model, "Unexpected element \"SelectModel\"", "I");
        row("set after reference", true, reference + itm, "Unexpected element \"PropertiesITM\"",
            "");
        row("not a command", false, model + itm, "", "MI");
        row("reference, not a command", false, reference, "Unexpected element \"Reference\"", "");
    }
    void selectionReading()
    {
        QFETCH(bool, command);
        QFETCH(QString, content);
        QFETCH(QString, error);
        XmlPropModelType selection(command);
        const QString read = KelXmlTest::read(selection, "<PM>" + content + "</PM>");
        QVERIFY2(error.isEmpty() ? read.isEmpty()
                                 : read.startsWith("in XmlPropModelType (") &&
                                       read.endsWith("): " + error + '.'),
                 qPrintable(read));
        QTEST(held(selection), "held");
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
    void report()
    {
        const auto report = [](bool command) {
            XmlPropModelType selection(command);
            XmlPropModelHataType hata;
            hata.setAreaType(XmlPropModelHataType::AreaUndefined);
            selection.setHata(hata);
            XmlPropModelFSType freespace;
            freespace.setKfactor(5.0001);
            selection.setFreespace(freespace);
            selection.setModel(XmlPropModelEnumType());
            return selection.isValid() ? QString() : selection.syntaxError();
        };
        const QString model = block("XmlPropModelEnumType", {"No model selected."});
        const QString freespace = block("XmlPropModelFSType", {"K-factor out of bounds"});
        const QString hata = block("XmlPropModelHataType", {"Illegal AreaType"});
        const QString ref = block("XmlreferenceType", {"String too short (min. 1)"});
        const QString count = "Illegal number of elements.";
        QCOMPARE(report(true), block("XmlPropModelType", {model, ref, freespace, hata, count}));
        QCOMPARE(report(false), block("XmlPropModelType", {model, freespace, hata, count}));
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
