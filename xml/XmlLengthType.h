#pragma once

#include "XmlElementBase.h"

namespace KelXml {

/// A length in whole metres: `<Name version="1.0" unit="m">25</Name>`.
/// \ingroup values
class KELXML_EXPORT XmlLengthType : public XmlElementBase
{
public:
    XmlLengthType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    /// In metres.
    int length() const { return m_length; }
    void setLength(int length) { m_length = length; }
    /// The unit as read; only "m" is valid.
    const QString& unit() const { return m_unit; }
    QString version() const { return m_version; }
    void setVersion(const QString& version) { m_version = version; }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    bool supportsVersion() const;

    XmlText m_unit;
    XmlText m_version;
    int m_length;
};

} // namespace KelXml
