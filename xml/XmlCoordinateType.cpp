#include "XmlCoordinateType.h"

#include "XmlLayout.h"

namespace KelXml {

namespace {
const double unset = -999.999;
} // namespace

// The texts are converted unchecked: a text that is not a number gives 0.
XmlLayout XmlCoordinateType::layoutWith(std::initializer_list<XmlField> attributes)
{
    using Self = XmlCoordinateType;
    std::vector<XmlField> rows(attributes);
    rows.push_back(XmlField::number("Longitude", &Self::m_longitude, 'f', 6));
    rows.push_back(XmlField::number("Latitude", &Self::m_latitude, 'f', 6));
    return XmlLayout("XmlCoordinateType", XmlElementReader::NamedWording, XmlLayout::CheckedVersion,
                     std::move(rows));
}

const XmlLayout& XmlCoordinateType::layout()
{
    static const XmlLayout layout = layoutWith({});
    return layout;
}

XmlCoordinateType::XmlCoordinateType()
    : XmlCoordinateType(layout())
{}

XmlCoordinateType::XmlCoordinateType(const XmlLayout& layout)
    : XmlVersionedComposite(layout)
    , m_longitude(unset)
    , m_latitude(unset)
{}

XmlCoordinateType::XmlCoordinateType(const XmlCoordinateType& other)
    : XmlCoordinateType(other, layout())
{}

XmlCoordinateType::XmlCoordinateType(const XmlCoordinateType& other, const XmlLayout& layout)
    : XmlVersionedComposite(layout)
    , m_longitude(other.m_longitude)
    , m_latitude(other.m_latitude)
{
    m_version = other.m_version;
}

// The values only: each object keeps the table it was made with.
XmlCoordinateType& XmlCoordinateType::operator=(const XmlCoordinateType& other)
{
    m_version = other.m_version;
    m_longitude = other.m_longitude;
    m_latitude = other.m_latitude;
    return *this;
}

void XmlCoordinateType::checkContent(XmlChecks& checks) const
{
    checkVersion(checks);
    checks.expect(!(m_longitude < -180.0 || m_longitude > 180.0),
                  QStringLiteral("Longitude out of bounds"));
    checks.expect(!(m_latitude < -90.0 || m_latitude > 90.0),
                  QStringLiteral("Latitude out of bounds"));
}

void XmlCoordinateType::reset()
{
    m_longitude = unset;
    m_latitude = unset;
    XmlComposite::reset();
}

} // namespace KelXml
