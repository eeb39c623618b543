#pragma once

#include "XmlElementBase.h"

namespace KelXml {

/// A field strength: `<Name version="1.0" unit="dBm">-80.000000000000000</Name>`.
/// \ingroup values
class KELXML_EXPORT XmlFieldstrengthType : public XmlElementBase
{
public:
    XmlFieldstrengthType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    /// In dBm; the default -99999.999 means not set and is invalid.
    double fieldstrength() const { return m_fieldstrength; }
    void setFieldstrength(double fieldstrength) { m_fieldstrength = fieldstrength; }
    /// The unit as read; only "dBm" is valid.
    const QString& unit() const { return m_unit; }
    QString version() const { return m_version; }
    void setVersion(const QString& version) { m_version = version; }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    bool supportsVersion() const;

    XmlText m_unit;
    XmlText m_version;
    double m_fieldstrength;
};

} // namespace KelXml
