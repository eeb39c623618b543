#pragma once

#include "XmlMeasuredValue.h"

namespace KelXml {

/// A field strength: `<Name version="1.0" unit="dBm">-80.000000000000000</Name>`.
/// \ingroup values
class KELXML_EXPORT XmlFieldstrengthType : public XmlMeasuredValue
{
public:
    XmlFieldstrengthType();

    /// In dBm; the default -99999.999 means not set and is invalid.
    double fieldstrength() const { return value(); }
    void setFieldstrength(double fieldstrength) { setValue(fieldstrength); }
    /// The unit as read; only "dBm" is valid.
    const QString& unit() const { return unitText(); }
};

} // namespace KelXml
