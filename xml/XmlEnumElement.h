#pragma once

#include "XmlElementBase.h"

namespace KelXml {

class XmlEnumTexts;

/// The base of a text element holding one value of an enumeration, such as
/// `<ResultGrid>100</ResultGrid>`: no version, no attributes, no position test.
/// Each piece of text must match one of the enumeration's texts exactly (the
/// reader error otherwise, and the value becomes 0); an empty element keeps
/// the value held. 0 is written as the enumeration's text for values outside
/// it ("UNDEFINED") and makes the element invalid.
/// \ingroup framework
class KELXML_EXPORT XmlEnumElement : public XmlElementBase
{
public:
    /// What sets one enumeration element apart from another.
    struct Shape
    {
        QString classname;
        const XmlEnumTexts* texts;
        QString badText; ///< the reader error for a text that matches none
        QString unset;   ///< the report for the value 0
    };

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

protected:
    void describe(XmlWalker& walker, const QString& elementName) const override;
    explicit XmlEnumElement(const Shape& shape);

    int value() const { return m_value; }
    void setValue(int value) { m_value = value; }

    void checkContent(XmlChecks& checks) const override;

private:
    const Shape* m_shape;
    int m_value = 0;
};

} // namespace KelXml
