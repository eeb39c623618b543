#include "XmlPropModelOLOSType.h"

#include "XmlParams.h"

namespace KelXml {

const XmlParamTable& XmlPropModelOLOSType::table()
{
    static const XmlParamTable table(
        "XmlPropModelOLOSType",
        {
            XmlParam::number("K-factor", 1.0, 4, "Illegal K-factor value (must be numeric)")
                .repeated(),
            XmlParam::number("MaxRange_km", 50.0, 3, "Illegal range value (must be numeric)"),
        });
    return table;
}

XmlPropModelOLOSType::XmlPropModelOLOSType()
    : XmlParamSet(table())
{}

void XmlPropModelOLOSType::checkContent(XmlChecks& checks) const
{
    checks.expect(within(KFactor, 0.1, 5.0), QStringLiteral("K-factor out of bounds"));
    checks.expect(within(MaxRange, 0.1, 50.0), QStringLiteral("Range out of bounds"));
}

} // namespace KelXml
