#pragma once

#include "XmlParamSet.h"

namespace KelXml {

/// The Irregular Terrain Model's parameters: RRI, polarisation, climate,
/// surface, confidence and time, in that order, each at most once. An
/// enumeration that is set must not be undefined.
/// \ingroup propmodels
class KELXML_EXPORT XmlPropModelITMType : public XmlParamSet
{
public:
    enum Polarisation : int
    {
        PolarisationUndefined = 0,
        Horizontal = 1,
        Vertical = 2,
    };
    enum Climate : int
    {
        ClimateUndefined = 0,
        Equatorial = 1,
        ContinentalSubtropical = 2,
        MaritimeTropical = 3,
        Desert = 4,
        ContinentalTemperate = 5,
        MaritimeTemperateLand = 6,
        MaritimeTemperateSea = 7,
    };
    enum Surface : int
    {
        SurfaceUndefined = 0,
        AverageGround = 1,
        PoorGround = 2,
        GoodGround = 3,
        FreshWater = 4,
        SeaWater = 5,
    };

    XmlPropModelITMType();

    /// The refractivity, valid from -300 to 400.
    double RRI() const { return value(RriField); }
    bool hasRRI() const { return has(RriField); }
    void setRRI(double rri) { set(RriField, rri); }
    /// The polarisation; once set it must not be undefined.
    Polarisation pol() const { return Polarisation(int(value(PolField))); }
    bool hasPol() const { return has(PolField); }
    void setPol(Polarisation pol) { set(PolField, pol); }
    Climate climate() const { return Climate(int(value(ClimateField))); }
    bool hasClimate() const { return has(ClimateField); }
    void setClimate(Climate climate) { set(ClimateField, climate); }
    Surface surface() const { return Surface(int(value(SurfaceField))); }
    bool hasSurface() const { return has(SurfaceField); }
    void setSurface(Surface surface) { set(SurfaceField, surface); }
    /// The confidence level, valid from 0 to 100.
    double conf() const { return value(ConfField); }
    bool hasConf() const { return has(ConfField); }
    void setConf(double conf) { set(ConfField, conf); }
    /// The time variability, valid from 0 to 100.
    double time() const { return value(TimeField); }
    bool hasTime() const { return has(TimeField); }
    void setTime(double time) { set(TimeField, time); }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    enum Field
    {
        RriField,
        PolField,
        ClimateField,
        SurfaceField,
        ConfField,
        TimeField,
    };
    static const XmlParamTable& table();
};

} // namespace KelXml
