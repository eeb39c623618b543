#include "XmlDBMType.h"

#include <cfloat>

namespace KelXml {

namespace {
using Bound = XmlMeasuredValue::Bound;
// The lower bound is the smallest positive double: zero and every negative
// level fail, and NaN passes both comparisons.
const auto shape = XmlMeasuredValue::Shape::named("XmlDBMType")
                       .fixedUnit(QStringLiteral("dBm"))
                       .real('f', 9)
                       .byDefault(-110.0)
                       .bounded(Bound::greaterThan(DBL_MIN).lessThan(DBL_MAX), "Illegal decibel.");
} // namespace

XmlDBMType::XmlDBMType()
    : XmlMeasuredValue(shape)
{}

} // namespace KelXml
