#include "XmlPropModelP526Type.h"

#include "XmlEnumTexts.h"
#include "XmlParams.h"

namespace KelXml {

const XmlParamTable& XmlPropModelP526Type::table()
{
    static const XmlParamTable table(
        "XmlPropModelP526Type",
        {
            XmlParam::number("K-factor", 1.3333, 3, "Illegal K-factor value (must be numeric)"),
            XmlParam::choice(
                "Pol",
                XmlEnumTexts({{Horizontal, "Horizontal"}, {Vertical, "Vertical"}}, "Horizontal"),
                Horizontal, "Illegal enum for Pol")
                .writtenAs("Polarisation"),
            XmlParam::choice("Surface",
                             XmlEnumTexts({{AverageGround, "Average Ground"},
                                           {PoorGround, "Poor Ground"},
                                           {GoodGround, "Good Ground"},
                                           {FreshWater, "Fresh Water"},
                                           {SeaWater, "Sea Water"}},
                                          "Average Ground"),
                             AverageGround, "Illegal enum for Surface")
                .writtenAs("Surface Condition"),
            XmlParam::choice("AssumeSmoothEarth", XmlEnumTexts({{Off, "Off"}, {On, "On"}}, "Off"),
                             Off, "Illegal enum for AssumeSmoothEarth")
                .writtenAs("Assume Smooth Earth for complete path"),
            XmlParam::choice("IncludeSubPathDiffractionLoss",
                             XmlEnumTexts({{Off, "Off"}, {On, "On"}}, "On"), On,
                             "Illegal enum for IncludeSubPathDiffractionLoss")
                .writtenAs("Include sub path diffraction loss"),
        });
    return table;
}

XmlPropModelP526Type::XmlPropModelP526Type()
    : XmlParamSet(table())
{}

void XmlPropModelP526Type::checkContent(XmlChecks& checks) const
{
    checks.expect(within(KFactor, 0.1, 5.0), QStringLiteral("K-factor out of bounds"));
}

} // namespace KelXml
