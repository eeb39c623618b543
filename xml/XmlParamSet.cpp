#include "XmlParamSet.h"

#include "XmlElementReader.h"
#include "XmlParams.h"
#include "XmlWalk.h"

namespace KelXml {

// Each field is accepted only while no later field has been read, and once
// unless it may repeat. A text that does not convert takes the fallback,
// leaves the field unset and ends the reading with the field's own message.
void XmlParamSet::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    const XmlParamTable& fields = *m_table;
    if (fields.m_resetBeforeReading)
        reset();
    XmlElementReader in(*this, reader, elementName, XmlElementReader::NamedWording);
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
    } tokens{{}, fields, *this, in};
    in.loop(tokens);
}

void XmlParamSet::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    const std::vector<XmlParam>& fields = m_table->m_fields;
    writer.writeStartElement(elementName);
    for (size_t i = 0; i < fields.size(); ++i) {
        const XmlParam& field = fields[i];
        if (has(int(i))) {
            writer.writeTextElement(field.m_writtenUnderSetName ? elementName : field.m_writeName,
                                    field.format(m_values.at(int(i))));
        }
    }
    writer.writeEndElement();
}

// Every field back to its default, and unset.
void XmlParamSet::resetFields()
{
    const std::vector<XmlParam>& fields = m_table->m_fields;
    m_values.resize(int(fields.size()));
    for (size_t i = 0; i < fields.size(); ++i)
        m_values[int(i)] = fields[i].m_default;
    m_has = 0;
}

XmlParamSet::XmlParamSet(const XmlParamTable& table)
    : XmlElementBase(PermanentName{&table.classname()})
    , m_table(&table)
{
    resetFields();
}

void XmlParamSet::reset()
{
    resetFields();
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

void XmlParamSet::describe(XmlWalker& walker, const QString& elementName) const
{
    const std::vector<XmlParam>& fields = m_table->m_fields;
    for (size_t i = 0; i < fields.size(); ++i) {
        if (!has(int(i)))
            continue;
        const XmlParam& field = fields[i];
        const double held = m_values.at(int(i));
        XmlValue typed;
        if (field.m_kind == XmlParam::Number)
            typed = XmlValue::number(held, field.format(held));
        else if (field.m_kind == XmlParam::Integer)
            typed = XmlValue::integer(qint64(held));
        else
            typed = XmlValue::enumeration(int(held), field.format(held));
        walker.textElement(field.m_writtenUnderSetName ? elementName : field.m_writeName, typed);
    }
}

} // namespace KelXml
