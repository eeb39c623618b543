#pragma once

#include "XmlMeasuredValue.h"

namespace KelXml {

/// A power in watts: `<Name version="1.0" unit="W">10.000000000000000</Name>`.
/// \ingroup values
class KELXML_EXPORT XmlPowerType : public XmlMeasuredValue
{
public:
    XmlPowerType();

    /// In watts; valid from -60.
    double power() const { return value(); }
    void setPower(double power) { setValue(power); }
    /// The unit as read; only "W" is valid.
    const QString& unit() const { return unitText(); }
};

} // namespace KelXml
