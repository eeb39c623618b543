#pragma once

#include "XmlMeasuredValue.h"

namespace KelXml {

/// A level in dBm: `<Name version="1.0" unit="dBm">-50.000000000</Name>`.
/// The unit is fixed: written always, never read.
/// \ingroup values
class KELXML_EXPORT XmlDBMType : public XmlMeasuredValue
{
public:
    XmlDBMType();

    double dBm() const { return value(); }
    void setDBM(double dBm) { setValue(dBm); }
    /// Always "dBm": the unit is written but never read.
    const QString& unit() const { return unitText(); }
};

} // namespace KelXml
