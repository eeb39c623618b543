#pragma once

#include "XmlParamSet.h"

namespace KelXml {

/// The P.452 interference model's parameters: ten children in a fixed order,
/// each at most once. Three of them are integers, which refuse decimal text.
/// Its messages and report frames carry the class name "XmlPropModelP542Type".
/// \ingroup propmodels
class KELXML_EXPORT XmlPropModelP452Type : public XmlParamSet
{
public:
    XmlPropModelP452Type();

    /// The refractivity gradient, valid from 0 to 600.
    double deltaN() const { return value(DeltaN); }
    bool hasDeltaN() const { return has(DeltaN); }
    void setDeltaN(double deltaN) { set(DeltaN, deltaN); }
    /// The surface refractivity, valid from 250 to 400.
    int surfaceRefract() const { return int(value(SurfaceRefract)); }
    bool hasSurfaceRefract() const { return has(SurfaceRefract); }
    void setSurfaceRefract(int refractivity) { set(SurfaceRefract, refractivity); }
    /// The percentage of time, valid from 0.01 to 50.
    double timePct() const { return value(TimePct); }
    bool hasTimePct() const { return has(TimePct); }
    void setTimePct(double timePct) { set(TimePct, timePct); }
    /// Valid from 800 to 1100.
    int pressure_hPa() const { return int(value(Pressure)); }
    bool hasPressure_hPa() const { return has(Pressure); }
    void setPressure_hPa(int pressure) { set(Pressure, pressure); }
    /// Valid from -60 to 50.
    int temp_C() const { return int(value(Temp)); }
    bool hasTemp_C() const { return has(Temp); }
    void setTemp_C(int temperature) { set(Temp, temperature); }
    double overWater_km() const { return value(OverWater); }
    bool hasOverWater_km() const { return has(OverWater); }
    void setOverWater_km(double distance) { set(OverWater, distance); }
    double inlandCoastal_km() const { return value(InlandCoastal); }
    bool hasInlandCoastal_km() const { return has(InlandCoastal); }
    void setInlandCoastal_km(double distance) { set(InlandCoastal, distance); }
    double inland_km() const { return value(Inland); }
    bool hasInland_km() const { return has(Inland); }
    void setInland_km(double distance) { set(Inland, distance); }
    double distTxCoast_km() const { return value(DistTxCoast); }
    bool hasDistTxCoast_km() const { return has(DistTxCoast); }
    void setDistTxCoast_km(double distance) { set(DistTxCoast, distance); }
    double distRxCoast_km() const { return value(DistRxCoast); }
    bool hasDistRxCoast_km() const { return has(DistRxCoast); }
    void setDistRxCoast_km(double distance) { set(DistRxCoast, distance); }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    enum Field
    {
        DeltaN,
        SurfaceRefract,
        TimePct,
        Pressure,
        Temp,
        OverWater,
        InlandCoastal,
        Inland,
        DistTxCoast,
        DistRxCoast,
    };
    static const XmlParamTable& table();
};

} // namespace KelXml
