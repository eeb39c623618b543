#pragma once

#include "XmlElementBase.h"

namespace KelXml {

/// An integer map key: `<Key>7</Key>`. The one value without a version.
/// \ingroup values
class KELXML_EXPORT XmlKeyType : public XmlElementBase
{
public:
    XmlKeyType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    /// Valid from 0.
    int key() const { return m_key; }
    void setKey(int key) { m_key = key; }

protected:
    void describe(XmlWalker& walker, const QString& elementName) const override;
    void checkContent(XmlChecks& checks) const override;

private:
    int m_key;
};

} // namespace KelXml
