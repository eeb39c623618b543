#pragma once

#include "XmlParamSet.h"

namespace KelXml {

/// The P.533 sky-wave model's parameters: `<K-factor/><SmoothedSunSpotNumber/>`.
/// Its messages and report frames carry the class name "XmlPropModelP526Type".
/// \ingroup propmodels
class KELXML_EXPORT XmlPropModelP533Type : public XmlParamSet
{
public:
    XmlPropModelP533Type();

    /// The effective earth-radius factor, valid from 0.1 to 5.
    double kFactor() const { return value(KFactor); }
    bool hasKFactor() const { return has(KFactor); }
    void setKfactor(double kFactor) { set(KFactor, kFactor); }
    /// The smoothed sunspot number, valid from 0 to 999.9.
    double sunSpots() const { return value(SunSpots); }
    bool hasSunSpots() const { return has(SunSpots); }
    void setSunSpots(double sunSpots) { set(SunSpots, sunSpots); }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    enum Field
    {
        KFactor,
        SunSpots,
    };
    static const XmlParamTable& table();
};

} // namespace KelXml
