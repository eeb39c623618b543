#include "XmlEnumTexts.h"

#include "XmlText.h"

namespace KelXml {

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

} // namespace KelXml
