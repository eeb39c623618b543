#include "XmlPowerType.h"

namespace KelXml {

namespace {
using Bound = XmlMeasuredValue::Bound;
const auto shape = XmlMeasuredValue::Shape::named("XmlPowerType")
                       .readUnit("W", "Illegal unit.")
                       .real('f', 15)
                       .byDefault(-9.9)
                       .bounded(Bound::atLeast(-60.0), "Illegal power.");
} // namespace

XmlPowerType::XmlPowerType()
    : XmlMeasuredValue(shape)
{}

} // namespace KelXml
