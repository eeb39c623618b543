#include "XmlDateTime.h"

namespace KelXml {

namespace XmlKit {

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

} // namespace XmlKit

} // namespace KelXml
