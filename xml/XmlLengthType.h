#pragma once

#include "XmlMeasuredValue.h"

namespace KelXml {

/// A length in whole metres: `<Name version="1.0" unit="m">25</Name>`.
/// \ingroup values
class KELXML_EXPORT XmlLengthType : public XmlMeasuredValue
{
public:
    XmlLengthType();

    /// In metres.
    int length() const { return int(value()); }
    void setLength(int length) { setValue(length); }
    /// The unit as read; only "m" is valid.
    const QString& unit() const { return unitText(); }
};

} // namespace KelXml
