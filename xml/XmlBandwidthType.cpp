#include "XmlBandwidthType.h"

namespace KelXml {

namespace {
using Bound = XmlMeasuredValue::Bound;
// Both messages carry the name of the precision class.
const auto shape = XmlMeasuredValue::Shape::named("XmlBandwidthType")
                       .readUnit("kHz", "XmlDfPrecisionType: Illegal unit.")
                       .wholeNumber('g', 6)
                       .byDefault(-1.0)
                       .bounded(Bound::atLeast(0.0), "XmlDfPrecisionType: Illegal precision.");
} // namespace

XmlBandwidthType::XmlBandwidthType()
    : XmlMeasuredValue(shape)
{}

} // namespace KelXml
