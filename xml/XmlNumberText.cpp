#include "XmlNumberText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace KelXml {

namespace XmlKit {

namespace {

bool isAsciiDigit(QChar c)
{
    return unsigned(c.unicode()) - '0' <= 9u;
}

// The powers of ten that a double holds exactly.
constexpr std::array<double, 16> exactPowersOfTen{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                  1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

} // namespace

double toDouble(QStringView text, bool* ok)
{
    // "-ddd.ddd" with at most 15 digits: the digits make an integer that a
    // double holds exactly, and one division by an exact power of ten rounds
    // correctly, as Qt's conversion does. Any other form goes to Qt.
    const QChar* p = text.begin();
    const QChar* const end = text.end();
    const bool negative = p != end && *p == QLatin1Char('-');
    if (negative)
        ++p;
    quint64 mantissa = 0;
    int digits = 0;
    int decimals = 0;
    bool fast = p != end && isAsciiDigit(*p);
    for (; fast && p != end && isAsciiDigit(*p); ++p, ++digits)
        mantissa = mantissa * 10 + (p->unicode() - '0');
    if (fast && p != end && *p == QLatin1Char('.')) {
        ++p;
        fast = p != end;
        for (; fast && p != end && isAsciiDigit(*p); ++p, ++decimals, ++digits)
            mantissa = mantissa * 10 + (p->unicode() - '0');
    }
    if (fast && p == end && digits <= 15) {
        double value = double(mantissa);
        if (decimals > 0)
            value /= exactPowersOfTen[size_t(decimals)];
        *ok = true;
        return negative ? -value : value;
    }
    return text.toString().toDouble(ok);
}

int toInt(QStringView text, bool* ok)
{
    // "-ddddddddd" (at most nine digits, so no overflow) here; the rest by Qt.
    const QChar* p = text.begin();
    const QChar* const end = text.end();
    const bool negative = p != end && *p == QLatin1Char('-');
    if (negative)
        ++p;
    const QChar* const first = p;
    int value = 0;
    for (; p != end && isAsciiDigit(*p) && p - first < 9; ++p)
        value = value * 10 + (p->unicode() - '0');
    if (p == end && p != first) {
        *ok = true;
        return negative ? -value : value;
    }
    return text.toString().toInt(ok, 10);
}

namespace {

// round(|value| * 10^decimals) from the exact binary value of |value|, into
// *scaled, and the same truncated into *truncated when asked; false when Qt
// must decide: a tie, a value at or above 2^53, one too small for the
// arithmetic below, NaN or infinity, or a result of zero.
bool scaleExactly(double value, int decimals, quint64* scaled, quint64* truncated = nullptr)
{
    static_assert(sizeof(double) == sizeof(quint64), "IEEE double expected");
    quint64 bits;
    std::memcpy(&bits, &value, sizeof bits);
    const int biased = int((bits >> 52) & 0x7ff);
    // Normal numbers below 2^53: |value| = mantissa * 2^-shift, 1 <= shift.
    const int shift = 1075 - biased;
    if (biased == 0 || shift < 1 || shift > 120 || decimals < 0 || decimals > 15)
        return false;
    const quint64 mantissa = (bits & ((quint64(1) << 52) - 1)) | (quint64(1) << 52);
    static constexpr std::array<quint64, 16> powers{1ull,
                                                    10ull,
                                                    100ull,
                                                    1000ull,
                                                    10000ull,
                                                    100000ull,
                                                    1000000ull,
                                                    10000000ull,
                                                    100000000ull,
                                                    1000000000ull,
                                                    10000000000ull,
                                                    100000000000ull,
                                                    1000000000000ull,
                                                    10000000000000ull,
                                                    100000000000000ull,
                                                    1000000000000000ull};
    // mantissa < 2^53 and 10^15 < 2^50: the product fits in 103 bits.
    const unsigned __int128 product = (unsigned __int128)mantissa * powers[size_t(decimals)];
    const unsigned __int128 quotient = product >> shift;
    const unsigned __int128 remainder = product - (quotient << shift);
    const unsigned __int128 half = (unsigned __int128)1 << (shift - 1);
    if (remainder == half)
        return false;
    const unsigned __int128 rounded = quotient + (remainder > half ? 1 : 0);
    if (rounded == 0 || rounded >> 63)
        return false;
    *scaled = quint64(rounded);
    if (truncated)
        *truncated = quint64(quotient);
    return true;
}

// The longest text decimalText() makes: a sign, 20 digits and a point.
constexpr int longestDecimal = 22;

// "-ddd.ddd": scaled / 10^decimals in decimal notation, at least one digit
// before the point, no point when there are no decimals; written to text,
// its length returned.
int decimalText(bool negative, quint64 scaled, int decimals, QChar* text)
{
    // The digits from the last one backwards, two at a time while at least
    // three are still to come; then the point moves in before the decimals.
    static constexpr char pairs[] = "00010203040506070809101112131415161718192021222324"
                                    "25262728293031323334353637383940414243444546474849"
                                    "50515253545556575859606162636465666768697071727374"
                                    "75767778798081828384858687888990919293949596979899";
    QChar reversed[longestDecimal];
    QChar* const end = reversed + longestDecimal;
    QChar* p = end;
    int written = 0;
    for (; scaled >= 100 || written < decimals - 1; written += 2, scaled /= 100) {
        const size_t pair = size_t(scaled % 100) * 2;
        *--p = QLatin1Char(pairs[pair + 1]);
        *--p = QLatin1Char(pairs[pair]);
    }
    for (; scaled != 0 || written <= decimals; ++written, scaled /= 10)
        *--p = QLatin1Char(char('0' + scaled % 10));
    if (decimals > 0) {
        std::copy(p, end - decimals, p - 1);
        --p;
        *(end - decimals - 1) = QLatin1Char('.');
    }
    if (negative)
        *--p = QLatin1Char('-');
    std::copy(p, end, text);
    return int(end - p);
}

// The text of number() when it is plain to make here, its length returned;
// -1 when Qt must make it.
int numberInto(double value, char format, int precision, QChar* text)
{
    const bool negative = std::signbit(value);
    quint64 scaled = 0;
    if (format == 'f' && scaleExactly(value, precision, &scaled))
        return decimalText(negative, scaled, precision, text);
    if (format == 'g' && precision == 6 && value != 0 && std::isfinite(value)) {
        // Six significant digits: the decimal exponent x of |value| is the one
        // with 10^5 <= |value| * 10^(5 - x) < 10^6; rounding to 5 - x decimals
        // may carry into a seventh digit, and then x grows by one. Qt writes
        // decimal notation when -4 <= x < 6, trailing zeros dropped.
        // (Infinities and NaN, which Qt writes, never come here: ilogb() of
        // them is out of range for this product.)
        int exponent = std::ilogb(value) * 30103 / 100000; // log10(2): off by one at most
        quint64 truncated = 0;
        for (int attempts = 0; attempts < 3; ++attempts) {
            if (!scaleExactly(value, 5 - exponent, &scaled, &truncated))
                break;
            if (truncated >= 1000000) {
                ++exponent;
                continue;
            }
            if (truncated < 100000) {
                --exponent;
                continue;
            }
            if (scaled == 1000000) {
                ++exponent;
                scaled = 100000;
            }
            if (exponent < -4 || exponent >= 6)
                break;
            int decimals = 5 - exponent;
            for (; decimals > 0 && scaled % 10 == 0; --decimals)
                scaled /= 10;
            return decimalText(negative, scaled, decimals, text);
        }
    }
    return -1;
}

} // namespace

QString number(double value, char format, int precision)
{
    QChar text[longestDecimal];
    const int length = numberInto(value, format, precision, text);
    return length >= 0 ? QString(text, length) : QString::number(value, format, precision);
}

const QString& numberText(double value, char format, int precision)
{
    // Kept between calls, so that its room is reused once it has grown.
    static thread_local QString scratch;
    QChar text[longestDecimal];
    const int length = numberInto(value, format, precision, text);
    if (length < 0) {
        scratch = QString::number(value, format, precision);
    } else {
        scratch.resize(length);
        std::copy(text, text + length, scratch.data());
    }
    return scratch;
}

} // namespace XmlKit

} // namespace KelXml
