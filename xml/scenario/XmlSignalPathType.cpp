#include "XmlSignalPathType.h"

#include "XmlElementReader.h"
#include "XmlLayout.h"

namespace KelXml {

const XmlLayout& XmlSignalPathType::layout()
{
    using Self = XmlSignalPathType;
    static const XmlLayout layout("XmlSignalPathType", XmlElementReader::ElementWording,
                                  XmlLayout::CheckedVersion,
                                  {
                                      XmlField::object("Name", &Self::m_objName),
                                      XmlField::object("SINAD", &Self::m_sinad),
                                      XmlField::object("Device", &Self::m_devices),
                                      XmlField::optional("AntHgtMap", &Self::m_antHgtMap),
                                      XmlField::optional("CabLenMap", &Self::m_cabLenMap),
                                  });
    return layout;
}

XmlSignalPathType::XmlSignalPathType()
    : XmlVersionedComposite(layout())
{}

} // namespace KelXml
