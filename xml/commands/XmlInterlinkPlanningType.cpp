#include "XmlInterlinkPlanningType.h"

#include "XmlElementReader.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlInterlinkPlanningType");
const QString firstNameElement = QStringLiteral("FirstName");
const QString secondNameElement = QStringLiteral("SecondName");
const int maxNameLength = 128;
} // namespace

XmlInterlinkPlanningType::XmlInterlinkPlanningType()
    : XmlElementBase(PermanentName{&typeName})
{}

void XmlInterlinkPlanningType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    // No position check. FirstName comes first, SecondName only after it. An
    // over-long name raises an error and leaves the name held as it was.
    XmlElementReader in(*this, reader, elementName, XmlElementReader::NamedWording);
    const auto name = [&in](QString& field, const QString& tooLong) {
        return [&in, &field, tooLong](const QString& text) {
            if (text.size() > maxNameLength)
                in.fail(tooLong);
            else
                field = text;
        };
    };
    in.readChildren({
        XmlChild::text(firstNameElement,
                       name(m_firstName, QStringLiteral("FirstName too long (max. 128)"))),
        XmlChild::text(secondNameElement,
                       name(m_secondName, QStringLiteral("SecondName too long (max. 128)")))
            .after(firstNameElement),
    });
}

void XmlInterlinkPlanningType::produceXml(QXmlStreamWriter& writer,
                                          const QString& elementName) const
{
    writer.writeStartElement(elementName);
    writer.writeTextElement(firstNameElement, m_firstName);
    writer.writeTextElement(secondNameElement, m_secondName);
    writer.writeEndElement();
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
    XmlElementBase::reset();
}

} // namespace KelXml
