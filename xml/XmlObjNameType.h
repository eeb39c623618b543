#pragma once

#include "XmlElementBase.h"

namespace KelXml {

/// The name of a scenario object, 1 to 128 characters: `<Name>Station 1</Name>`.
/// No version and no attributes.
/// \ingroup values
class KELXML_EXPORT XmlObjNameType : public XmlElementBase
{
public:
    XmlObjNameType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    const QString& objName() const { return m_name; }
    void setObjName(const QString& name) { m_name = name; }

protected:
    void describe(XmlWalker& walker, const QString& elementName) const override;
    void checkContent(XmlChecks& checks) const override;

private:
    QString m_name;
};

} // namespace KelXml
