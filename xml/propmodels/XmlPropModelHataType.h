#pragma once

#include "XmlParamSet.h"

namespace KelXml {

/// The Okumura-Hata model's parameters: K-factor, area type and city size, in
/// that order, each at most once. Reading starts from the defaults. The writer
/// puts the K-factor under the set's own element name, which its reader refuses.
/// \ingroup propmodels
class KELXML_EXPORT XmlPropModelHataType : public XmlParamSet
{
public:
    enum Area : int
    {
        AreaUndefined = 0,
        Urban = 1,
        Suburban = 2,
        OpenRural = 3,
    };
    enum Size : int
    {
        SizeUndefined = 0,
        Small = 1,
        Medium = 2,
        Large = 3,
    };

    XmlPropModelHataType();

    /// The effective earth-radius factor, valid from 0.1 to 5.
    double Kfactor() const { return value(KFactor); }
    bool hasKfactor() const { return has(KFactor); }
    void setKfactor(double kFactor) { set(KFactor, kFactor); }
    /// Must be set to a defined area type.
    Area areaType() const { return Area(int(value(AreaType))); }
    bool hasAreaType() const { return has(AreaType); }
    void setAreaType(Area area) { set(AreaType, area); }
    /// Must be set to a defined city size.
    Size citySize() const { return Size(int(value(CitySize))); }
    bool hasCitySize() const { return has(CitySize); }
    void setCitySize(Size size) { set(CitySize, size); }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    enum Field
    {
        KFactor,
        AreaType,
        CitySize,
    };
    static const XmlParamTable& table();
};

} // namespace KelXml
