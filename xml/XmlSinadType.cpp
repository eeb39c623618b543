#include "XmlSinadType.h"

#include <cfloat>

namespace KelXml {

namespace {
using Bound = XmlMeasuredValue::Bound;
// A bad SINAD is reported with the frequency message; zero fails, NaN passes.
const auto shape =
    XmlMeasuredValue::Shape::named("XmlSinadType")
        .real('f', 6)
        .byDefault(0.0)
        .bounded(Bound::greaterThan(DBL_MIN).lessThan(DBL_MAX), "Illegal frequency.");
} // namespace

XmlSinadType::XmlSinadType()
    : XmlMeasuredValue(shape)
{}

} // namespace KelXml
