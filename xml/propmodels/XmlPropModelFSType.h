#pragma once

#include "XmlParamSet.h"

namespace KelXml {

/// The free-space model's parameters: `<PropertiesFreespace><K-factor/></PropertiesFreespace>`.
/// The K-factor may stand several times; the last one counts.
/// \ingroup propmodels
class KELXML_EXPORT XmlPropModelFSType : public XmlParamSet
{
public:
    XmlPropModelFSType();

    /// The effective earth-radius factor, valid from 0.1 to 5.
    double Kfactor() const { return value(KFactor); }
    bool hasKfactor() const { return has(KFactor); }
    void setKfactor(double kFactor) { set(KFactor, kFactor); }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    enum Field
    {
        KFactor,
    };
    static const XmlParamTable& table();
};

} // namespace KelXml
