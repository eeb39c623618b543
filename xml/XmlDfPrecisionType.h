#pragma once

#include "XmlElementBase.h"

namespace KelXml {

/// The integer direction-finding precision:
/// `<DFprecision version="1.0" unit="°">2</DFprecision>`. -2 marks "not set".
/// \ingroup values
class KELXML_EXPORT XmlDfPrecisionType : public XmlElementBase
{
public:
    XmlDfPrecisionType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    /// In whole degrees; -2 means not set, -1 is the lowest valid value.
    int precision() const { return m_precision; }
    void setPrecision(int precision) { m_precision = precision; }
    /// The unit as read; only the degree sign is valid.
    const QString& unit() const { return m_unit; }
    QString version() const { return m_version; }
    void setVersion(const QString& version) { m_version = version; }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    bool supportsVersion() const;

    XmlText m_unit;
    XmlText m_version;
    int m_precision;
};

} // namespace KelXml
