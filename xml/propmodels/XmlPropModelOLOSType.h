#pragma once

#include "XmlParamSet.h"

namespace KelXml {

/// The OLOS model's parameters: `<PropertiesOLOS><K-factor/><MaxRange_km/></PropertiesOLOS>`.
/// The K-factor may stand several times before the range (the last one counts).
/// \ingroup propmodels
class KELXML_EXPORT XmlPropModelOLOSType : public XmlParamSet
{
public:
    XmlPropModelOLOSType();

    /// The effective earth-radius factor, valid from 0.1 to 5.
    double Kfactor() const { return value(KFactor); }
    bool hasKfactor() const { return has(KFactor); }
    void setKfactor(double kFactor) { set(KFactor, kFactor); }
    /// The range of the calculation in km, valid from 0.1 to 50.
    double maxRange_km() const { return value(MaxRange); }
    bool hasMaxRange_km() const { return has(MaxRange); }
    void setMaxRange_km(double range) { set(MaxRange, range); }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    enum Field
    {
        KFactor,
        MaxRange,
    };
    static const XmlParamTable& table();
};

} // namespace KelXml
