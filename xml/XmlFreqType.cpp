#include "XmlFreqType.h"

namespace KelXml {

namespace {
using Bound = XmlMeasuredValue::Bound;
// The text in each unit, to megahertz and back. A value in any other unit is
// not taken on reading, and written as held.
const XmlMeasuredValue::UnitFactor units[] = {
    {QStringLiteral("Hz"), 1e-6, 1000000.0},
    {QStringLiteral("kHz"), 0.001, 1000.0},
    {QStringLiteral("MHz"), 1.0, 1.0},
    {QStringLiteral("GHz"), 1000.0, 0.001},
};
const auto shape = XmlMeasuredValue::Shape::named("XmlFreqType")
                       .readUnit("MHz", units, "Illegal unit.")
                       .real('f', 6)
                       .byDefault(-9.9)
                       .bounded(Bound::greaterThan(0.0), "Illegal frequency.");
} // namespace

XmlFreqType::XmlFreqType()
    : XmlMeasuredValue(shape)
{}

} // namespace KelXml
