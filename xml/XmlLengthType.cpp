#include "XmlLengthType.h"

namespace KelXml {

namespace {
using Bound = XmlMeasuredValue::Bound;
// Any length is valid; only the unit is checked.
const auto shape = XmlMeasuredValue::Shape::named("XmlLengthType")
                       .readUnit("m", "Illegal unit (must be \"m\").")
                       .integer()
                       .byDefault(0);
} // namespace

XmlLengthType::XmlLengthType()
    : XmlMeasuredValue(shape)
{}

} // namespace KelXml
