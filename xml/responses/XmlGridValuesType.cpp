#include "XmlGridValuesType.h"

#include "XmlKit.h"
#include "XmlLayout.h"
#include "XmlNumberText.h"

namespace KelXml {

namespace {
const char* const missingAttributes = "Missing mandatory attributes";

// A text that is no number (whitespace, for one) is passed over and leaves
// the value as it was.
void takeMin(XmlGridValuesType& self, QStringView text)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (ok)
        self.setMin(value);
}
void takeMax(XmlGridValuesType& self, QStringView text)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (ok)
        self.setMax(value);
}
QString giveMin(const XmlGridValuesType& self)
{
    return XmlKit::number(self.min(), 'g', 6);
}
QString giveMax(const XmlGridValuesType& self)
{
    return XmlKit::number(self.max(), 'g', 6);
}
// A number between the children is refused; other text is passed over.
void takeOutside(XmlGridValuesType&, XmlElementReader& in, QStringView text)
{
    bool ok = false;
    static_cast<void>(text.toDouble(&ok));
    if (ok)
        in.fail(QStringLiteral("Unexpected characters"));
}
} // namespace

// Both attributes are mandatory. Min first, then Max once Min has closed; the
// numbers are taken only inside them.
const XmlLayout& XmlGridValuesType::layout()
{
    using Self = XmlGridValuesType;
    static const XmlLayout layout =
        XmlLayout(
            "XmlGridValuesType", XmlElementReader::ElementWording, XmlLayout::CheckedVersion,
            {
                XmlAttribute::text("version", &Self::m_version, missingAttributes).notWritten(),
                XmlAttribute::text("unit", &Self::m_unit, missingAttributes),
                XmlField::characters("Min", &takeMin, &giveMin),
                XmlField::characters("Max", &takeMax, &giveMax).after({"Min"}),
            })
            .onText(&takeOutside);
    return layout;
}

XmlGridValuesType::XmlGridValuesType()
    : XmlVersionedComposite(layout())
    , m_min(0.0)
    , m_max(0.0)
{}

void XmlGridValuesType::checkContent(XmlChecks& checks) const
{
    checks.expect(!m_version.isEmpty() && !m_unit.isEmpty(), QLatin1String(missingAttributes));
    checkVersion(checks);
}

void XmlGridValuesType::reset()
{
    m_unit.clear();
    m_min = 0.0;
    m_max = 0.0;
    XmlComposite::reset();
}

} // namespace KelXml
