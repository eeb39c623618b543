#pragma once

#include "XmlComposite.h"

namespace KelXml {

/// A request to plan the radio link between two named stations:
/// `<InterlinkPlanning><FirstName>A</FirstName><SecondName>B</SecondName></InterlinkPlanning>`.
/// No version. A name longer than 128 characters stops the reading and is not
/// taken.
/// \ingroup commands
class KELXML_EXPORT XmlInterlinkPlanningType : public XmlComposite
{
public:
    XmlInterlinkPlanningType();

    void reset() override;

    /// The name of the first station, 1 to 128 characters.
    const QString& firstName() const { return m_firstName; }
    void setFirstName(const QString& name) { m_firstName = name; }
    /// The name of the second station, 1 to 128 characters.
    const QString& secondName() const { return m_secondName; }
    void setSecondName(const QString& name) { m_secondName = name; }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    static const XmlLayout& layout();
    bool takeFirstName(const QString& name);
    bool takeSecondName(const QString& name);

    QString m_firstName;
    QString m_secondName;
};

} // namespace KelXml
