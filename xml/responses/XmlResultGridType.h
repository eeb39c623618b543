#pragma once

#include "XmlElementBase.h"

namespace KelXml {

// The size of a result grid as a text element: <ResultGrid>100</ResultGrid>.
// No version and no attributes.
class KELXML_EXPORT XmlResultGridType : public XmlElementBase
{
public:
    enum GridSize
    {
        SizeUndefined = 0, // written "UNDEFINED", never accepted
        Grid10,
        Grid50,
        Grid100,
        Grid200,
        Grid500,
        Grid1000,
    };

    XmlResultGridType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    GridSize size() const { return m_size; }
    void setSize(GridSize size) { m_size = size; }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    GridSize m_size;
};

} // namespace KelXml
