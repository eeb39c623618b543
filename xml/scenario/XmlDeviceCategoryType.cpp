#include "XmlDeviceCategoryType.h"

#include "XmlEnumTexts.h"

namespace KelXml {

namespace {
const XmlEnumTexts categoryTexts = XmlEnumTexts::numbered(
    {"Receiver", "PassiveAntennas", "Cable", "Other", "ActiveAntennas", "DF"});
const XmlEnumElement::Shape shape = {QStringLiteral("XmlDeviceCategoryType"), &categoryTexts,
                                     QStringLiteral("Illegal enum value."),
                                     QStringLiteral("Illegal Device Category.")};
} // namespace

XmlDeviceCategoryType::XmlDeviceCategoryType()
    : XmlEnumElement(shape)
{}

} // namespace KelXml
