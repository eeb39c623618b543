#include "XmlReadError.h"

namespace KelXml {

QString XmlReadError::text() const
{
    if (kind == None)
        return QString();
    if (line <= 0 || kind == Element)
        return message;
    return QStringLiteral("line %1, column %2: %3").arg(line).arg(column).arg(message);
}

} // namespace KelXml
