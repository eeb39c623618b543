#pragma once

#include "XmlMeasuredValue.h"

namespace KelXml {

/// A bandwidth in kHz: `<Name version="1.0" unit="kHz">25</Name>`. Held as a
/// double, but read as a whole number: "12.5" is not numeric here.
/// \ingroup values
class KELXML_EXPORT XmlBandwidthType : public XmlMeasuredValue
{
public:
    XmlBandwidthType();

    double bandwidth_khz() const { return value(); }
    /// Takes kilohertz, whatever the unit says.
    void setBandwidth(double bandwidth) { setValue(bandwidth); }
    /// The unit as read; only "kHz" is valid.
    const QString& unit() const { return unitText(); }
};

} // namespace KelXml
