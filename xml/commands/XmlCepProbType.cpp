#include "XmlCepProbType.h"

#include "XmlEnumTexts.h"

namespace KelXml {

namespace {
const XmlEnumTexts probTexts = XmlEnumTexts::numbered({"50", "66", "75", "90", "95"});
const XmlEnumElement::Shape shape = {QStringLiteral("XmlCepProbType"), &probTexts,
                                     QStringLiteral("Illegal enum value"),
                                     QStringLiteral("Illegal probability value.")};
} // namespace

XmlCepProbType::XmlCepProbType()
    : XmlEnumElement(shape)
{}

} // namespace KelXml
