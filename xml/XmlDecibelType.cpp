#include "XmlDecibelType.h"

#include <cfloat>

namespace KelXml {

namespace {
using Bound = XmlMeasuredValue::Bound;
// Zero and negative values fail the positive lower bound; NaN passes.
const auto shape = XmlMeasuredValue::Shape::named("XmlDecibelType")
                       .fixedUnit(QStringLiteral("dB"))
                       .real('f', 6)
                       .byDefault(-0.0)
                       .bounded(Bound::greaterThan(DBL_MIN).lessThan(DBL_MAX), "Illegal decibel.");
} // namespace

XmlDecibelType::XmlDecibelType()
    : XmlMeasuredValue(shape)
{}

} // namespace KelXml
