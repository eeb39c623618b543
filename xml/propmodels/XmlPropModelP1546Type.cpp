#include "XmlPropModelP1546Type.h"

#include "XmlEnumTexts.h"
#include "XmlParams.h"

namespace KelXml {

const XmlParamTable& XmlPropModelP1546Type::table()
{
    // "Undefined" is a text like the others here: read as 0, and written for
    // every value outside the table.
    static const XmlEnumTexts path({{PathUndefined, "Undefined"},
                                    {PathLand, "Land"},
                                    {PathColdSea, "Cold Sea"},
                                    {PathWarmSea, "Warm Sea"}},
                                   "Undefined");
    static const XmlEnumTexts environment({{EnvironmentUndefined, "Undefined"},
                                           {EnvironmentOpen, "Open"},
                                           {EnvironmentSuburban, "Suburban"},
                                           {EnvironmentWarmSea, "Warm Sea"}},
                                          "Undefined");
    static const XmlEnumTexts onOff({{Off, "Off"}, {On, "On"}}, "Off");

    static const XmlParamTable table(
        "XmlPropModelP1546Type",
        {
            XmlParam::number("K-factor", 1.3333, 3, "Illegal K-factor value (must be numeric)")
                .repeated(),
            XmlParam::number("TimePct", 50.0, 2, "Illegal TimePct value (must be numeric)")
                .repeated(),
            XmlParam::choice("PropPathType", path, PathUndefined, "Illegal enum for PropPathType")
                .repeated(),
            XmlParam::number("LocVar", 50.0, 2, "Illegal LocVar value (must be numeric)")
                .repeated(),
            XmlParam::number("BoardAntGain", 0.0, 3, "Illegal BoardAntGain value (must be numeric)")
                .fallback(50.0),
            XmlParam::choice("RxAntEnviro", environment, EnvironmentUndefined,
                             "Illegal enum for RxAntEnviro"),
            XmlParam::choice("AvgAreaEnviro", environment, EnvironmentUndefined,
                             "Illegal enum for AvgAreaEnviro"),
            XmlParam::choice("PathCorrection", onOff, Off, "Illegal enum for PathCorrection"),
            XmlParam::choice("PathTypeForBroadAnt", path, PathUndefined,
                             "Illegal enum for PathTypeForBroadAnt"),
            XmlParam::choice("PathTypeForRxAnt", path, PathUndefined,
                             "Illegal enum for PathTypeForRxAnt"),
        });
    return table;
}

XmlPropModelP1546Type::XmlPropModelP1546Type()
    : XmlParamSet(table())
{}

void XmlPropModelP1546Type::checkContent(XmlChecks& checks) const
{
    checks.expect(within(KFactor, 0.1, 5.0), QStringLiteral("K-factor out of bounds"));
    checks.expect(within(TimePct, 0.01, 50.0), QStringLiteral("TimePct out of bounds"));
    checks.expect(within(LocVar, 1.0, 99.0), QStringLiteral("LocVar out of bounds"));
    checks.expect(within(BoardAntGain, 0.0, 99.999), QStringLiteral("BroadAntGain out of bounds"));
}

} // namespace KelXml
