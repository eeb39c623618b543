#pragma once

#include "XmlElementBase.h"

namespace KelXml {

/// A SINAD ratio: `<Name version="1.0">12.000000</Name>`, without a unit.
/// \ingroup values
class KELXML_EXPORT XmlSinadType : public XmlElementBase
{
public:
    XmlSinadType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    /// The ratio as a plain number; the element has no unit.
    double sinad() const { return m_sinad; }
    void setSinad(double sinad) { m_sinad = sinad; }
    QString version() const { return m_version; }
    void setVersion(const QString& version) { m_version = version; }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    bool supportsVersion() const;

    XmlText m_version;
    double m_sinad;
};

} // namespace KelXml
