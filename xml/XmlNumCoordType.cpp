#include "XmlNumCoordType.h"

#include "XmlLayout.h"

namespace KelXml {

namespace {
const int unset = -9999;
} // namespace

const XmlLayout& XmlNumCoordType::layout()
{
    static const XmlLayout layout =
        layoutWith({XmlAttribute::integer("number", &XmlNumCoordType::m_number)});
    return layout;
}

XmlNumCoordType::XmlNumCoordType()
    : XmlCoordinateType(layout())
    , m_number(unset)
{}

XmlNumCoordType::XmlNumCoordType(const XmlNumCoordType& other)
    : XmlCoordinateType(other, layout())
    , m_number(other.m_number)
{}

void XmlNumCoordType::checkContent(XmlChecks& checks) const
{
    XmlCoordinateType::checkContent(checks);
    checks.expect(!(m_number < 0),
                  QStringLiteral("(XmlNumCoordType) Number attribute too small (min. 0)"));
}

void XmlNumCoordType::reset()
{
    m_number = unset;
    XmlCoordinateType::reset();
}

} // namespace KelXml
