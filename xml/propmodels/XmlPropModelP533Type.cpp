#include "XmlPropModelP533Type.h"

#include "XmlParams.h"

namespace KelXml {

const XmlParamTable& XmlPropModelP533Type::table()
{
    // The messages of this set name the class "XmlPropModelP526Type".
    static const XmlParamTable table(
        "XmlPropModelP526Type",
        {
            XmlParam::number("K-factor", 1.0, 3, "Illegal K-factor value (must be numeric)"),
            XmlParam::number("SmoothedSunSpotNumber", 5.0, 1,
                             "Illegal SmoothedSunSpotNumber value (must be numeric)"),
        });
    return table;
}

XmlPropModelP533Type::XmlPropModelP533Type()
    : XmlParamSet(table())
{}

void XmlPropModelP533Type::checkContent(XmlChecks& checks) const
{
    checks.expect(within(KFactor, 0.1, 5.0), QStringLiteral("K-factor out of bounds"));
    checks.expect(within(SunSpots, 0.0, 999.9),
                  QStringLiteral("SmoothedSunSpotNumber out of bounds"));
}

} // namespace KelXml
