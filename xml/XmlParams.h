#pragma once

// The table of a parameter set's fields: per field the element name read and
// written, the kind of value and its text form, the default, the value taken
// when the text does not convert, and the reader error then raised. Internal
// to the library and not installed.

#include "XmlEnumTexts.h"

#include <QString>

#include <initializer_list>
#include <optional>
#include <vector>

namespace KelXml {

class XmlParamSet;

class KELXML_EXPORT XmlParam
{
public:
    // A double, written in fixed notation with the given decimals.
    static XmlParam number(const char* element, double defaultValue, int decimals,
                           const char* badValue);
    // A 32-bit integer in base 10; a decimal text does not convert.
    static XmlParam integer(const char* element, int defaultValue, const char* badValue);
    // An enumeration, read and written by its texts.
    static XmlParam choice(const char* element, const XmlEnumTexts& texts, int defaultValue,
                           const char* badValue);

    // The value taken by a text that does not convert, when not the default.
    XmlParam fallback(double value) const;
    // Written under another name than it is read.
    XmlParam writtenAs(const char* element) const;
    // Written under the parameter set's own element name.
    XmlParam writtenUnderSetName() const;
    // May stand several times in a row; the last one counts.
    XmlParam repeated() const;

private:
    friend class XmlParamTable;
    friend class XmlParamSet;

    enum Kind
    {
        Number,
        Integer,
        Choice,
    };

    XmlParam(Kind kind, const char* element, double defaultValue, const char* badValue);

    std::optional<double> convert(const QString& text) const;
    QString format(double value) const;

    Kind m_kind;
    QString m_readName;
    QString m_writeName;
    bool m_writtenUnderSetName = false;
    bool m_repeated = false;
    double m_default;
    double m_fallback;
    int m_decimals = 0;
    QString m_badValue;
    std::optional<XmlEnumTexts> m_texts;
};

// The fields of a parameter set, in reading and writing order.
class KELXML_EXPORT XmlParamTable
{
public:
    XmlParamTable(const char* classname, std::initializer_list<XmlParam> fields);

    // Reading starts by resetting the whole set.
    XmlParamTable resetBeforeReading() const;

    const QString& classname() const { return m_classname; }

private:
    // The set reads, writes and resets itself from its table's fields.
    friend class XmlParamSet;

    QString m_classname;
    std::vector<XmlParam> m_fields;
    bool m_resetBeforeReading = false;
};

} // namespace KelXml
