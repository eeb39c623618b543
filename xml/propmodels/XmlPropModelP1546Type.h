#pragma once

#include "XmlParamSet.h"

namespace KelXml {

/// The P.1546 point-to-area model's parameters. The first four children may
/// stand several times in a row (the last one counts), the others at most once.
/// The antenna gain is read and written as "BoardAntGain".
/// \ingroup propmodels
class KELXML_EXPORT XmlPropModelP1546Type : public XmlParamSet
{
public:
    enum Path : int
    {
        PathUndefined = 0,
        PathLand = 1,
        PathColdSea = 2,
        PathWarmSea = 3,
    };
    enum Environment : int
    {
        EnvironmentUndefined = 0,
        EnvironmentOpen = 1,
        EnvironmentSuburban = 2,
        EnvironmentWarmSea = 3,
    };
    enum Switch : int
    {
        Off = 0,
        On = 1,
    };

    XmlPropModelP1546Type();

    /// The effective earth-radius factor, valid from 0.1 to 5.
    double kFactor() const { return value(KFactor); }
    bool hasKfactor() const { return has(KFactor); }
    void setKfactor(double kFactor) { set(KFactor, kFactor); }
    /// The percentage of time, valid from 0.01 to 50.
    double time() const { return value(TimePct); }
    bool hasTime() const { return has(TimePct); }
    void setTime(double timePct) { set(TimePct, timePct); }
    /// The type of the propagation path.
    Path path() const { return Path(int(value(PropPathType))); }
    bool hasPath() const { return has(PropPathType); }
    void setPath(Path path) { set(PropPathType, path); }
    /// The percentage of locations, valid from 1 to 99.
    double locVar() const { return value(LocVar); }
    bool hasLocVar() const { return has(LocVar); }
    void setLocVar(double locVar) { set(LocVar, locVar); }
    /// The gain of the broadcasting antenna, valid from 0 to 99.999 (the setter's name is spelt
    /// so).
    double broadAntGain() const { return value(BoardAntGain); }
    bool hasBroadAntGain() const { return has(BoardAntGain); }
    void setBroadAntGAin(double gain) { set(BoardAntGain, gain); }
    /// The environment of the receiving antenna.
    Environment rxAntE() const { return Environment(int(value(RxAntEnviro))); }
    bool hasRxAntE() const { return has(RxAntEnviro); }
    void setRxAntE(Environment environment) { set(RxAntEnviro, environment); }
    /// The environment of the averaging area.
    Environment avgAreaE() const { return Environment(int(value(AvgAreaEnviro))); }
    bool hasAvgAreaE() const { return has(AvgAreaEnviro); }
    void setAvgAreaE(Environment environment) { set(AvgAreaEnviro, environment); }
    /// Whether the path correction is applied.
    Switch correction() const { return Switch(int(value(PathCorrection))); }
    bool hasCorrection() const { return has(PathCorrection); }
    void setCorrection(Switch correction) { set(PathCorrection, correction); }
    /// The path type at the broadcasting antenna.
    Path broadAnt() const { return Path(int(value(PathTypeForBroadAnt))); }
    bool hasBroadAnt() const { return has(PathTypeForBroadAnt); }
    void setBroadAnt(Path path) { set(PathTypeForBroadAnt, path); }
    /// The path type at the receiving antenna.
    Path rxAnt() const { return Path(int(value(PathTypeForRxAnt))); }
    bool hasRxAnt() const { return has(PathTypeForRxAnt); }
    void setRxAnt(Path path) { set(PathTypeForRxAnt, path); }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    enum Field
    {
        KFactor,
        TimePct,
        PropPathType,
        LocVar,
        BoardAntGain,
        RxAntEnviro,
        AvgAreaEnviro,
        PathCorrection,
        PathTypeForBroadAnt,
        PathTypeForRxAnt,
    };
    static const XmlParamTable& table();
};

} // namespace KelXml
