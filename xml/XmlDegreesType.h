#pragma once

#include "XmlMeasuredValue.h"

namespace KelXml {

/// An angle in degrees: `<Name version="1.0" unit="°">45.0</Name>`.
/// The unit, the degree sign, is fixed: written always, never read.
/// \ingroup values
class KELXML_EXPORT XmlDegreesType : public XmlMeasuredValue
{
public:
    XmlDegreesType();

    /// Valid from 0 to 90.
    double degrees() const { return value(); }
    void setDegrees(double degrees) { setValue(degrees); }
    /// Always the degree sign: the unit is written but never read.
    const QString& unit() const { return unitText(); }
};

} // namespace KelXml
