#include "XmlDeviceCategoryType.h"

#include "XmlKit.h"

namespace KelXml {

namespace {
const XmlEnumTexts categoryTexts = XmlEnumTexts::numbered(
    {"Receiver", "PassiveAntennas", "Cable", "Other", "ActiveAntennas", "DF"});
const XmlEnumElement::Shape shape = {"XmlDeviceCategoryType", &categoryTexts, "Illegal enum value.",
                                     "Illegal Device Category."};
} // namespace

XmlDeviceCategoryType::XmlDeviceCategoryType()
    : XmlEnumElement(shape)
{}

} // namespace KelXml
