#include "XmlPropModelType.h"

#include "XmlElementReader.h"
#include "XmlLayout.h"

namespace KelXml {

// The model comes first if at all, then at most one parameter set, then, in
// command mode, the reference, each once; a child met is read into a fresh
// object and the others stay as held. Outside command mode there is no
// reference to read or write.
const XmlLayout& XmlPropModelType::layout(bool isCommand)
{
    using Self = XmlPropModelType;
    const auto fields = [](bool withReference) {
        std::vector<XmlField> sets = {
            XmlField::optional("PropertiesFreespace", &Self::m_freespace).replaced(),
            XmlField::optional("PropertiesOLOS", &Self::m_OLOS).replaced(),
            XmlField::optional("PropertiesITM", &Self::m_ITM).replaced(),
            XmlField::optional("PropertiesP452", &Self::m_P452).replaced(),
            XmlField::optional("PropertiesP1546", &Self::m_P1546).replaced(),
            XmlField::optional("PropertiesP526", &Self::m_P526).replaced(),
            XmlField::optional("PropertiesP533", &Self::m_P533).replaced(),
            XmlField::optional("PropertiesOkumura", &Self::m_Hata).replaced(),
        };
        std::vector<XmlField> children = {
            XmlField::optional("SelectModel", &Self::m_model).replaced().unchecked(),
            XmlField::single(sets, "Illegal number of elements.").notRequired(),
        };
        if (withReference)
            children.push_back(XmlField::object("Reference", &Self::m_reference).unchecked());
        return XmlLayout("XmlPropModelType", XmlElementReader::ElementWording, XmlLayout::NoVersion,
                         children)
            .withoutPositionTest();
    };
    static const XmlLayout command = fields(true);
    static const XmlLayout plain = fields(false);
    return isCommand ? command : plain;
}

XmlPropModelType::XmlPropModelType(bool isCommand)
    : XmlCmdBase(layout(isCommand))
    , m_isCommand(isCommand)
{}

void XmlPropModelType::checkContent(XmlChecks& checks) const
{
    // The reference is reported after the model and before the parameter
    // sets, unlike the writing order.
    checks.child(m_model.get());
    if (m_isCommand)
        checks.child(const_cast<XmlReferenceType*>(&m_reference));
    checkChildren(checks);
}

} // namespace KelXml
