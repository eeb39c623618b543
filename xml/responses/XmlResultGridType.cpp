#include "XmlResultGridType.h"

#include "XmlEnumTexts.h"

namespace KelXml {

namespace {
const XmlEnumTexts sizeTexts = XmlEnumTexts::numbered({"10", "50", "100", "200", "500", "1000"});
const XmlEnumElement::Shape shape = {QStringLiteral("XmlResultGridType"), &sizeTexts,
                                     QStringLiteral("Illegal enum value."),
                                     QStringLiteral("Illegal grid size.")};
} // namespace

XmlResultGridType::XmlResultGridType()
    : XmlEnumElement(shape)
{}

} // namespace KelXml
