#pragma once

// Numbers to text and back, exactly as Qt converts them, faster. Internal to
// the library and not installed; its symbols are exported for the library's
// tests.

#include "KelXmlGlobal.h"

#include <QString>
#include <QStringView>

namespace KelXml {

namespace XmlKit {

// Numeric text exactly as QString::toDouble() and QString::toInt(text, 10)
// read it: the same texts accepted, bit-identical values. The common short
// decimal forms are converted here without building a QString; everything
// else goes to Qt.
KELXML_EXPORT double toDouble(QStringView text, bool* ok);
KELXML_EXPORT int toInt(QStringView text, bool* ok);

// The text QString::number(value, format, precision) makes, for the formats
// the messages use ('f' and 'g'), character for character. Values whose
// decimal rounding is plain (no tie, not too small, below 2^53) are formatted
// here from the exact binary value; everything else goes to Qt.
KELXML_EXPORT QString number(double value, char format = 'g', int precision = 6);
// The same text in a buffer of the calling thread that its next call
// overwrites: for handing straight to the writer without allocating a
// string for every number written.
KELXML_EXPORT const QString& numberText(double value, char format = 'g', int precision = 6);

} // namespace XmlKit

} // namespace KelXml
