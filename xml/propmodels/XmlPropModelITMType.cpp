#include "XmlPropModelITMType.h"

#include "XmlEnumTexts.h"
#include "XmlParams.h"

namespace KelXml {

const XmlParamTable& XmlPropModelITMType::table()
{
    static const XmlParamTable table(
        "XmlPropModelITMType",
        {
            XmlParam::number("RRI", 300.0, 4, "Illegal RRI value (must be numeric)"),
            XmlParam::choice("Pol", XmlEnumTexts::numbered({"H", "V"}), PolarisationUndefined,
                             "Illegal value for \"Pol\""),
            XmlParam::choice(
                "Climate",
                XmlEnumTexts::numbered({"Equatorial", "Continental Subtropical",
                                        "Maritime Tropical", "Desert", "Continental Temperate",
                                        "Maritime Temperate, Land", "Maritime Temperate, Sea"}),
                ClimateUndefined, "Illegal value for \"Climate\""),
            XmlParam::choice("Surface",
                             XmlEnumTexts::numbered({"Average Ground", "Poor Ground", "Good Ground",
                                                     "Fresh Water", "Sea Water"}),
                             SurfaceUndefined, "Illegal value for \"Surface\""),
            XmlParam::number("Conf", 0.5, 2, "Illegal Conf value (must be numeric)"),
            XmlParam::number("Time", 0.5, 2, "Illegal Time value (must be numeric)"),
        });
    return table;
}

XmlPropModelITMType::XmlPropModelITMType()
    : XmlParamSet(table())
{}

// The bounds come first, then the enumerations, climate before polarisation.
void XmlPropModelITMType::checkContent(XmlChecks& checks) const
{
    checks.expect(within(RriField, -300.0, 400.0), QStringLiteral("RRI out of bounds"));
    checks.expect(within(ConfField, 0.0, 100.0), QStringLiteral("Conf out of bounds"));
    checks.expect(within(TimeField, 0.0, 100.0), QStringLiteral("Time out of bounds"));
    checks.expect(!isSetTo(ClimateField, ClimateUndefined), QStringLiteral("Illegal climate"));
    checks.expect(!isSetTo(PolField, PolarisationUndefined),
                  QStringLiteral("Illegal polarisation"));
    checks.expect(!isSetTo(SurfaceField, SurfaceUndefined), QStringLiteral("Illegal surface"));
}

} // namespace KelXml
