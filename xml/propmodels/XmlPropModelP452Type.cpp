#include "XmlPropModelP452Type.h"

#include "XmlParams.h"

namespace KelXml {

const XmlParamTable& XmlPropModelP452Type::table()
{
    static const XmlParamTable table(
        "XmlPropModelP542Type",
        {
            XmlParam::number("DeltaN", 45.59, 1, "Illegal DeltaN value (must be numeric)"),
            XmlParam::integer("SurfaceRefract", 329,
                              "Illegal SurfaceRefract value (must be numeric)"),
            XmlParam::number("TimePct", 50.0, 2, "Illegal TimePct value (must be numeric)"),
            XmlParam::integer("Pressure_hPa", 1013, "Illegal Pressure_hPa value (must be numeric)"),
            XmlParam::integer("Temp_C", 15, "Illegal Temp_C value (must be numeric)"),
            XmlParam::number("OverWater_km", 0.0, 1,
                             "Illegal OverWater_km value (must be numeric)"),
            XmlParam::number("InlandCoastal_km", 0.0, 1,
                             "Illegal InlandCoastal_km value (must be numeric)"),
            XmlParam::number("Inland_km", 0.0, 1, "Illegal Inland_km value (must be numeric)"),
            XmlParam::number("DistTxCoast_km", 500.0, 1,
                             "Illegal DistTxCoast_km value (must be numeric)"),
            XmlParam::number("DistRxCoast_km", 500.0, 1,
                             "Illegal DistRxCoast_km value (must be numeric)"),
        });
    return table;
}

XmlPropModelP452Type::XmlPropModelP452Type()
    : XmlParamSet(table())
{}

void XmlPropModelP452Type::checkContent(XmlChecks& checks) const
{
    checks.expect(within(DeltaN, 0.0, 600.0), QStringLiteral("DeltaN out of bounds"));
    checks.expect(within(SurfaceRefract, 250, 400), QStringLiteral("SurfaceRefract out of bounds"));
    checks.expect(within(TimePct, 0.01, 50.0), QStringLiteral("TimePct out of bounds"));
    checks.expect(within(Pressure, 800, 1100), QStringLiteral("Pressure_hPa out of bounds"));
    checks.expect(within(Temp, -60, 50), QStringLiteral("Temp_C out of bounds"));
    checks.expect(within(OverWater, 0.0, 40000.0), QStringLiteral("OverWater_km out of bounds"));
    checks.expect(within(InlandCoastal, 0.0, 40000.0),
                  QStringLiteral("InlandCoastal_km out of bounds"));
    checks.expect(within(Inland, 0.0, 40000.0), QStringLiteral("Inland_km out of bounds"));
    checks.expect(within(DistTxCoast, 0.0, 40000.0),
                  QStringLiteral("DistTxCoast_km out of bounds"));
    checks.expect(within(DistRxCoast, 0.0, 40000.0),
                  QStringLiteral("DistRxCoast_km out of bounds"));
}

} // namespace KelXml
