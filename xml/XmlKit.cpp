#include "XmlKit.h"

#include <QXmlStreamAttributes>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace KelXml {

namespace XmlKit {

const QString versionAttribute = QStringLiteral("version");
const QString unitAttribute = QStringLiteral("unit");
const QString defaultVersion = QStringLiteral("1.0");
const XmlText defaultVersionText = defaultVersion;

QString formatDateTime(const QDateTime& dateTime)
{
    return dateTime.isValid() ? dateTime.toString(Qt::ISODate) : QString();
}

namespace {

// The number of `count` ASCII digits at text, or -1.
int digits(const QChar* text, int count)
{
    int value = 0;
    for (int i = 0; i < count; ++i) {
        const unsigned digit = unsigned(text[i].unicode()) - '0';
        if (digit > 9)
            return -1;
        value = value * 10 + int(digit);
    }
    return value;
}

} // namespace

QDateTime parseDateTime(const QString& text)
{
    // The forms the messages carry are read here, without Qt's general
    // parser (which reads each number through the C locale):
    // yyyy-MM-ddTHH:mm:ss, then nothing (local time), "Z" (UTC) or an offset
    // +HH:MM or -HH:MM, giving the same value as QDateTime::fromString(text,
    // Qt::ISODate). Anything else, an invalid date or time among it, is left
    // to Qt.
    const int size = text.size();
    if (size == 19 || size == 20 || size == 25) {
        const QChar* c = text.constData();
        const int year = digits(c, 4);
        const int month = digits(c + 5, 2);
        const int day = digits(c + 8, 2);
        const int hour = digits(c + 11, 2);
        const int minute = digits(c + 14, 2);
        const int second = digits(c + 17, 2);
        const bool form = c[4] == QLatin1Char('-') && c[7] == QLatin1Char('-') &&
                          c[10] == QLatin1Char('T') && c[13] == QLatin1Char(':') &&
                          c[16] == QLatin1Char(':') && year > 0 && month >= 0 && day >= 0 &&
                          hour >= 0 && hour < 24 && minute >= 0 && second >= 0;
        const QDate date = form ? QDate(year, month, day) : QDate();
        const QTime time = form ? QTime(hour, minute, second) : QTime();
        if (date.isValid() && time.isValid()) {
            if (size == 19)
                return QDateTime(date, time, Qt::LocalTime);
            if (size == 20 && c[19] == QLatin1Char('Z'))
                return QDateTime(date, time, Qt::UTC);
            const int offsetHours = size == 25 ? digits(c + 20, 2) : -1;
            const int offsetMinutes = size == 25 ? digits(c + 23, 2) : -1;
            if (offsetHours >= 0 && offsetHours <= 14 && offsetMinutes >= 0 &&
                offsetMinutes <= 59 && (c[19] == QLatin1Char('+') || c[19] == QLatin1Char('-')) &&
                c[22] == QLatin1Char(':')) { // the offset is read only for 25 characters
                const int offset = (offsetHours * 60 + offsetMinutes) * 60;
                return QDateTime(date, time, Qt::OffsetFromUTC,
                                 c[19] == QLatin1Char('-') ? -offset : offset);
            }
        }
    }
    return QDateTime::fromString(text, Qt::ISODate);
}

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

void writeValueElement(QXmlStreamWriter& writer, const QString& name, const QString& version,
                       const QString& unit, const QString& text)
{
    writer.writeStartElement(name);
    writer.writeAttribute(versionAttribute, version);
    writer.writeAttribute(unitAttribute, unit);
    writer.writeCharacters(text);
    writer.writeEndElement();
}

void writeValueElement(QXmlStreamWriter& writer, const QString& name, const QString& version,
                       const QString& text)
{
    writer.writeStartElement(name);
    writer.writeAttribute(versionAttribute, version);
    writer.writeCharacters(text);
    writer.writeEndElement();
}

void writeStartElement(QXmlStreamWriter& writer, const QString& name, const QString& version)
{
    writer.writeStartElement(name);
    writer.writeAttribute(versionAttribute, version);
}

} // namespace XmlKit

XmlEnumTexts::XmlEnumTexts(std::initializer_list<Entry> entries, const char* otherText)
    : m_otherText(QLatin1String(otherText))
{
    for (const Entry& entry : entries)
        m_entries.append(qMakePair(entry.value, QString(QLatin1String(entry.text))));
}

XmlEnumTexts XmlEnumTexts::numbered(std::initializer_list<const char*> texts)
{
    XmlEnumTexts result({}, "UNDEFINED");
    int value = 0;
    for (const char* text : texts)
        result.m_entries.append(qMakePair(++value, QString(QLatin1String(text))));
    return result;
}

std::optional<int> XmlEnumTexts::parse(QStringView text) const
{
    for (const auto& entry : m_entries) {
        if (XmlKit::sameName(entry.second, text))
            return entry.first;
    }
    return std::nullopt;
}

const QString& XmlEnumTexts::text(int value) const
{
    for (const auto& entry : m_entries) {
        if (entry.first == value)
            return entry.second;
    }
    return m_otherText;
}

namespace {

const QString wrongPosition = QStringLiteral("Parse error (wrong position)");
const QString missingAttribute = QStringLiteral("Missing attribute: \"%1\"");
const QString illegalAttribute = QStringLiteral("Illegal attribute value in \"%1\"");
const QString versionNotSupported = QStringLiteral("Version not supported: %1");
const QString invalidToken = QStringLiteral("Invalid token");
const QString unexpectedStartDocument = QStringLiteral("Unexpected token \"StartDocument\"");
const QString unexpectedEndDocument = QStringLiteral("Unexpected token \"EndDocument\"");
const QString unexpectedStartElement = QStringLiteral("Unexpected token \"StartElement\"");
const QString unexpectedEndElement = QStringLiteral("Unexpected token \"EndElement\"");
const QString unexpectedElement = QStringLiteral("Unexpected element \"%1\"");
const QString namedToken = QStringLiteral("%1: %2");
const QString notNumeric = QStringLiteral("Illegal value (must be numeric)");

} // namespace

void XmlElementReader::fail(const QString& message)
{
    if (!m_reader.hasError())
        m_element.setReaderError(m_reader, message);
}

bool XmlElementReader::atStartTag()
{
    if (m_reader.tokenType() == QXmlStreamReader::StartElement)
        return true;
    fail(wrongPosition);
    return false;
}

bool XmlElementReader::begin(XmlText& version)
{
    version = XmlKit::defaultVersionText;
    if (!atStartTag())
        return false;
    readVersion(version);
    return !failed();
}

QStringView XmlElementReader::attribute(const QString& name) const
{
    // As QXmlStreamAttributes::value() finds it, compared in place.
    const QXmlStreamAttributes attributes = m_reader.attributes();
    for (const QXmlStreamAttribute& each : attributes) {
        if (XmlKit::sameName(each.qualifiedName(), name))
            return each.value();
    }
    return QStringView();
}

void XmlElementReader::readVersion(XmlText& version) const
{
    takeVersion(attribute(XmlKit::versionAttribute), version);
}

void XmlElementReader::takeVersion(QStringView value, XmlText& version)
{
    // The usual version is the library's own text; others share when they repeat.
    if (XmlKit::sameName(value, XmlKit::defaultVersion))
        version = XmlKit::defaultVersionText;
    else if (!value.isEmpty())
        version.assign(value);
}

bool XmlElementReader::begin(XmlText& version, const QString& required, XmlText& value)
{
    version = XmlKit::defaultVersionText;
    if (!atStartTag())
        return false;
    // As attribute() finds each of the two: the first of the name.
    QStringView versionText;
    QStringView found;
    bool versionSeen = false;
    bool foundSeen = false;
    const QXmlStreamAttributes attributes = m_reader.attributes();
    for (const QXmlStreamAttribute& each : attributes) {
        const QStringView name = each.qualifiedName();
        if (!versionSeen && XmlKit::sameName(name, XmlKit::versionAttribute)) {
            versionText = each.value();
            versionSeen = true;
        } else if (!foundSeen && XmlKit::sameName(name, required)) {
            found = each.value();
            foundSeen = true;
        }
    }
    takeVersion(versionText, version);
    if (found.isEmpty()) {
        fail(missingAttribute.arg(required));
        return false;
    }
    value.assign(found);
    return true;
}

bool XmlElementReader::readRequired(const QString& name, QString& value)
{
    const QStringView found = attribute(name);
    if (found.isEmpty()) {
        fail(missingAttribute.arg(name));
        return false;
    }
    value = found.toString();
    return true;
}

bool XmlElementReader::readRequired(const QString& name, XmlText& value)
{
    const QStringView found = attribute(name);
    if (found.isEmpty()) {
        fail(missingAttribute.arg(name));
        return false;
    }
    value.assign(found);
    return true;
}

void XmlElementReader::failAttribute(const QString& attribute)
{
    fail(illegalAttribute.arg(attribute));
}

int XmlElementReader::readEnumAttribute(const QString& name, const XmlEnumTexts& texts)
{
    const auto value = texts.parse(attribute(name));
    if (!value)
        failAttribute(name);
    return value.value_or(0);
}

bool XmlElementReader::checkVersion(const QString& version)
{
    if (XmlKit::isSupportedVersion(version))
        return true;
    fail(versionNotSupported.arg(version));
    return false;
}

std::optional<double> XmlElementReader::parseDouble(QStringView text)
{
    bool ok = false;
    const double value = XmlKit::toDouble(text, &ok);
    if (ok)
        return value;
    fail(notNumeric);
    return std::nullopt;
}

std::optional<int> XmlElementReader::parseInt(QStringView text)
{
    bool ok = false;
    const int value = XmlKit::toInt(text, &ok);
    if (ok)
        return value;
    fail(notNumeric);
    return std::nullopt;
}

void XmlElementReader::refuseStart()
{
    switch (m_wording) {
    case TextWording:
        fail(unexpectedStartElement);
        break;
    case ElementWording:
        fail(unexpectedElement.arg(m_reader.name().toString()));
        break;
    case NamedWording:
        fail(namedToken.arg(unexpectedStartElement, m_reader.name().toString()));
        break;
    }
}

void XmlElementReader::refuseEnd(QStringView name)
{
    fail(m_wording == NamedWording ? namedToken.arg(unexpectedEndElement, name.toString())
                                   : unexpectedEndElement);
}

void XmlElementReader::otherToken(QXmlStreamReader::TokenType type)
{
    switch (type) {
    case QXmlStreamReader::Invalid:
        if (!m_reader.hasError())
            fail(invalidToken);
        break;
    case QXmlStreamReader::StartDocument:
        fail(unexpectedStartDocument);
        break;
    case QXmlStreamReader::EndDocument:
        fail(unexpectedEndDocument);
        break;
    default: // comments, processing instructions, DTDs, entity references
        break;
    }
}

void XmlElementReader::readChildren(std::initializer_list<XmlChild> children,
                                    const std::function<bool()>& complete)
{
    Q_ASSERT(children.size() <= 64);
    struct Children : Tokens
    {
        XmlElementReader& in;
        const XmlChild* children;
        size_t count;
        const std::function<bool()>& complete;
        quint64 seen; // one bit per child
        int last;

        bool start(QStringView name)
        {
            for (size_t i = 0; i < count; ++i) {
                const XmlChild& child = children[i];
                if (!XmlKit::sameName(child.name(), name))
                    continue;
                const int index = int(i);
                if (index < last || (index == last && !child.isRepeated()))
                    return false;
                if (!child.after().isNull() && !hasSeen(child.after()))
                    return false;
                child.read(in.m_reader);
                seen |= quint64(1) << i;
                last = index;
                return true;
            }
            return false;
        }
        bool hasSeen(const QString& name) const
        {
            for (size_t i = 0; i < count; ++i) {
                if (children[i].name() == name)
                    return seen & (quint64(1) << i);
            }
            return false;
        }
        bool mayEnd()
        {
            for (size_t i = 0; i < count; ++i) {
                if (children[i].isRequired() && !(seen & (quint64(1) << i)))
                    return false;
            }
            return !complete || complete();
        }
    } tokens{{}, *this, children.begin(), children.size(), complete, 0, -1};
    loop(tokens);
}

} // namespace KelXml
