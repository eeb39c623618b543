#include "XmlCmdBase.h"

#include "XmlElementReader.h"
#include "XmlLayout.h"

namespace KelXml {

XmlLayout XmlCmdBase::commandLayout(const char* classname, std::initializer_list<XmlField> kinds)
{
    std::vector<XmlField> replaced;
    for (const XmlField& kind : kinds)
        replaced.push_back(kind.replaced());
    return XmlLayout(classname, XmlElementReader::ElementWording, XmlLayout::NoVersion,
                     {
                         XmlField::single(replaced, "Too many or too few elements."),
                         XmlField::object("Reference", &XmlCmdBase::m_reference).unchecked(),
                     })
        .withoutPositionTest();
}

void XmlCmdBase::reset()
{
    m_orderDef.reset();
    XmlComposite::reset();
}

void XmlCmdBase::checkContent(XmlChecks& checks) const
{
    checks.child(const_cast<XmlReferenceType*>(&m_reference));
    checkChildren(checks);
}

} // namespace KelXml
