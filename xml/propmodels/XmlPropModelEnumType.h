#pragma once

#include "XmlElementBase.h"

namespace KelXml {

/// The name of the selected propagation model, as one text element:
/// `<SelectModel>Okumura-Hata</SelectModel>`. No version and no attributes. The
/// text must match one of the model texts exactly; "UNDEFINED" is written for
/// no model but never read.
/// \ingroup propmodels
class KELXML_EXPORT XmlPropModelEnumType : public XmlElementBase
{
public:
    enum Model : qint32
    {
        Undefined = 0,
        FreeSpace = 1,
        Olos = 2,
        Itm = 3,
        P452 = 4,
        P1546 = 5,
        P526 = 6,
        P533 = 7,
        OkumuraHata = 8,
    };

    XmlPropModelEnumType();

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    Model model() const { return m_model; }
    void setModel(Model model) { m_model = model; }

protected:
    void describe(XmlWalker& walker, const QString& elementName) const override;
    void checkContent(XmlChecks& checks) const override;

private:
    Model m_model = Undefined;
};

} // namespace KelXml
