#include "XmlInterlinkPlanningType.h"

#include "XmlLayout.h"

namespace KelXml {

namespace {
const int maxNameLength = 128;

// An over-long name is refused and leaves the name held as it was.
bool takeName(QString& field, const QString& text)
{
    if (text.size() > maxNameLength)
        return false;
    field = text;
    return true;
}
} // namespace

// Reading starts on the next token, wherever the reader stands. FirstName
// comes first, SecondName only after it.
const XmlLayout& XmlInterlinkPlanningType::layout()
{
    using Self = XmlInterlinkPlanningType;
    static const XmlLayout layout =
        XmlLayout("XmlInterlinkPlanningType", XmlElementReader::NamedWording, XmlLayout::NoVersion,
                  {
                      XmlField::text("FirstName", &Self::takeFirstName, &Self::firstName)
                          .failsWith("FirstName too long (max. 128)"),
                      XmlField::text("SecondName", &Self::takeSecondName, &Self::secondName)
                          .after({"FirstName"})
                          .failsWith("SecondName too long (max. 128)"),
                  })
            .withoutPositionTest();
    return layout;
}

XmlInterlinkPlanningType::XmlInterlinkPlanningType()
    : XmlComposite(layout())
{}

bool XmlInterlinkPlanningType::takeFirstName(const QString& name)
{
    return takeName(m_firstName, name);
}

bool XmlInterlinkPlanningType::takeSecondName(const QString& name)
{
    return takeName(m_secondName, name);
}

void XmlInterlinkPlanningType::checkContent(XmlChecks& checks) const
{
    checks.expect(!m_firstName.isEmpty(), QStringLiteral("FirstName not set"));
    checks.expect(!m_secondName.isEmpty(), QStringLiteral("SecondName not set"));
}

void XmlInterlinkPlanningType::reset()
{
    m_firstName.clear();
    m_secondName.clear();
    XmlComposite::reset();
}

} // namespace KelXml
