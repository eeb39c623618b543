#include "XmlResInfoBase.h"

#include "XmlElementReader.h"
#include "XmlLayout.h"

namespace KelXml {

// Each child is taken only right after the one before it: the name, one
// shape (a shape read replaces a held one of its kind, the other stays), the
// grid, the values, and the best-sensor record's comment.
XmlLayout XmlResInfoBase::recordLayout(const char* classname, CommentRule comment)
{
    using Self = XmlResInfoBase;
    std::vector<XmlField> children = {
        XmlField::object("Name", &Self::m_objName),
        XmlField::single({XmlField::optional("AreaPolygon", &Self::m_areaPoly).replaced(),
                          XmlField::optional("AreaRect", &Self::m_areaRect).replaced()},
                         "")
            .after({"Name"}),
        XmlField::object("ResultGrid", &Self::m_resultGrid).after({"AreaPolygon", "AreaRect"}),
        XmlField::object("Values", &Self::m_gridValues).after({"ResultGrid"}),
    };
    if (comment == WithComment)
        children.push_back(XmlField::optional("Comment", &Self::m_comment).after({"Values"}));
    return XmlLayout(classname, XmlElementReader::ElementWording, XmlLayout::CheckedVersion,
                     children);
}

XmlResInfoBase::XmlResInfoBase(const XmlLayout& layout)
    : XmlVersionedComposite(layout)
{}

void XmlResInfoBase::checkContent(XmlChecks& checks) const
{
    checkVersion(checks);
    checks.child(const_cast<XmlObjNameType*>(&m_objName));
    // With both shapes held only the polygon counts.
    if (m_areaPoly)
        checks.child(m_areaPoly.get());
    else if (m_areaRect)
        checks.child(m_areaRect.get());
    else
        checks.expect(false, QStringLiteral("Neither AreaPolygon nor AreaRect"));
    checks.child(const_cast<XmlResultGridType*>(&m_resultGrid));
    checks.child(const_cast<XmlGridValuesType*>(&m_gridValues));
    checks.child(m_comment.get());
}

} // namespace KelXml
