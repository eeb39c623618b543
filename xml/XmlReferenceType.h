#pragma once

#include "XmlElementBase.h"

namespace KelXml {

/// A short reference text, 1 to 50 characters, that links a response to its
/// command: `<Reference>job-17</Reference>`. No version and no attributes. Its
/// messages name the class "XmlreferenceType".
/// \ingroup values
class KELXML_EXPORT XmlReferenceType : public XmlElementBase
{
public:
    XmlReferenceType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    const QString& reference() const { return m_reference; }
    void setReference(const QString& reference) { m_reference = reference; }

protected:
    void describe(XmlWalker& walker, const QString& elementName) const override;
    void checkContent(XmlChecks& checks) const override;

private:
    QString m_reference;
};

} // namespace KelXml
