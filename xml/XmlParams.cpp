#include "XmlParams.h"
#include "XmlElementReader.h"
#include "XmlEnumTexts.h"
#include "XmlNumberText.h"

namespace KelXml {

XmlParam::XmlParam(Kind kind, const char* element, double defaultValue, const char* badValue)
    : m_kind(kind)
    , m_readName(QLatin1String(element))
    , m_writeName(m_readName)
    , m_default(defaultValue)
    , m_fallback(defaultValue)
    , m_badValue(QLatin1String(badValue))
{}

XmlParam XmlParam::number(const char* element, double defaultValue, int decimals,
                          const char* badValue)
{
    XmlParam param(Number, element, defaultValue, badValue);
    param.m_decimals = decimals;
    return param;
}

XmlParam XmlParam::integer(const char* element, int defaultValue, const char* badValue)
{
    return XmlParam(Integer, element, defaultValue, badValue);
}

XmlParam XmlParam::choice(const char* element, const XmlEnumTexts& texts, int defaultValue,
                          const char* badValue)
{
    XmlParam param(Choice, element, defaultValue, badValue);
    param.m_texts = texts;
    return param;
}

XmlParam XmlParam::fallback(double value) const
{
    XmlParam copy(*this);
    copy.m_fallback = value;
    return copy;
}

XmlParam XmlParam::writtenAs(const char* element) const
{
    XmlParam copy(*this);
    copy.m_writeName = QLatin1String(element);
    return copy;
}

XmlParam XmlParam::writtenUnderSetName() const
{
    XmlParam copy(*this);
    copy.m_writtenUnderSetName = true;
    return copy;
}

XmlParam XmlParam::repeated() const
{
    XmlParam copy(*this);
    copy.m_repeated = true;
    return copy;
}

std::optional<double> XmlParam::convert(const QString& text) const
{
    bool ok = false;
    switch (m_kind) {
    case Number: {
        const double value = XmlKit::toDouble(text, &ok);
        return ok ? std::optional<double>(value) : std::nullopt;
    }
    case Integer: {
        const int value = XmlKit::toInt(text, &ok);
        return ok ? std::optional<double>(value) : std::nullopt;
    }
    case Choice:
        if (const auto value = m_texts->parse(text))
            return double(*value);
        return std::nullopt;
    }
    return std::nullopt;
}

QString XmlParam::format(double value) const
{
    switch (m_kind) {
    case Number:
        return XmlKit::number(value, 'f', m_decimals);
    case Integer:
        return QString::number(int(value));
    case Choice:
        return m_texts->text(int(value));
    }
    return QString();
}

XmlParamTable::XmlParamTable(const char* classname, std::initializer_list<XmlParam> fields)
    : m_classname(QLatin1String(classname))
    , m_fields(fields)
{
    Q_ASSERT(m_fields.size() <= 32);
}

XmlParamTable XmlParamTable::resetBeforeReading() const
{
    XmlParamTable copy(*this);
    copy.m_resetBeforeReading = true;
    return copy;
}

} // namespace KelXml
