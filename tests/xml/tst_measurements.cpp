// The scalar measurement values and the direction-finding precision. Most
// checks make an object by its class name, let it read a text, and compare
// what it then writes and reports; typed checks remain only where a getter or
// setter matters (the frequency conversion, copies, a writer-only value).

#include <KelXmlTest.h>

#include <XmlBandwidthType.h>
#include <XmlDBMType.h>
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

const QString numeric = QStringLiteral("Illegal value (must be numeric)");
const QString missing = QStringLiteral("Missing attribute: \"unit\"");
const QString v2 = QStringLiteral("Version \"2.0\" not supported");
const QString decibel = QStringLiteral("Illegal decibel.");
const QString frequency = QStringLiteral("Illegal frequency.");
const QString fieldstrength = QStringLiteral("Illegal fieldstrength.");
const QString precision = QStringLiteral("XmlDfPrecisionType: Illegal precision.");
const QString dfUnit = QStringLiteral("XmlDfPrecisionType: Illegal unit.");

// The report of a class holding the given messages; empty when there are none.
QString report(const QString& cls, const QString& messages)
{
    return messages.isEmpty() ? QString() : KelXmlTest::block(cls, {messages});
}

// A row of the reading table. The reader error is located on line 1 at the
// given column (none when 0); an empty written text is not compared.
void row(const char* cls, const char* xml, int column, const QString& error, const char* written,
         const QString& messages)
{
    QTest::addRow("%s %s", cls, xml)
        << QString(cls) << QString(xml) << (column ? located(cls, 1, column, error) : QString())
        << QString(written) << report(cls, messages);
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
        // Rows without a text show the defaults. Several are invalid on
        // purpose: a value must be filled in. -0.0 is written as 0.
        const auto fresh = [](const char* cls, const char* written, const QString& messages) {
            row(cls, "", 0, "", written, messages);
        };
        fresh("XmlDBMType", R"(<E version="1.0" unit="dBm">-110.000000000</E>)", decibel);
        fresh("XmlDecibelType", R"(<E version="1.0" unit="dB">0.000000</E>)", decibel);
        fresh("XmlDegreesType", R"(<E version="1.0" unit="°">0.0</E>)", "");
        fresh("XmlPowerType", R"(<E version="1.0" unit="W">-9.900000000000000</E>)", "");
        fresh("XmlLengthType", R"(<E version="1.0" unit="m">0</E>)", "");
        fresh("XmlFreqType", R"(<E version="1.0" unit="MHz">-9.900000</E>)", frequency);
        fresh("XmlBandwidthType", R"(<E version="1.0" unit="kHz">-1</E>)", precision);
        fresh("XmlSinadType", R"(<E version="1.0">0.000000</E>)", frequency);
        fresh("XmlFieldstrengthType", R"(<E version="1.0" unit="dBm">-99999.998999999996158</E>)",
              fieldstrength);
        fresh("XmlDfPrecisionType", R"(<E version="1.0" unit="°">-2</E>)", precision);
        // A failed number stores the class's fallback; the column of a text
        // error lies one past the text. A version message comes first.
        // Levels: the unit attribute is ignored; both bounds are strict, the
        // lower one positive, and NaN passes them.
        row("XmlDBMType", R"(<E unit="W">-50.5</E>)", 0, "",
            R"(<E version="1.0" unit="dBm">-50.500000000</E>)", decibel);
        row("XmlDBMType", R"(<E version="2.0">abc</E>)", 21, numeric,
            R"(<E version="2.0" unit="dBm">-110.000000000</E>)", v2 + '\n' + decibel);
        row("XmlDBMType", "<E>2.2250738585072014e-308</E>", 0, "", "", decibel);
        row("XmlDBMType", "<E>1.7976931348623157e308</E>", 0, "", "", decibel);
        row("XmlDBMType", "<E>nan</E>", 0, "", R"(<E version="1.0" unit="dBm">nan</E>)", "");
        row("XmlDecibelType", "<E> </E>", 5, numeric, "", decibel);
        // Angles: bounded inclusively, reported with the decibel message.
        row("XmlDegreesType", "<E>12.34<x/></E>", 12, "Unexpected token \"StartElement\"",
            R"(<E version="1.0" unit="°">12.3</E>)", "");
        row("XmlDegreesType", "<E>90</E>", 0, "", "", "");
        row("XmlDegreesType", "<E>90.5</E>", 0, "", "", decibel);
        // A missing or empty unit stops reading; the version is still taken.
        row("XmlPowerType", R"(<E version="2.0">5</E>)", 17, missing,
            R"(<E version="2.0" unit="W">-9.900000000000000</E>)", v2);
        row("XmlPowerType", R"(<E unit="">5</E>)", 11, missing, "", "");
        row("XmlPowerType", R"(<E unit="W">-60</E>)", 0, "",
            R"(<E version="1.0" unit="W">-60.000000000000000</E>)", "");
        row("XmlPowerType", R"(<E unit="w">-60.001</E>)", 0, "", "",
            "Illegal power.\nIllegal unit.");
        row("XmlLengthType", R"(<E version="2.0" unit="cm">-2147483648</E>)", 0, "",
            R"(<E version="2.0" unit="cm">-2147483648</E>)",
            v2 + "\nIllegal unit (must be \"m\").");
        row("XmlLengthType", R"(<E unit="m">1.5</E>)", 16, numeric,
            R"(<E version="1.0" unit="m">0</E>)", "");
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
        row("XmlFieldstrengthType", R"(<E unit="dBm">1e</E>)", 17, numeric, "", fieldstrength);
        row("XmlFieldstrengthType", R"(<E unit="dBm">-99999.989</E>)", 0, "", "", fieldstrength);
        row("XmlFieldstrengthType", R"(<E unit="dBm">-99999.988</E>)", 0, "", "", "");
        // Precision: -1 is the lowest valid value; a missing unit keeps "°".
        row("XmlDfPrecisionType", R"(<E unit="°">-1</E>)", 0, "",
            R"(<E version="1.0" unit="°">-1</E>)", "");
        row("XmlDfPrecisionType", R"(<E unit="°">1.5</E>)", 16, numeric, "", precision);
        row("XmlDfPrecisionType", "<E>4</E>", 3, missing, "", precision);
        row("XmlDfPrecisionType", R"(<E version="2.0" unit="deg">4</E>)", 0, "",
            R"(<E version="2.0" unit="deg">4</E>)", v2 + '\n' + dfUnit);
    }

    void reading()
    {
        QFETCH(QString, cls);
        QFETCH(QString, xml);
        QFETCH(QString, error);
        QFETCH(QString, written);
        QFETCH(QString, report);
        const auto e = XmlElementRegistry::create(cls);
        QVERIFY(e);
        if (!xml.isEmpty())
            QCOMPARE(KelXmlTest::read(*e, xml), error);
        if (!written.isEmpty())
            QCOMPARE(KelXmlTest::write(*e, "E"), written);
        QCOMPARE(e->isValid(), report.isEmpty());
        QCOMPARE(e->syntaxError(), report);

        // reset() brings every default back, the unit and the version included.
        e->reset();
        QCOMPARE(KelXmlTest::write(*e, "E"),
                 KelXmlTest::write(*XmlElementRegistry::create(cls), "E"));
    }

    void frequencyUnits_data()
    {
        QTest::addColumn<QString>("unit");
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("mhz");
        QTest::addColumn<QString>("written");
        QTest::newRow("Hz") << "Hz"
                            << "100" << 0.0001 << "100.000000";
        QTest::newRow("kHz") << "kHz"
                             << "2400" << 2.4 << "2400.000000";
        QTest::newRow("MHz") << "MHz"
                             << "433.92" << 433.92 << "433.920000";
        QTest::newRow("GHz") << "GHz"
                             << "2.4" << 2400.0 << "2.400000";
        // An unknown unit (compared case-sensitively) takes nothing and
        // writes the held megahertz as they are.
        QTest::newRow("khz") << "khz"
                             << "5" << 33.0 << "33.000000";
    }

    void frequencyUnits()
    {
        QFETCH(QString, unit);
        QFETCH(QString, text);
        QFETCH(double, mhz);
        QFETCH(QString, written);
        XmlFreqType f;
        f.setFrequency_MHz(33.0);
        const QString xml = QStringLiteral("<F version=\"1.0\" unit=\"%1\">%2</F>");
        QCOMPARE(KelXmlTest::read(f, xml.arg(unit, text)), QString());
        QCOMPARE(f.frequency_MHz(), mhz);
        QCOMPARE(f.syntaxError(), report("XmlFreqType", mhz == 33.0 ? "Illegal unit." : ""));
        QCOMPARE(KelXmlTest::write(f, "F"), xml.arg(unit, written));
    }

    void copiesAndWriterOnlyValues()
    {
        // Copies take the unit, the version and the value, apart from the source.
        XmlFreqType f;
        KelXmlTest::read(f, R"(<F version="2.0" unit="kHz">2400</F>)");
        const XmlFreqType copy(f);
        XmlFreqType assigned;
        assigned = f;
        f.reset();
        const QString xml = R"(<F version="2.0" unit="kHz">2400.000000</F>)";
        QCOMPARE(KelXmlTest::write(copy, "F"), xml);
        QCOMPARE(KelXmlTest::write(assigned, "F"), xml);

        // A fractional bandwidth is written although its reader refuses it.
        XmlBandwidthType b;
        b.setBandwidth(12.5);
        QCOMPARE(KelXmlTest::write(b, "B"), R"(<B version="1.0" unit="kHz">12.5</B>)");
    }

    void negativeZero()
    {
        // Gains and angles start at -0.0, and a gain that fails to read falls
        // back to it; the written text cannot tell it from 0.
        XmlDecibelType gain;
        const XmlDegreesType angle;
        QVERIFY(std::signbit(gain.decibel()) && std::signbit(angle.degrees()));
        gain.setDecibel(5.0);
        QVERIFY(!KelXmlTest::read(gain, "<G> </G>").isEmpty());
        QVERIFY(std::signbit(gain.decibel()));
    }

    void literalReports()
    {
        // The report spelled out once: the version message comes first.
        XmlDBMType level;
        level.setVersion(QStringLiteral("2.0"));
        QCOMPARE(level.syntaxError(), QStringLiteral("+++ in XmlDBMType Begin:\n"
                                                     "Version \"2.0\" not supported\n"
                                                     "Illegal decibel.\n"
                                                     "--- in XmlDBMType End"));
        // Read under another name, the element's own end tag is foreign.
        XmlDfPrecisionType p;
        QCOMPARE(KelXmlTest::read(p, "<D unit=\"x\">4</D>", "DFprecision"),
                 located("XmlDfPrecisionType", 1, 17, "Unexpected token \"EndElement\""));
        QCOMPARE(p.precision(), 4);
    }
};

QTEST_GUILESS_MAIN(TstMeasurements)
#include "tst_measurements.moc"
