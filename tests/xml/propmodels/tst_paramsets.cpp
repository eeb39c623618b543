// The propagation models' parameter sets: bounds at their exact edges and the
// report order, what a bad text does to a field, which children may repeat,
// which set starts reading from its defaults, and the writers.

#include "KelXmlTest.h"

#include <XmlPropModelFSType.h>
#include <XmlPropModelHataType.h>
#include <XmlPropModelITMType.h>
#include <XmlPropModelOLOSType.h>
#include <XmlPropModelP1546Type.h>
#include <XmlPropModelP452Type.h>
#include <XmlPropModelP526Type.h>
#include <XmlPropModelP533Type.h>

#include <QtTest>

#include <functional>
#include <memory>

using namespace KelXml;
using KelXmlTest::block;
using KelXmlTest::located;

namespace {

using Set = std::shared_ptr<XmlParamSet>;

// A fresh set of the class a short key names, and the class name text that
// its messages carry.
Set make(const QString& key)
{
    static const QMap<QString, std::function<Set()>> makers{
        {"FS", [] { return std::make_shared<XmlPropModelFSType>(); }},
        {"Hata", [] { return std::make_shared<XmlPropModelHataType>(); }},
        {"OLOS", [] { return std::make_shared<XmlPropModelOLOSType>(); }},
        {"ITM", [] { return std::make_shared<XmlPropModelITMType>(); }},
        {"P1546", [] { return std::make_shared<XmlPropModelP1546Type>(); }},
        {"P452", [] { return std::make_shared<XmlPropModelP452Type>(); }},
        {"P526", [] { return std::make_shared<XmlPropModelP526Type>(); }},
        {"P533", [] { return std::make_shared<XmlPropModelP533Type>(); }},
    };
    return makers.value(key)();
}
QString classname(const QString& key)
{
    static const QMap<QString, QString> names{
        {"FS", "XmlPropModelFSType"},       {"Hata", "XmlPropModelHataType"},
        {"OLOS", "XmlPropModelOLOSType"},   {"ITM", "XmlPropModelITMType"},
        {"P1546", "XmlPropModelP1546Type"}, {"P452", "XmlPropModelP542Type"},
        {"P526", "XmlPropModelP526Type"},   {"P533", "XmlPropModelP526Type"},
    };
    return names.value(key);
}

// What reading a document left in one field of a set.
struct Outcome
{
    QString error;
    double value;
    bool has;
};
using Probe = std::function<Outcome(const QString& xml)>;

template <class T, class V>
Probe probe(V (T::*get)() const, bool (T::*has)() const)
{
    return [get, has](const QString& xml) {
        T set;
        const QString error = KelXmlTest::read(set, xml);
        return Outcome{error, double((set.*get)()), (set.*has)()};
    };
}

QString refused(const char* tag)
{
    return QStringLiteral("Unexpected token \"StartElement\": %1").arg(QLatin1String(tag));
}

} // namespace

Q_DECLARE_METATYPE(Probe)

class TestParamSets : public QObject
{
    Q_OBJECT

private slots:
    // Bounds hold inclusively at both ends (a NaN is neither below nor
    // above); the report lists the failures in the class's order.
    void bounds_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("children");
        QTest::addColumn<QStringList>("messages");
        const auto row = [](const char* name, const char* key, const char* children,
                            const QStringList& messages = {}) {
            QTest::newRow(name) << QString::fromLatin1(key) << QString::fromLatin1(children)
                                << messages;
        };
        row("FS low", "FS", "<K-factor>0.1</K-factor>");
        row("FS high", "FS", "<K-factor>5.0</K-factor>");
        row("FS NaN", "FS", "<K-factor>nan</K-factor>");
        row("FS below", "FS", "<K-factor>0.0999</K-factor>", {"K-factor out of bounds"});
        row("OLOS low", "OLOS", "<K-factor>0.1</K-factor><MaxRange_km>0.1</MaxRange_km>");
        row("OLOS high", "OLOS", "<K-factor>5</K-factor><MaxRange_km>50</MaxRange_km>");
        row("OLOS out", "OLOS", "<K-factor>5.0001</K-factor><MaxRange_km>0.0999</MaxRange_km>",
            {"K-factor out of bounds", "Range out of bounds"});
        row("ITM low", "ITM", "<RRI>-300</RRI><Conf>0</Conf><Time>0</Time>");
        row("ITM high", "ITM", "<RRI>400</RRI><Conf>100</Conf><Time>100</Time>");
        row("ITM out", "ITM", "<RRI>400.5</RRI><Conf>-0.01</Conf><Time>100.01</Time>",
            {"RRI out of bounds", "Conf out of bounds", "Time out of bounds"});
        row("P1546 low", "P1546",
            "<K-factor>0.1</K-factor><TimePct>0.01</TimePct><LocVar>1</LocVar>"
            "<BoardAntGain>0</BoardAntGain>");
        row("P1546 high", "P1546",
            "<K-factor>5</K-factor><TimePct>50</TimePct><LocVar>99</LocVar>"
            "<BoardAntGain>99.999</BoardAntGain>");
        row("P1546 out", "P1546",
            "<K-factor>0.0999</K-factor><TimePct>50.01</TimePct><LocVar>0.99</LocVar>"
            "<BoardAntGain>100</BoardAntGain>",
            {"K-factor out of bounds", "TimePct out of bounds", "LocVar out of bounds",
             "BroadAntGain out of bounds"});
        row("P452 low", "P452",
            "<SurfaceRefract>250</SurfaceRefract><TimePct>0.01</TimePct>"
            "<Pressure_hPa>800</Pressure_hPa><Temp_C>-60</Temp_C><Inland_km>0</Inland_km>");
        row("P452 high", "P452",
            "<DeltaN>600</DeltaN><SurfaceRefract>400</SurfaceRefract><TimePct>50</TimePct>"
            "<Pressure_hPa>1100</Pressure_hPa><Temp_C>50</Temp_C><Inland_km>40000</Inland_km>");
        row("P452 out", "P452",
            "<DeltaN>600.1</DeltaN><SurfaceRefract>401</SurfaceRefract><TimePct>0</TimePct>"
            "<Pressure_hPa>799</Pressure_hPa><Temp_C>-61</Temp_C>"
            "<OverWater_km>40000.1</OverWater_km><InlandCoastal_km>-0.1</InlandCoastal_km>"
            "<Inland_km>40000.1</Inland_km><DistTxCoast_km>-0.1</DistTxCoast_km>"
            "<DistRxCoast_km>40000.1</DistRxCoast_km>",
            {"DeltaN out of bounds", "SurfaceRefract out of bounds", "TimePct out of bounds",
             "Pressure_hPa out of bounds", "Temp_C out of bounds", "OverWater_km out of bounds",
             "InlandCoastal_km out of bounds", "Inland_km out of bounds",
             "DistTxCoast_km out of bounds", "DistRxCoast_km out of bounds"});
        row("P526 only the K-factor", "P526", "<K-factor>5.0001</K-factor>",
            {"K-factor out of bounds"});
        row("P533 low", "P533",
            "<K-factor>0.1</K-factor><SmoothedSunSpotNumber>0</SmoothedSunSpotNumber>");
        row("P533 high", "P533",
            "<K-factor>5</K-factor><SmoothedSunSpotNumber>999.9</SmoothedSunSpotNumber>");
        row("P533 out", "P533",
            "<K-factor>0.0999</K-factor><SmoothedSunSpotNumber>1000</SmoothedSunSpotNumber>",
            {"K-factor out of bounds", "SmoothedSunSpotNumber out of bounds"});
    }
    void bounds()
    {
        QFETCH(QString, key);
        QFETCH(QString, children);
        QFETCH(QStringList, messages);
        const Set set = make(key);
        QCOMPARE(KelXmlTest::read(*set, "<P>" + children + "</P>"), QString());
        QCOMPARE(set->isValid(), messages.isEmpty());
        QCOMPARE(set->syntaxError(),
                 messages.isEmpty() ? QString() : block(classname(key), messages));
    }

    // An undefined enumeration is refused once set, and reported after the
    // bounds: in ITM climate comes before polarisation.
    void undefinedChoices()
    {
        XmlPropModelHataType hata;
        hata.setCitySize(XmlPropModelHataType::SizeUndefined);
        QCOMPARE(hata.syntaxError(), block("XmlPropModelHataType", {"Illegal CitySize"}));
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
        QVERIFY(!itm.isValid());
        QCOMPARE(itm.syntaxError(),
                 block("XmlPropModelITMType", {"RRI out of bounds", "Illegal climate",
                                               "Illegal polarisation", "Illegal surface"}));
    }

    // What a document leaves in one field: a good text sets it; a bad one
    // takes the fallback, leaves the field unset and raises the field's
    // message; a child out of order, or repeated where it may not be, is
    // refused before it is read. A '|' marks where the error is located.
    void reading_data()
    {
        QTest::addColumn<Probe>("probe");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("children");
        QTest::addColumn<QString>("message");
        QTest::addColumn<double>("value");
        QTest::addColumn<bool>("has");
        const auto row = [](const char* name, const Probe& probe, const char* key,
                            const char* children, const QString& message, double value, bool has) {
            QTest::newRow(name) << probe << QString::fromLatin1(key)
                                << QString::fromLatin1(children) << message << value << has;
        };
        const QString none;
        using F = XmlPropModelFSType;
        row("FS K-factor repeats", probe(&F::Kfactor, &F::hasKfactor), "FS",
            "<K-factor>2</K-factor><K-factor>3</K-factor>", none, 3.0, true);
        row("FS bad after good", probe(&F::Kfactor, &F::hasKfactor), "FS",
            "<K-factor>2</K-factor><K-factor>abc</K-factor>|",
            "Illegal K-factor value (must be numeric)", 1.3333, false);
        using H = XmlPropModelHataType;
        row("Hata bad K-factor", probe(&H::Kfactor, &H::hasKfactor), "Hata",
            "<K-factor>x</K-factor>|", "Illegal Kfactor value (must be numeric)", 1.3333, false);
        row("Hata K-factor twice", probe(&H::Kfactor, &H::hasKfactor), "Hata",
            "<K-factor>2</K-factor><K-factor>|3</K-factor>", refused("K-factor"), 2.0, true);
        row("Hata lower case", probe(&H::areaType, &H::hasAreaType), "Hata",
            "<AreaType>urban</AreaType>|", "Illegal value for \"AreaType\"", 0.0, false);
        row("Hata AreaType late", probe(&H::areaType, &H::hasAreaType), "Hata",
            "<K-factor>1</K-factor><CitySize>Small</CitySize><AreaType>|Urban</AreaType>",
            refused("AreaType"), 0.0, false);
        using O = XmlPropModelOLOSType;
        row("OLOS K-factor repeats", probe(&O::Kfactor, &O::hasKfactor), "OLOS",
            "<K-factor>2</K-factor><K-factor>3</K-factor><MaxRange_km>9</MaxRange_km>", none, 3.0,
            true);
        row("OLOS K-factor after range", probe(&O::Kfactor, &O::hasKfactor), "OLOS",
            "<MaxRange_km>9</MaxRange_km><K-factor>|2</K-factor>", refused("K-factor"), 1.0, false);
        row("OLOS bad K-factor", probe(&O::Kfactor, &O::hasKfactor), "OLOS",
            "<K-factor>abc</K-factor>|", "Illegal K-factor value (must be numeric)", 1.0, false);
        using I = XmlPropModelITMType;
        row("ITM comma text", probe(&I::climate, &I::hasClimate), "ITM",
            "<Climate>Maritime Temperate, Land</Climate>", none, 6.0, true);
        using P = XmlPropModelP1546Type;
        row("P1546 first four repeat", probe(&P::locVar, &P::hasLocVar), "P1546",
            "<K-factor>1</K-factor><K-factor>2</K-factor><TimePct>1</TimePct><TimePct>2</TimePct>"
            "<PropPathType>Land</PropPathType><PropPathType>Land</PropPathType>"
            "<LocVar>3</LocVar><LocVar>4</LocVar>",
            none, 4.0, true);
        row("P1546 Undefined", probe(&P::path, &P::hasPath), "P1546",
            "<PropPathType>Undefined</PropPathType>", none, 0.0, true);
        row("P1546 UNDEFINED", probe(&P::path, &P::hasPath), "P1546",
            "<PropPathType>UNDEFINED</PropPathType>|", "Illegal enum for PropPathType", 0.0, false);
        row("P1546 Warm Sea", probe(&P::rxAntE, &P::hasRxAntE), "P1546",
            "<RxAntEnviro>Warm Sea</RxAntEnviro>", none, 3.0, true);
        row("P1546 bad gain", probe(&P::broadAntGain, &P::hasBroadAntGain), "P1546",
            "<BoardAntGain>x</BoardAntGain>|", "Illegal BoardAntGain value (must be numeric)", 50.0,
            false);
        row("P1546 LocVar after gain", probe(&P::locVar, &P::hasLocVar), "P1546",
            "<BoardAntGain>1</BoardAntGain><LocVar>|2</LocVar>", refused("LocVar"), 50.0, false);
        using Q = XmlPropModelP452Type;
        row("P452 decimal integer", probe(&Q::surfaceRefract, &Q::hasSurfaceRefract), "P452",
            "<SurfaceRefract>329.5</SurfaceRefract>|",
            "Illegal SurfaceRefract value (must be numeric)", 329.0, false);
        using R = XmlPropModelP526Type;
        row("P526 lower case", probe(&R::surf, &R::hasSurf), "P526",
            "<Surface>sea water</Surface>|", "Illegal enum for Surface", 0.0, false);
        row("P526 bad switch keeps On", probe(&R::subPath, &R::hasSubPath), "P526",
            "<IncludeSubPathDiffractionLoss>yes</IncludeSubPathDiffractionLoss>|",
            "Illegal enum for IncludeSubPathDiffractionLoss", 1.0, false);
        row("P526 written name", probe(&R::pol, &R::hasPol), "P526",
            "<Polarisation>|Vertical</Polarisation>", refused("Polarisation"), 0.0, false);
        using S = XmlPropModelP533Type;
        row("P533 bad sunspots", probe(&S::sunSpots, &S::hasSunSpots), "P533",
            "<K-factor>2</K-factor><SmoothedSunSpotNumber>many</SmoothedSunSpotNumber>|",
            "Illegal SmoothedSunSpotNumber value (must be numeric)", 5.0, false);
    }
    void reading()
    {
        QFETCH(Probe, probe);
        QFETCH(QString, key);
        QFETCH(QString, children);
        QFETCH(QString, message);
        QFETCH(double, value);
        QFETCH(bool, has);
        const QString xml = "<P>" + children + "</P>";
        const Outcome outcome = probe(QString(xml).remove('|'));
        QCOMPARE(outcome.error, message.isEmpty()
                                    ? QString()
                                    : located(classname(key), 1, xml.indexOf('|'), message));
        QCOMPARE(outcome.value, value);
        QCOMPARE(outcome.has, has);
    }

    // Values are written in the table's order and number format, and these
    // sets read their own output back.
    void format_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("input");
        QTest::addColumn<QString>("output");
        QTest::newRow("OLOS") << "OLOS"
                              << "<K-factor>.5</K-factor><MaxRange_km>12.3456</MaxRange_km>"
                              << "<K-factor>0.5000</K-factor><MaxRange_km>12.346</MaxRange_km>";
        QTest::newRow("ITM") << "ITM"
                             << "<RRI>-1</RRI><Pol>V</Pol><Conf>7</Conf>"
                             << "<RRI>-1.0000</RRI><Pol>V</Pol><Conf>7.00</Conf>";
        QTest::newRow("P1546")
            << "P1546"
            << "<K-factor>1.3333</K-factor><LocVar>12.346</LocVar><BoardAntGain>1.2346</"
               "BoardAntGain>"
               "<PathTypeForRxAnt>Cold Sea</PathTypeForRxAnt>"
            << "<K-factor>1.333</K-factor><LocVar>12.35</LocVar><BoardAntGain>1.235</BoardAntGain>"
               "<PathTypeForRxAnt>Cold Sea</PathTypeForRxAnt>";
        QTest::newRow("P452")
            << "P452"
            << "<DeltaN>45.59</DeltaN><Temp_C>+7</Temp_C><Inland_km>1e1</Inland_km>"
            << "<DeltaN>45.6</DeltaN><Temp_C>7</Temp_C><Inland_km>10.0</Inland_km>";
        QTest::newRow("P533")
            << "P533"
            << "<K-factor>1</K-factor><SmoothedSunSpotNumber>5.55</SmoothedSunSpotNumber>"
            << "<K-factor>1.000</K-factor><SmoothedSunSpotNumber>5.5</SmoothedSunSpotNumber>";
    }
    void format()
    {
        QFETCH(QString, key);
        QFETCH(QString, input);
        QFETCH(QString, output);
        const Set set = make(key);
        QCOMPARE(KelXmlTest::read(*set, "<P>" + input + "</P>"), QString());
        QCOMPARE(KelXmlTest::write(*set, "P"), "<P>" + output + "</P>");
        set->reset();
        QCOMPARE(KelXmlTest::read(*set, "<P>" + output + "</P>"), QString());
        QCOMPARE(KelXmlTest::write(*set, "P"), "<P>" + output + "</P>");
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
                 located("XmlPropModelHataType", 1, 38, refused("PropertiesOkumura")));

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
        p526.setPol(XmlPropModelP526Type::Vertical);
        QVERIFY(KelXmlTest::write(p526, "P").startsWith("<P><Polarisation>Vertical<"));

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

    // Hata starts reading from its defaults, even when the reading fails; the
    // other sets keep a field that the document does not carry.
    void keepsOrResets_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("xml");
        QTest::addColumn<QString>("after");
        QTest::newRow("Hata") << "Hata"
                              << "<AreaType>Urban</AreaType><CitySize>Large</CitySize>"
                              << "<CitySize>Small</CitySize>"
                              << "<CitySize>Small</CitySize>";
        QTest::newRow("Hata failing") << "Hata"
                                      << "<AreaType>Urban</AreaType>"
                                      << "<CitySize>x</CitySize>"
                                      << "";
        QTest::newRow("OLOS") << "OLOS"
                              << "<MaxRange_km>9</MaxRange_km>"
                              << "<K-factor>2</K-factor>"
                              << "<K-factor>2.0000</K-factor><MaxRange_km>9.000</MaxRange_km>";
    }
    void keepsOrResets()
    {
        QFETCH(QString, key);
        QFETCH(QString, before);
        QFETCH(QString, xml);
        QFETCH(QString, after);
        const Set set = make(key);
        QCOMPARE(KelXmlTest::read(*set, "<P>" + before + "</P>"), QString());
        KelXmlTest::read(*set, "<P>" + xml + "</P>");
        QCOMPARE(KelXmlTest::write(*set, "P"), after.isEmpty() ? "<P/>" : "<P>" + after + "</P>");
    }
};

QTEST_GUILESS_MAIN(TestParamSets)
#include "tst_paramsets.moc"
