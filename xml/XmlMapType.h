#pragma once

#include "XmlComposite.h"
#include "XmlKeyType.h"
#include "XmlLengthType.h"
#include "XmlOwned.h"

namespace KelXml {

/// One entry of a key/length map:
/// `<Map version="1.0"><Key>7</Key><Value version="1.0" unit="m">25</Value></Map>`.
///
/// The writer puts the length twice, under "Key" and under "Value", and never
/// the key; isValid() ignores the key while syntaxError() reports it.
///
/// reset() deletes both children: key() and value() are null afterwards. Such
/// an entry can still be read into (the children are created again), written
/// (without children), checked (it is invalid) and copied.
/// \ingroup values
class KELXML_EXPORT XmlMapType : public XmlVersionedComposite
{
public:
    XmlMapType();

    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    bool isValid() const override;

    /// The key; null after reset() until the entry is read again.
    const XmlKeyType* key() const { return m_key.get(); }
    /// Copies the key into the entry.
    void setKey(const XmlKeyType& key) { m_key.assign(key); }
    /// The length in metres; null after reset() until the entry is read again.
    const XmlLengthType* value() const { return m_value.get(); }
    /// Copies the length into the entry.
    void setValue(const XmlLengthType& value) { m_value.assign(value); }

protected:
    void describe(XmlWalker& walker, const QString& elementName) const override;
    void checkContent(XmlChecks& checks) const override;

private:
    static const XmlLayout& layout();

    XmlOwnedPtr<XmlKeyType> m_key;
    XmlOwnedPtr<XmlLengthType> m_value;
};

} // namespace KelXml
