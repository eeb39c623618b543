// The propagation models' parameter sets: the unusual bounds, messages and
// class names, the report order, a fallback, which set starts reading from
// its defaults, and the writers.

#include "KelXmlTest.h"

#include <XmlElementRegistry.h>
#include <XmlPropModelHataType.h>
#include <XmlPropModelITMType.h>
#include <XmlPropModelP1546Type.h>
#include <XmlPropModelP526Type.h>
#include <XmlPropModelP533Type.h>

#include <QtTest>

#include <memory>

using namespace KelXml;
using KelXmlTest::block;
using KelXmlTest::located;

namespace {

// A fresh set of the class a short key names, and the class name its
// messages carry.
std::unique_ptr<IXmlElement> make(const QString& key)
{
    return XmlElementRegistry::create("XmlPropModel" + key + "Type");
}
QString classname(const QString& key)
{
    static const QMap<QString, QString> names{
        {"Hata", "XmlPropModelHataType"},   {"OLOS", "XmlPropModelOLOSType"},
        {"P1546", "XmlPropModelP1546Type"}, {"P452", "XmlPropModelP542Type"},
        {"P526", "XmlPropModelP526Type"},   {"P533", "XmlPropModelP526Type"},
    };
    return names.value(key);
}

} // namespace

class TestParamSets : public QObject
{
    Q_OBJECT

private slots:
    // Undefined enumerations are reported after the bounds, in ITM climate
    // before polarisation.
    void undefinedChoices()
    {
        XmlPropModelHataType hata;
        hata.setCitySize(XmlPropModelHataType::SizeUndefined);
        hata.setAreaType(XmlPropModelHataType::AreaUndefined);
        hata.setKfactor(0.0);
        QCOMPARE(hata.syntaxError(),
                 block("XmlPropModelHataType",
                       {"Kfactor out of bounds", "Illegal AreaType", "Illegal CitySize"}));
        XmlPropModelITMType itm;
        itm.setSurface(XmlPropModelITMType::SurfaceUndefined);
        itm.setPol(XmlPropModelITMType::PolarisationUndefined);
        itm.setClimate(XmlPropModelITMType::ClimateUndefined);
        itm.setRRI(-300.5);
        QCOMPARE(itm.syntaxError(),
                 block("XmlPropModelITMType", {"RRI out of bounds", "Illegal climate",
                                               "Illegal polarisation", "Illegal surface"}));
    }

    // Unusual edges and messages, and the class name that errors and reports
    // carry; a '|' marks where a reading error is located. The report lists
    // failures in the class's order.
    void reading_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("children");
        QTest::addColumn<QString>("error");
        QTest::addColumn<QStringList>("report");
        const auto row = [](const char* name, const char* key, const char* children,
                            const QString& error, const QStringList& report) {
            QTest::newRow(name) << QString(key) << QString(children) << error << report;
        };
        const QString none;
        row("OLOS out", "OLOS", "<K-factor>5.0001</K-factor><MaxRange_km>0.0999</MaxRange_km>",
            none, {"K-factor out of bounds", "Range out of bounds"});
        row("P1546 high", "P1546", "<BoardAntGain>99.999</BoardAntGain>", none, {});
        row("P1546 out", "P1546", "<LocVar>0.99</LocVar><BoardAntGain>100</BoardAntGain>", none,
            {"LocVar out of bounds", "BroadAntGain out of bounds"});
        row("P452 out", "P452", "<DeltaN>600.1</DeltaN><DistRxCoast_km>40000.1</DistRxCoast_km>",
            none, {"DeltaN out of bounds", "DistRxCoast_km out of bounds"});
        row("P526 written name", "P526", "<Polarisation>|Vertical</Polarisation>",
            "Unexpected token \"StartElement\": Polarisation", {});
        row("P533 high", "P533",
            "<K-factor>5</K-factor><SmoothedSunSpotNumber>999.9</SmoothedSunSpotNumber>", none, {});
        row("P533 out", "P533",
            "<K-factor>0.0999</K-factor><SmoothedSunSpotNumber>1000</SmoothedSunSpotNumber>", none,
            {"K-factor out of bounds", "SmoothedSunSpotNumber out of bounds"});
        row("P533 bad sunspots", "P533", "<SmoothedSunSpotNumber>many</SmoothedSunSpotNumber>|",
            "Illegal SmoothedSunSpotNumber value (must be numeric)", {});
        row("Hata bad K-factor", "Hata", "<K-factor>x</K-factor>|",
            "Illegal Kfactor value (must be numeric)", {});
        row("P1546 Undefined", "P1546", "<PropPathType>Undefined</PropPathType>", none, {});
        row("P1546 UNDEFINED", "P1546", "<PropPathType>UNDEFINED</PropPathType>|",
            "Illegal enum for PropPathType", {});
    }
    void reading()
    {
        QFETCH(QString, key);
        QFETCH(QString, children);
        QFETCH(QString, error);
        QFETCH(QStringList, report);
        const auto set = make(key);
        const QString xml = "<P>" + children + "</P>";
        QCOMPARE(KelXmlTest::read(*set, QString(xml).remove('|')),
                 error.isEmpty() ? QString() : located(classname(key), 1, xml.indexOf('|'), error));
        QCOMPARE(set->isValid(), report.isEmpty());
        QCOMPARE(set->syntaxError(), report.isEmpty() ? QString() : block(classname(key), report));
    }

    // A bad gain takes a fallback other than the default and leaves the field unset.
    void gainFallback()
    {
        XmlPropModelP1546Type p1546;
        KelXmlTest::read(p1546, "<P><BoardAntGain>x</BoardAntGain></P>");
        QCOMPARE(p1546.broadAntGain(), 50.0);
        QVERIFY(!p1546.hasBroadAntGain());
    }

    // Hata starts reading from its defaults, even when the reading fails;
    // the other sets keep a field that the document does not carry.
    void keepsOrResets_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("xml");
        QTest::addColumn<QString>("written");
        QTest::newRow("Hata resets") << "Hata"
                                     << "<AreaType>Urban</AreaType>"
                                     << "<CitySize>x</CitySize>"
                                     << "";
        QTest::newRow("OLOS keeps")
            << "OLOS"
            << "<MaxRange_km>9</MaxRange_km>"
            << "<K-factor>2</K-factor>"
            << "<K-factor>2.0000</K-factor><MaxRange_km>9.000</MaxRange_km>";
    }
    void keepsOrResets()
    {
        QFETCH(QString, key);
        QFETCH(QString, before);
        QFETCH(QString, xml);
        QFETCH(QString, written);
        const auto set = make(key);
        QCOMPARE(KelXmlTest::read(*set, "<P>" + before + "</P>"), QString());
        KelXmlTest::read(*set, "<P>" + xml + "</P>");
        QCOMPARE(KelXmlTest::write(*set, "P"),
                 written.isEmpty() ? "<P/>" : "<P>" + written + "</P>");
    }

    // Hata writes its K-factor under the set's own name and P.526 writes
    // names that its reader refuses; values outside an enumeration are
    // written with that enumeration's own fallback text.
    void writers()
    {
        XmlPropModelHataType hata;
        hata.setCitySize(XmlPropModelHataType::Size(4));
        hata.setKfactor(1.5);
        const QString okumura = KelXmlTest::write(hata, "PropertiesOkumura");
        QCOMPARE(okumura, "<PropertiesOkumura><PropertiesOkumura>1.5000</PropertiesOkumura>"
                          "<CitySize>UNDEFINED</CitySize></PropertiesOkumura>");
        QCOMPARE(KelXmlTest::read(hata, okumura),
                 located("XmlPropModelHataType", 1, 38,
                         "Unexpected token \"StartElement\": PropertiesOkumura"));

        XmlPropModelP526Type p526;
        p526.setSubPath(XmlPropModelP526Type::Switch(2));
        p526.setSmooth(XmlPropModelP526Type::Switch(2));
        p526.setSurf(XmlPropModelP526Type::SurfaceCondition(-1));
        p526.setPol(XmlPropModelP526Type::Polarisation(2));
        QCOMPARE(
            KelXmlTest::write(p526, "P"),
            "<P><Polarisation>Horizontal</Polarisation>"
            "<Surface Condition>Average Ground</Surface Condition>"
            "<Assume Smooth Earth for complete path>Off</Assume Smooth Earth for complete path>"
            "<Include sub path diffraction loss>On</Include sub path diffraction loss></P>");

        XmlPropModelP1546Type p1546;
        p1546.setPath(XmlPropModelP1546Type::Path(-1));
        p1546.setRxAntE(XmlPropModelP1546Type::EnvironmentWarmSea);
        p1546.setAvgAreaE(XmlPropModelP1546Type::Environment(4));
        p1546.setCorrection(XmlPropModelP1546Type::Switch(2));
        QCOMPARE(
            KelXmlTest::write(p1546, "P"),
            "<P><PropPathType>Undefined</PropPathType><RxAntEnviro>Warm Sea</RxAntEnviro>"
            "<AvgAreaEnviro>Undefined</AvgAreaEnviro><PathCorrection>Off</PathCorrection></P>");
    }
};

QTEST_GUILESS_MAIN(TestParamSets)
#include "tst_paramsets.moc"
