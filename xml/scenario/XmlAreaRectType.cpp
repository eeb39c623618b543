#include "XmlAreaRectType.h"

#include "XmlElementReader.h"
#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlAreaRectType::layout()
{
    using Self = XmlAreaRectType;
    static const XmlLayout layout("XmlAreaRectType", XmlElementReader::NamedWording,
                                  XmlLayout::CheckedVersion,
                                  {
                                      XmlField::object("UpperLeft", &Self::m_upperLeft),
                                      XmlField::object("LowerRight", &Self::m_lowerRight),
                                  });
    return layout;
}

XmlAreaRectType::XmlAreaRectType()
    : XmlVersionedComposite(layout())
{}

} // namespace KelXml
