#include "XmlPropModelHataType.h"

#include "XmlEnumTexts.h"
#include "XmlParams.h"

namespace KelXml {

const XmlParamTable& XmlPropModelHataType::table()
{
    static const XmlParamTable table =
        XmlParamTable(
            "XmlPropModelHataType",
            {
                XmlParam::number("K-factor", 1.3333, 4, "Illegal Kfactor value (must be numeric)")
                    .writtenUnderSetName(),
                XmlParam::choice("AreaType",
                                 XmlEnumTexts::numbered({"Urban", "Suburban", "Open rural"}),
                                 AreaUndefined, "Illegal value for \"AreaType\""),
                XmlParam::choice("CitySize", XmlEnumTexts::numbered({"Small", "Medium", "Large"}),
                                 SizeUndefined, "Illegal value for \"CitySize\""),
            })
            .resetBeforeReading();
    return table;
}

XmlPropModelHataType::XmlPropModelHataType()
    : XmlParamSet(table())
{}

void XmlPropModelHataType::checkContent(XmlChecks& checks) const
{
    checks.expect(within(KFactor, 0.1, 5.0), QStringLiteral("Kfactor out of bounds"));
    checks.expect(!isSetTo(AreaType, AreaUndefined), QStringLiteral("Illegal AreaType"));
    checks.expect(!isSetTo(CitySize, SizeUndefined), QStringLiteral("Illegal CitySize"));
}

} // namespace KelXml
