// The kit's number conversion against Qt's: for every text, the same verdict
// and bit for bit the same value as QString::toDouble() and
// QString::toInt(text, 10), over a million generated texts that mix the forms
// a message may carry with every odd form Qt has an opinion on.

#include <XmlNumberText.h>

#include <QtTest>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

using namespace KelXml;

namespace {

// Texts built from parts: blanks, sign, integer digits, point, decimals,
// exponent, and now and then a word, a comma, a foreign digit or junk.
class TextGenerator
{
public:
    explicit TextGenerator(quint32 start)
        : m_random(start)
    {}

    QString next()
    {
        QString text;
        if (chance(10))
            text += pick({QStringLiteral(" "), QStringLiteral("\t"), QStringLiteral("\n"),
                          QString(QChar(0x00A0)), QString(QChar(0x2003))});
        if (chance(40))
            text += pick({QStringLiteral("-"), QStringLiteral("+"), QStringLiteral("--")});
        if (chance(3)) {
            text += pick({QStringLiteral("inf"), QStringLiteral("nan"), QStringLiteral("INF"),
                          QStringLiteral("NaN"), QStringLiteral("Infinity"),
                          QStringLiteral("infinity"), QStringLiteral("in")});
        } else {
            // Mostly short, now and then longer than a double's digits.
            const int length = chance(90) ? int(below(8)) : int(below(40));
            text += digits(length);
            if (chance(50)) {
                text += chance(95) ? QStringLiteral(".") : QStringLiteral(",");
                text += digits(chance(90) ? int(below(9)) : int(below(30)));
            }
            if (chance(8)) {
                text += pick({QStringLiteral("e"), QStringLiteral("E"), QStringLiteral("e+"),
                              QStringLiteral("e-"), QStringLiteral("E-")});
                text += digits(int(below(4)));
            }
        }
        if (chance(10))
            text += pick({QStringLiteral(" "), QStringLiteral("\t"), QStringLiteral("\r\n"),
                          QString(QChar(0x00A0))});
        if (chance(2))
            text.insert(int(below(quint32(text.size()) + 1)),
                        pick({QStringLiteral(","), QStringLiteral("x"), QStringLiteral("."),
                              QString(QChar(0x0663)), QString(QChar(0xFF15)), QStringLiteral("0x"),
                              QString(QChar(0))}));
        return text;
    }

private:
    bool chance(quint32 percent) { return below(100) < percent; }
    quint32 below(quint32 bound) { return quint32(m_random() % bound); }
    QString pick(std::initializer_list<QString> texts)
    {
        return *(texts.begin() + below(quint32(texts.size())));
    }
    QString digits(int count)
    {
        QString result;
        for (int i = 0; i < count; ++i) {
            if (chance(1))
                result += QChar(0x0660 + below(10)); // Arabic-Indic digits
            else
                result += QChar('0' + below(10));
        }
        return result;
    }

    std::mt19937 m_random;
};

QString describe(const QString& text)
{
    QString escaped;
    for (QChar c : text)
        escaped += c.unicode() < 0x20 || c.unicode() > 0x7e
                       ? QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'))
                       : QString(c);
    return QLatin1Char('"') + escaped + QLatin1Char('"');
}

} // namespace

class TestXmlNumbers : public QObject
{
    Q_OBJECT

private slots:
    void sameAsQt_data();
    void sameAsQt();
    void generatedTextsAgreeWithQt();
    void writtenAsQt_data();
    void writtenAsQt();
    void generatedValuesWrittenAsQt();
};

// Forms at the edges of the short path: the longest digit strings it takes,
// signs, zeros, points without digits, and values that round.
void TestXmlNumbers::sameAsQt_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"0",
                             "-0",
                             "+0",
                             "00012",
                             "-0.000",
                             "1.",
                             ".5",
                             "-.5",
                             "5.e3",
                             "123456789012345",
                             "1234567890123456",
                             "0.123456789012345",
                             "9007199254740993",
                             "0.1",
                             "0.3",
                             "-107.25",
                             "2147483647",
                             "-2147483648",
                             "2147483648",
                             "999999999",
                             "1000000000",
                             "-999999999",
                             " 12",
                             "12 ",
                             "1,5",
                             "1e5",
                             "1E-3",
                             "",
                             "-",
                             ".",
                             "inf",
                             "-inf",
                             "nan",
                             "1.7976931348623157e308",
                             "1e309",
                             "4.9e-324",
                             "0x10",
                             "12a"})
        QTest::newRow(text) << QString::fromLatin1(text);
    QTest::newRow("arabic-indic digit") << QString(QChar(0x0663));
    QTest::newRow("nul after digits") << QStringLiteral("12") + QChar(0);
}

void TestXmlNumbers::sameAsQt()
{
    QFETCH(QString, text);
    bool qtOk = false;
    bool ok = false;
    const double qtValue = text.toDouble(&qtOk);
    const double value = XmlKit::toDouble(text, &ok);
    QCOMPARE(ok, qtOk);
    QVERIFY2(
        std::memcmp(&value, &qtValue, sizeof value) == 0,
        qPrintable(QStringLiteral("%1 != %2").arg(value, 0, 'g', 17).arg(qtValue, 0, 'g', 17)));

    const int qtInt = text.toInt(&qtOk, 10);
    QCOMPARE(XmlKit::toInt(text, &ok), qtInt);
    QCOMPARE(ok, qtOk);
}

void TestXmlNumbers::generatedTextsAgreeWithQt()
{
    TextGenerator generator(20261123);
    int accepted = 0;
    for (int i = 0; i < 1000000; ++i) {
        const QString text = generator.next();
        bool qtOk = false;
        bool ok = false;
        const double qtValue = text.toDouble(&qtOk);
        const double value = XmlKit::toDouble(text, &ok);
        if (ok != qtOk || std::memcmp(&value, &qtValue, sizeof value) != 0) {
            QFAIL(qPrintable(QStringLiteral("toDouble(%1): %2 (%3), Qt: %4 (%5)")
                                 .arg(describe(text))
                                 .arg(value, 0, 'g', 17)
                                 .arg(ok)
                                 .arg(qtValue, 0, 'g', 17)
                                 .arg(qtOk)));
        }
        const int qtInt = text.toInt(&qtOk, 10);
        const int integer = XmlKit::toInt(text, &ok);
        if (ok != qtOk || integer != qtInt) {
            QFAIL(qPrintable(QStringLiteral("toInt(%1): %2 (%3), Qt: %4 (%5)")
                                 .arg(describe(text))
                                 .arg(integer)
                                 .arg(ok)
                                 .arg(qtInt)
                                 .arg(qtOk)));
        }
        accepted += qtOk;
    }
    // Many of the texts must be numbers, or the comparison proves little.
    QVERIFY2(accepted > 250000, qPrintable(QString::number(accepted)));
}

namespace {

// The formats the writers use.
const std::pair<char, int> writtenFormats[] = {{'f', 0}, {'f', 1}, {'f', 2},  {'f', 4},
                                               {'f', 6}, {'f', 9}, {'f', 15}, {'g', 6}};

QString formatName(char format, int precision)
{
    return QStringLiteral("'%1', %2").arg(QLatin1Char(format)).arg(precision);
}

} // namespace

// Values at the edges of the short path: ties of every precision, rounding
// that carries into a new digit, the bounds of decimal notation in 'g',
// zeros and values that round to zero, 2^53, subnormals, NaN and infinity.
void TestXmlNumbers::writtenAsQt_data()
{
    QTest::addColumn<double>("value");
    const double values[] = {0.0,
                             -0.0,
                             0.5,
                             1.5,
                             2.5,
                             -2.5,
                             0.25,
                             0.125,
                             0.0078125,
                             -0.0078125,
                             1e-7,
                             -1e-7,
                             4e-7,
                             5e-7,
                             9.5,
                             99.95,
                             999999.5,
                             999999.4,
                             99999.95,
                             99999.949999,
                             123456.5,
                             0.0001,
                             0.00009999995,
                             0.000099999949,
                             1e5,
                             1e6,
                             -1e6,
                             0.1,
                             0.3,
                             100.1,
                             -107.25,
                             3.14159265358979,
                             9007199254740992.0,
                             9007199254740993.0,
                             4503599627370495.5,
                             1e300,
                             4.9e-324,
                             2.2250738585072014e-308,
                             std::numeric_limits<double>::infinity(),
                             -std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()};
    for (const double value : values)
        QTest::newRow(qPrintable(QString::number(value, 'g', 17))) << value;
}

void TestXmlNumbers::writtenAsQt()
{
    QFETCH(double, value);
    for (const auto& [format, precision] : writtenFormats) {
        const QString qtText = QString::number(value, format, precision);
        QVERIFY2(XmlKit::number(value, format, precision) == qtText,
                 qPrintable(formatName(format, precision)));
        // The thread's buffer: a copy taken keeps its text through the next call.
        const QString kept = XmlKit::numberText(value, format, precision);
        QVERIFY2(kept == qtText, qPrintable(formatName(format, precision)));
        XmlKit::numberText(-123456.5, 'f', 6);
        QCOMPARE(kept, qtText);
    }
}

// A million values, each in one of the formats in turn: the short decimals
// messages carry, the same scaled by powers of ten, halves and other binary
// fractions that tie, and arbitrary bit patterns.
void TestXmlNumbers::generatedValuesWrittenAsQt()
{
    std::mt19937_64 random(20261123);
    const auto below = [&random](quint64 n) { return random() % n; };
    for (int i = 0; i < 1000000; ++i) {
        double value = 0;
        switch (i / 8 % 4) {
        case 0: // -ddd.ddd
            value = double(below(10000000)) / std::pow(10.0, double(below(8)));
            break;
        case 1: // the same at any scale
            value = double(below(1000000)) * std::pow(10.0, double(below(30)) - 15);
            break;
        case 2: // n / 2^k: exact binary values that sit on decimal ties
            value = double(below(1 << 20)) / double(quint64(1) << below(40));
            break;
        default: {
            const quint64 bits = random();
            std::memcpy(&value, &bits, sizeof value);
            break;
        }
        }
        if (below(2))
            value = -value;
        const auto& [format, precision] = writtenFormats[size_t(i) % std::size(writtenFormats)];
        const QString text = i % 2 ? XmlKit::numberText(value, format, precision)
                                   : XmlKit::number(value, format, precision);
        const QString qtText = QString::number(value, format, precision);
        if (text != qtText)
            QFAIL(qPrintable(QStringLiteral("%1 as %2: %3, Qt: %4")
                                 .arg(value, 0, 'g', 17)
                                 .arg(formatName(format, precision), text, qtText)));
    }
}

QTEST_GUILESS_MAIN(TestXmlNumbers)
#include "tst_xmlnumbers.moc"
