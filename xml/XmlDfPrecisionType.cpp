#include "XmlDfPrecisionType.h"

namespace KelXml {

namespace {
using Bound = XmlMeasuredValue::Bound;
// -1 is the lowest valid precision; the "not set" default fails.
const auto shape = XmlMeasuredValue::Shape::named("XmlDfPrecisionType")
                       .readUnit("\u00B0", "XmlDfPrecisionType: Illegal unit.") // the degree sign
                       .integer()
                       .byDefault(-2)
                       .bounded(Bound::atLeast(-1), "XmlDfPrecisionType: Illegal precision.");
} // namespace

XmlDfPrecisionType::XmlDfPrecisionType()
    : XmlMeasuredValue(shape)
{}

} // namespace KelXml
