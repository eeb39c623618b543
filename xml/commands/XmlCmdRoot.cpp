#include "XmlCmdRoot.h"

#include "XmlElementReader.h"
#include "XmlLayout.h"

namespace KelXml {

namespace {
XmlPropModelType* commandForm()
{
    return new XmlPropModelType(true);
}
} // namespace

template <class Command>
void XmlCmdRoot::passOrderDef(XmlCmdRoot& root, Command& command)
{
    if (root.m_orderDef)
        command.setOrderDef(*root.m_orderDef);
}

const XmlLayout& XmlCmdRoot::layout()
{
    using Self = XmlCmdRoot;
    static const XmlLayout layout =
        XmlLayout(
            "XmlCmdRoot", XmlElementReader::NamedWording, XmlLayout::NoVersion,
            {
                XmlField::optional("ORDER_DEF", &Self::m_orderDef).replaced(),
                XmlField::list("Administrative", &Self::m_admins)
                    .afterRead(&passOrderDef<XmlCmdAdmin>),
                XmlField::list("Create", &Self::m_creates).afterRead(&passOrderDef<XmlCmdCreate>),
                XmlField::list("Delete", &Self::m_deletes)
                    .afterRead(&passOrderDef<XmlCmdDelete>)
                    .unchecked(),
                XmlField::optional("PropagationModel", &Self::m_propModel, &commandForm)
                    .replaced()
                    .afterRead(&passOrderDef<XmlPropModelType>),
                XmlField::list("Calculate", &Self::m_calcs).afterRead(&passOrderDef<XmlCmdCalc>),
            })
            .withoutPositionTest();
    return layout;
}

XmlCmdRoot::XmlCmdRoot()
    : XmlComposite(layout())
{}

} // namespace KelXml
