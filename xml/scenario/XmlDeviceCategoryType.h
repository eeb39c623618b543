#pragma once

#include "XmlElementBase.h"

namespace KelXml {

// The category of a device in a signal chain, as element text:
// <DeviceCategory>Receiver</DeviceCategory>. No version and no attributes.
class KELXML_EXPORT XmlDeviceCategoryType : public XmlElementBase
{
public:
    enum Category : qint32
    {
        Undefined = 0,
        Receiver = 1,
        PassiveAntennas = 2,
        Cable = 3,
        Other = 4,
        ActiveAntennas = 5,
        DF = 6,
    };

    XmlDeviceCategoryType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    Category category() const { return m_category; }
    void setCategory(Category category) { m_category = category; }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    Category m_category = Undefined;
};

} // namespace KelXml
