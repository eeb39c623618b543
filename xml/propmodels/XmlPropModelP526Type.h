#pragma once

#include "XmlParamSet.h"

namespace KelXml {

/// The P.526 diffraction model's parameters. The reader takes "K-factor",
/// "Pol", "Surface", "AssumeSmoothEarth" and "IncludeSubPathDiffractionLoss";
/// the writer uses longer names for the last four, so its output does not read
/// back. The enumerations count from 0.
/// \ingroup propmodels
class KELXML_EXPORT XmlPropModelP526Type : public XmlParamSet
{
public:
    enum Polarisation : int
    {
        Horizontal = 0,
        Vertical = 1,
    };
    enum SurfaceCondition : int
    {
        AverageGround = 0,
        PoorGround = 1,
        GoodGround = 2,
        FreshWater = 3,
        SeaWater = 4,
    };
    enum Switch : int
    {
        Off = 0,
        On = 1,
    };

    XmlPropModelP526Type();

    /// The effective earth-radius factor, valid from 0.1 to 5.
    double kFactor() const { return value(KFactor); }
    bool hasKFactor() const { return has(KFactor); }
    void setKfactor(double kFactor) { set(KFactor, kFactor); }
    Polarisation pol() const { return Polarisation(int(value(Pol))); }
    bool hasPol() const { return has(Pol); }
    void setPol(Polarisation pol) { set(Pol, pol); }
    SurfaceCondition surf() const { return SurfaceCondition(int(value(Surf))); }
    bool hasSurf() const { return has(Surf); }
    void setSurf(SurfaceCondition surface) { set(Surf, surface); }
    /// Whether a smooth earth is assumed for the complete path; off by default.
    Switch smooth() const { return Switch(int(value(Smooth))); }
    bool hasSmooth() const { return has(Smooth); }
    void setSmooth(Switch smooth) { set(Smooth, smooth); }
    /// Whether sub-path diffraction loss is included; on by default.
    Switch subPath() const { return Switch(int(value(SubPath))); }
    bool hasSubPath() const { return has(SubPath); }
    void setSubPath(Switch subPath) { set(SubPath, subPath); }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    enum Field
    {
        KFactor,
        Pol,
        Surf,
        Smooth,
        SubPath,
    };
    static const XmlParamTable& table();
};

} // namespace KelXml
