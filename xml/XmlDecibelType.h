#pragma once

#include "XmlMeasuredValue.h"

namespace KelXml {

/// A gain or loss in dB: `<Name version="1.0" unit="dB">3.000000</Name>`.
/// The unit is fixed: written always, never read.
/// \ingroup values
class KELXML_EXPORT XmlDecibelType : public XmlMeasuredValue
{
public:
    XmlDecibelType();

    double decibel() const { return value(); }
    void setDecibel(double decibel) { setValue(decibel); }
    /// Always "dB": the unit is written but never read.
    const QString& unit() const { return unitText(); }
};

} // namespace KelXml
