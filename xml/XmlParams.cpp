#include "XmlParams.h"

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

// Each field is accepted only while no later field has been read, and once
// unless it may repeat. A text that does not convert takes the fallback,
// leaves the field unset and ends the reading with the field's own message.
void XmlParamTable::read(XmlParamSet& set, QXmlStreamReader& reader,
                         const QString& elementName) const
{
    if (m_resetBeforeReading)
        set.reset();
    XmlElementReader in(set, reader, elementName, XmlElementReader::NamedWording);
    struct Tokens : XmlElementReader::Tokens
    {
        const XmlParamTable& table;
        XmlParamSet& set;
        XmlElementReader& in;
        quint32 seen = 0;

        bool start(QStringView name)
        {
            for (size_t i = 0; i < table.m_fields.size(); ++i) {
                const XmlParam& field = table.m_fields[i];
                if (!XmlKit::sameName(field.m_readName, name))
                    continue;
                const quint32 own = 1u << i;
                const quint32 refusers = field.m_repeated ? ~((own << 1) - 1) : ~(own - 1);
                if (seen & refusers)
                    return false;
                const auto value = field.convert(in.reader().readElementText());
                if (value) {
                    set.m_values[int(i)] = *value;
                    set.m_has |= own;
                    seen |= own;
                } else {
                    set.m_values[int(i)] = field.m_fallback;
                    set.m_has &= ~own;
                    in.fail(field.m_badValue);
                }
                return true;
            }
            return false;
        }
    } tokens{{}, *this, set, in};
    in.loop(tokens);
}

void XmlParamTable::write(const XmlParamSet& set, QXmlStreamWriter& writer,
                          const QString& elementName) const
{
    writer.writeStartElement(elementName);
    for (size_t i = 0; i < m_fields.size(); ++i) {
        const XmlParam& field = m_fields[i];
        if (set.has(int(i))) {
            writer.writeTextElement(field.m_writtenUnderSetName ? elementName : field.m_writeName,
                                    field.format(set.m_values.at(int(i))));
        }
    }
    writer.writeEndElement();
}

void XmlParamTable::reset(XmlParamSet& set) const
{
    set.m_values.resize(int(m_fields.size()));
    for (size_t i = 0; i < m_fields.size(); ++i)
        set.m_values[int(i)] = m_fields[i].m_default;
    set.m_has = 0;
}

XmlParamSet::XmlParamSet(const XmlParamTable& table)
    : XmlElementBase(PermanentName{&table.classname()})
    , m_table(&table)
{
    table.reset(*this);
}

void XmlParamSet::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    m_table->read(*this, reader, elementName);
}

void XmlParamSet::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    m_table->write(*this, writer, elementName);
}

void XmlParamSet::reset()
{
    m_table->reset(*this);
    XmlElementBase::reset();
}

void XmlParamSet::set(int field, double value)
{
    m_values[field] = value;
    m_has |= 1u << field;
}

bool XmlParamSet::within(int field, double low, double high) const
{
    const double v = m_values.at(field);
    return !has(field) || !(v < low || v > high);
}

} // namespace KelXml
