// The scalar measurement values and the direction-finding precision, made by
// class name: what each writes and reports after reading a text; typed checks
// only where a getter or setter matters.

#include <KelXmlTest.h>

#include <XmlBandwidthType.h>
#include <XmlDecibelType.h>
#include <XmlDegreesType.h>
#include <XmlDfPrecisionType.h>
#include <XmlElementRegistry.h>
#include <XmlFreqType.h>

#include <QtTest>

#include <cmath>

using namespace KelXml;
using KelXmlTest::located;

namespace {

const QString numeric = "Illegal value (must be numeric)", missing = "Missing attribute: \"unit\"",
              v2 = "Version \"2.0\" not supported", decibel = "Illegal decibel.",
              frequency = "Illegal frequency.", fieldstrength = "Illegal fieldstrength.",
              precision = "XmlDfPrecisionType: Illegal precision.",
              dfUnit = "XmlDfPrecisionType: Illegal unit.";

// The reader error is located on line 1 at the given column (none when 0);
// an empty xml is not read, an empty written text not compared.
void row(const char* cls, const char* xml, int column, const QString& error, const char* written,
         const QString& messages)
{
    QTest::addRow("%s %s", cls, xml)
        << QString(cls) << QString(xml) << (column ? located(cls, 1, column, error) : QString())
        << QString(written) << (messages.isEmpty() ? messages : KelXmlTest::block(cls, {messages}));
}

} // namespace

class TstMeasurements : public QObject
{
    Q_OBJECT

private slots:
    void reading_data()
    {
        QTest::addColumn<QString>("cls");
        QTest::addColumn<QString>("xml");
        QTest::addColumn<QString>("error");
        QTest::addColumn<QString>("written");
        QTest::addColumn<QString>("report");
        // Defaults, some invalid on purpose; -0.0 is written as 0.
        row("XmlDecibelType", "", 0, "", R"(<E version="1.0" unit="dB">0.000000</E>)", decibel);
        row("XmlDegreesType", "", 0, "", R"(<E version="1.0" unit="°">0.0</E>)", "");
        row("XmlFieldstrengthType", "", 0, "",
            R"(<E version="1.0" unit="dBm">-99999.998999999996158</E>)", fieldstrength);
        // A failed number stores the class's fallback; the column of a text
        // error lies one past the text. A version message comes first.
        // Levels: the unit is ignored; the lower bound is strict and
        // positive, and NaN passes.
        row("XmlDBMType", R"(<E unit="W">-50.5</E>)", 0, "",
            R"(<E version="1.0" unit="dBm">-50.500000000</E>)", decibel);
        row("XmlDBMType", R"(<E version="2.0">abc</E>)", 21, numeric,
            R"(<E version="2.0" unit="dBm">-110.000000000</E>)", v2 + '\n' + decibel);
        row("XmlDBMType", "<E>2.2250738585072014e-308</E>", 0, "", "", decibel);
        row("XmlDBMType", "<E>nan</E>", 0, "", R"(<E version="1.0" unit="dBm">nan</E>)", "");
        // Angles: bounded inclusively, reported with the decibel message.
        row("XmlDegreesType", "<E>12.34<x/></E>", 12, "Unexpected token \"StartElement\"",
            R"(<E version="1.0" unit="°">12.3</E>)", "");
        row("XmlDegreesType", "<E>90</E>", 0, "", "", "");
        row("XmlDegreesType", "<E>90.5</E>", 0, "", "", decibel);
        // A missing or empty unit stops reading; the version is still taken.
        row("XmlPowerType", R"(<E version="2.0">5</E>)", 17, missing,
            R"(<E version="2.0" unit="W">-9.900000000000000</E>)", v2);
        row("XmlPowerType", R"(<E unit="">5</E>)", 11, missing, "", "");
        row("XmlPowerType", R"(<E unit="W" a="1" version="2.0">5</E>)", 0, "",
            R"(<E version="2.0" unit="W">5.000000000000000</E>)", v2);
        row("XmlPowerType", R"(<E unit="W">-60</E>)", 0, "",
            R"(<E version="1.0" unit="W">-60.000000000000000</E>)", "");
        row("XmlPowerType", R"(<E unit="w">-60.001</E>)", 0, "", "",
            "Illegal power.\nIllegal unit.");
        row("XmlLengthType", R"(<E version="2.0" unit="cm">-2147483648</E>)", 0, "",
            R"(<E version="2.0" unit="cm">-2147483648</E>)",
            v2 + "\nIllegal unit (must be \"m\").");
        // The fallback is megahertz, written back in the unit read.
        row("XmlFreqType", "<E>5</E>", 3, missing, "", frequency);
        row("XmlFreqType", R"(<E unit="GHz">x</E>)", 16, numeric,
            R"(<E version="1.0" unit="GHz">-0.009900</E>)", frequency);
        row("XmlFreqType", R"(<E unit="MHz">0</E>)", 0, "", "", frequency);
        // Bandwidths are read as whole numbers although a double is held.
        row("XmlBandwidthType", R"(<E unit="kHz">1234567</E>)", 0, "",
            R"(<E version="1.0" unit="kHz">1.23457e+06</E>)", "");
        row("XmlBandwidthType", R"(<E unit="kHz">0</E>)", 0, "", "", "");
        row("XmlBandwidthType", R"(<E unit="kHz">12.5</E>)", 19, numeric,
            R"(<E version="1.0" unit="kHz">-1</E>)", precision);
        row("XmlBandwidthType", R"(<E unit="Hz">-3</E>)", 0, "", "", precision + '\n' + dfUnit);
        // SINAD has no unit and reports with the frequency message.
        row("XmlSinadType", R"(<E version="2.0" unit="dB">12</E>)", 0, "",
            R"(<E version="2.0">12.000000</E>)", v2);
        row("XmlSinadType", "<E>-</E>", 5, numeric, "", frequency);
        // The field-strength bound is strict and lies just above the default.
        row("XmlFieldstrengthType", R"(<E unit="dBW">-80</E>)", 0, "",
            R"(<E version="1.0" unit="dBW">-80.000000000000000</E>)", "Illegal unit.");
        row("XmlFieldstrengthType", R"(<E unit="dBm">-99999.989</E>)", 0, "", "", fieldstrength);
        row("XmlFieldstrengthType", R"(<E unit="dBm">-99999.988</E>)", 0, "", "", "");
        // Precision: -1 is the lowest valid value; a missing unit keeps "°".
        row("XmlDfPrecisionType", R"(<E unit="°">-1</E>)", 0, "",
            R"(<E version="1.0" unit="°">-1</E>)", "");
        row("XmlDfPrecisionType", "<E>4</E>", 3, missing, "", precision);
        row("XmlDfPrecisionType", R"(<E version="2.0" unit="deg">4</E>)", 0, "",
            R"(<E version="2.0" unit="deg">4</E>)", v2 + '\n' + dfUnit);
    }
    void reading()
    {
        QFETCH(QString, cls);
        QFETCH(QString, xml);
        QFETCH(QString, written);
        QFETCH(QString, report);
        const auto e = XmlElementRegistry::create(cls);
        if (!xml.isEmpty())
            QTEST(KelXmlTest::read(*e, xml), "error");
        if (!written.isEmpty())
            QCOMPARE(KelXmlTest::write(*e, "E"), written);
        QCOMPARE(e->isValid(), report.isEmpty());
        QCOMPARE(e->syntaxError(), report);
        // reset() brings every default back, the unit and the version included.
        e->reset();
        QCOMPARE(KelXmlTest::write(*e, "E"),
                 KelXmlTest::write(*XmlElementRegistry::create(cls), "E"));
    }

    // An unknown unit (compared case-sensitively) takes nothing and writes
    // the held megahertz as they are.
    void frequencyUnits()
    {
        const auto check = [](const QString& unit, const QString& text, double mhz,
                              const QString& written) {
            XmlFreqType f;
            f.setFrequency_MHz(33.0);
            const QString xml = QStringLiteral("<F version=\"1.0\" unit=\"%1\">%2</F>");
            QCOMPARE(KelXmlTest::read(f, xml.arg(unit, text)), QString());
            QCOMPARE(f.frequency_MHz(), mhz);
            QCOMPARE(f.syntaxError(),
                     mhz == 33.0 ? KelXmlTest::block("XmlFreqType", {"Illegal unit."}) : QString());
            QCOMPARE(KelXmlTest::write(f, "F"), xml.arg(unit, written));
        };
        check("Hz", "100", 0.0001, "100.000000");
        check("kHz", "2400", 2.4, "2400.000000");
        check("GHz", "2.4", 2400.0, "2.400000");
        check("khz", "5", 33.0, "33.000000");
    }

    void typedQuirks()
    {
        // A fractional bandwidth is written although its reader refuses it.
        XmlBandwidthType b;
        b.setBandwidth(12.5);
        QCOMPARE(KelXmlTest::write(b, "B"), R"(<B version="1.0" unit="kHz">12.5</B>)");

        // Gains and angles start at -0.0, and a gain that fails to read falls
        // back to it.
        XmlDecibelType gain;
        QVERIFY(std::signbit(gain.decibel()) && std::signbit(XmlDegreesType().degrees()));
        gain.setDecibel(5.0);
        QVERIFY(!KelXmlTest::read(gain, "<G> </G>").isEmpty());
        QVERIFY(std::signbit(gain.decibel()));

        // Read under another name, the element's own end tag is foreign.
        XmlDfPrecisionType p;
        QCOMPARE(KelXmlTest::read(p, "<D unit=\"x\">4</D>", "DFprecision"),
                 located("XmlDfPrecisionType", 1, 17, "Unexpected token \"EndElement\""));
        QCOMPARE(p.precision(), 4);
    }
};

QTEST_GUILESS_MAIN(TstMeasurements)
#include "tst_measurements.moc"
