#pragma once

// The texts of the enumerations. Internal to the library and not installed;
// its symbols are exported for the library's tests.

#include "KelXmlGlobal.h"

#include <QList>
#include <QPair>
#include <QString>
#include <QStringView>

#include <initializer_list>
#include <optional>

namespace KelXml {

// The texts of an enumeration: exact, case-sensitive and untrimmed matching
// on reading, and one text for every value outside the table on writing.
class KELXML_EXPORT XmlEnumTexts
{
public:
    struct Entry
    {
        int value;
        const char* text;
    };

    XmlEnumTexts(std::initializer_list<Entry> entries, const char* otherText);
    // Values 1, 2, ... for the texts in order; 0 and every value outside the
    // table are written "UNDEFINED", a text that is never accepted.
    static XmlEnumTexts numbered(std::initializer_list<const char*> texts);

    // The value whose text matches exactly; nothing for any other text.
    std::optional<int> parse(QStringView text) const;
    // The value's text, or the text for values outside the table.
    const QString& text(int value) const;

private:
    QList<QPair<int, QString>> m_entries;
    QString m_otherText;
};

} // namespace KelXml
