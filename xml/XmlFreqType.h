#pragma once

#include "XmlMeasuredValue.h"

namespace KelXml {

/// A frequency: `<Name version="1.0" unit="kHz">2400.000000</Name>`. The value
/// is held in MHz whatever the unit; reading converts the text from the unit
/// of the element, writing converts back into the unit held.
/// \ingroup values
class KELXML_EXPORT XmlFreqType : public XmlMeasuredValue
{
public:
    XmlFreqType();

    double frequency_MHz() const { return value(); }
    /// Takes megahertz whatever the unit says.
    void setFrequency_MHz(double frequency) { setValue(frequency); }
    /// The unit the value is written in: "Hz", "kHz", "MHz" or "GHz".
    const QString& unit() const { return unitText(); }
    /// Changes the unit of the written text only; the value held stays in MHz.
    void setUnit(const QString& unit) { setUnitText(unit); }
};

} // namespace KelXml
