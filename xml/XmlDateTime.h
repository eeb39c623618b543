#pragma once

// Date-times as the messages carry them. Internal to the library and not
// installed; its symbols are exported for the library's tests.

#include "KelXmlGlobal.h"

#include <QDateTime>
#include <QString>

namespace KelXml {

namespace XmlKit {

// Date-times as the messages carry them: ISO 8601 to the second, without a
// fraction ("2021-03-04T05:06:07" for a local time); the same text under
// every Qt version. An invalid date-time is written as an empty text.
KELXML_EXPORT QString formatDateTime(const QDateTime& dateTime);
// Whatever ISO 8601 text Qt accepts; an invalid date-time otherwise.
KELXML_EXPORT QDateTime parseDateTime(const QString& text);

} // namespace XmlKit

} // namespace KelXml
