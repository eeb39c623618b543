#include "XmlDegreesType.h"

namespace KelXml {

namespace {
using Bound = XmlMeasuredValue::Bound;
// A bad angle is reported with the decibel message.
const auto shape = XmlMeasuredValue::Shape::named("XmlDegreesType")
                       .fixedUnit(QString(QChar(0x00B0))) // the degree sign
                       .real('f', 1)
                       .byDefault(-0.0)
                       .bounded(Bound::atLeast(0.0).atMost(90.0), "Illegal decibel.");
} // namespace

XmlDegreesType::XmlDegreesType()
    : XmlMeasuredValue(shape)
{}

} // namespace KelXml
