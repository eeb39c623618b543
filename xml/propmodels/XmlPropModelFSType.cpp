#include "XmlPropModelFSType.h"

#include "XmlParams.h"

namespace KelXml {

const XmlParamTable& XmlPropModelFSType::table()
{
    static const XmlParamTable table(
        "XmlPropModelFSType",
        {
            XmlParam::number("K-factor", 1.3333, 4, "Illegal K-factor value (must be numeric)")
                .repeated(),
        });
    return table;
}

XmlPropModelFSType::XmlPropModelFSType()
    : XmlParamSet(table())
{}

void XmlPropModelFSType::checkContent(XmlChecks& checks) const
{
    checks.expect(within(KFactor, 0.1, 5.0), QStringLiteral("K-factor out of bounds"));
}

} // namespace KelXml
