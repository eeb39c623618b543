#include "XmlEmitterType.h"

#include "XmlElementReader.h"
#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlEmitterType::layout()
{
    using Self = XmlEmitterType;
    static const XmlLayout layout("XmlEmitterType", XmlElementReader::ElementWording,
                                  XmlLayout::CheckedVersion,
                                  {
                                      XmlField::object("Name", &Self::m_objName),
                                      XmlField::object("Position", &Self::m_position),
                                      XmlField::object("TxParameter", &Self::m_txParam),
                                  });
    return layout;
}

XmlEmitterType::XmlEmitterType()
    : XmlVersionedComposite(layout())
{}

} // namespace KelXml
