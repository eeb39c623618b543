#include "XmlFieldstrengthType.h"

namespace KelXml {

namespace {
using Bound = XmlMeasuredValue::Bound;
// The lowest value lies just above the default, so that a default field
// strength is invalid.
const auto shape = XmlMeasuredValue::Shape::named("XmlFieldstrengthType")
                       .readUnit("dBm", "Illegal unit.")
                       .real('f', 15)
                       .byDefault(-99999.999)
                       .bounded(Bound::greaterThan(-99999.989), "Illegal fieldstrength.");
} // namespace

XmlFieldstrengthType::XmlFieldstrengthType()
    : XmlMeasuredValue(shape)
{}

} // namespace KelXml
