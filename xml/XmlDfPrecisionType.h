#pragma once

#include "XmlMeasuredValue.h"

namespace KelXml {

/// The integer direction-finding precision:
/// `<DFprecision version="1.0" unit="°">2</DFprecision>`. -2 marks "not set".
/// \ingroup values
class KELXML_EXPORT XmlDfPrecisionType : public XmlMeasuredValue
{
public:
    XmlDfPrecisionType();

    /// In whole degrees; -2 means not set, -1 is the lowest valid value.
    int precision() const { return int(value()); }
    void setPrecision(int precision) { setValue(precision); }
    /// The unit as read; only the degree sign is valid.
    const QString& unit() const { return unitText(); }
};

} // namespace KelXml
