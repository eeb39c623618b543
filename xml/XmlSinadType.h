#pragma once

#include "XmlMeasuredValue.h"

namespace KelXml {

/// A SINAD ratio: `<Name version="1.0">12.000000</Name>`, without a unit.
/// \ingroup values
class KELXML_EXPORT XmlSinadType : public XmlMeasuredValue
{
public:
    XmlSinadType();

    /// The ratio as a plain number; the element has no unit.
    double sinad() const { return value(); }
    void setSinad(double sinad) { setValue(sinad); }
};

} // namespace KelXml
