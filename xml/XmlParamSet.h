#pragma once

#include "XmlElementBase.h"

#include <QVector>

namespace KelXml {

class XmlParamTable;

/// The base of a propagation model's parameter set: a flat element of text
/// children, each an optional number or enumeration with a "has" flag. The
/// class states its fields once, in a table (an XmlParamTable, built in the
/// class's source), and this base reads, writes and resets them from it.
///
/// Fields are addressed by their position in the table; every value is held as
/// a double (integers and enumerations convert exactly).
/// \ingroup framework
class KELXML_EXPORT XmlParamSet : public XmlElementBase
{
public:
    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    /// Every field back to its default, and unset.
    void reset() override;

protected:
    void describe(XmlWalker& walker, const QString& elementName) const override;
    explicit XmlParamSet(const XmlParamTable& table);

    double value(int field) const { return m_values.at(field); }
    bool has(int field) const { return (m_has >> field) & 1u; }
    /// Stores the value and marks the field set.
    void set(int field, double value);
    /// True when the field is unset, or set and neither below low nor above high.
    bool within(int field, double low, double high) const;
    /// True when the field is set and holds this value.
    bool isSetTo(int field, double value) const
    {
        return has(field) && m_values.at(field) == value;
    }

private:
    void resetFields();

    const XmlParamTable* m_table;
    QVector<double> m_values;
    quint32 m_has = 0;
};

} // namespace KelXml
