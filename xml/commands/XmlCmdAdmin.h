#pragma once

#include "XmlComposite.h"
#include "XmlOrderDef.h"
#include "XmlOwned.h"
#include "XmlReferenceType.h"

namespace KelXml {

/// An administrative command of a command message, a request about the server
/// itself: `<Administrative><QueryVersion/><Reference>r</Reference></Administrative>`.
/// No version. The command type is set by reading only, when the QueryVersion
/// element closes; the reference may stand anywhere and any number of times.
/// The order definition is handed in by the message and never written.
/// \ingroup commands
class KELXML_EXPORT XmlCmdAdmin : public XmlComposite
{
public:
    enum AdminCmd : qint32
    {
        AdminCmdNone = 0,
        AdminCmdQueryVersion = 1,
    };

    XmlCmdAdmin();

    void reset() override;

    /// Set by reading only: AdminCmdQueryVersion once a QueryVersion element has closed.
    AdminCmd adminCmd() const { return m_adminCmd; }

    /// The reference by which the client recognises the answer.
    const XmlReferenceType& cmdReference() const { return m_cmdReference; }
    void setCmdReference(const XmlReferenceType& reference) { m_cmdReference = reference; }

    bool hasOrderDef() const { return bool(m_orderDef); }
    /// Null until the command document hands its order definition over;
    /// setOrderDef() stores a copy.
    const XmlOrderDef* orderDef() const { return m_orderDef.get(); }
    void setOrderDef(const XmlOrderDef& orderDef) { m_orderDef.assign(orderDef); }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    static const XmlLayout& layout();
    static void queryVersion(XmlCmdAdmin& self);
    bool queriesVersion() const;

    AdminCmd m_adminCmd = AdminCmdNone;
    XmlOwnedPtr<XmlOrderDef> m_orderDef;
    XmlReferenceType m_cmdReference;
};

} // namespace KelXml
