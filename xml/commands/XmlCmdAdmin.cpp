#include "XmlCmdAdmin.h"

#include "XmlLayout.h"

namespace KelXml {

// Reading starts on the next token, wherever the reader stands. The
// QueryVersion start tag only passes; its end tag sets the type and lets the
// element end. Neither child's order nor count is checked.
const XmlLayout& XmlCmdAdmin::layout()
{
    using Self = XmlCmdAdmin;
    static const XmlLayout layout =
        XmlLayout("XmlCmdAdmin", XmlElementReader::ElementWording, XmlLayout::NoVersion,
                  {
                      XmlField::wrapper("QueryVersion", {})
                          .anywhere()
                          .repeated()
                          .afterRead(&Self::queryVersion)
                          .writtenWhen(&Self::queriesVersion),
                      XmlField::object("Reference", &Self::m_cmdReference)
                          .anywhere()
                          .repeated()
                          .notRequired(),
                  })
            .withoutPositionTest();
    return layout;
}

XmlCmdAdmin::XmlCmdAdmin()
    : XmlComposite(layout())
{}

void XmlCmdAdmin::queryVersion(XmlCmdAdmin& self)
{
    self.m_adminCmd = AdminCmdQueryVersion;
}

bool XmlCmdAdmin::queriesVersion() const
{
    return m_adminCmd == AdminCmdQueryVersion;
}

void XmlCmdAdmin::checkContent(XmlChecks& checks) const
{
    checks.expect(m_adminCmd != AdminCmdNone,
                  QStringLiteral("Invalid Administrative command type"));
    // The report collects the reference's text into the reference itself.
    checks.child(const_cast<XmlReferenceType*>(&m_cmdReference));
}

void XmlCmdAdmin::reset()
{
    m_orderDef.reset();
    m_adminCmd = AdminCmdNone;
    XmlComposite::reset();
}

} // namespace KelXml
