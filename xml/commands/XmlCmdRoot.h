#pragma once

#include "XmlCmdAdmin.h"
#include "XmlCmdCalc.h"
#include "XmlCmdCreate.h"
#include "XmlCmdDelete.h"
#include "XmlComposite.h"
#include "XmlOrderDef.h"
#include "XmlPropModelType.h"

#include <QList>

namespace KelXml {

/// A whole command message, under a root element named by the caller:
/// an optional ORDER_DEF, then Administrative, Create and Delete commands, at
/// most one PropagationModel command and Calculate commands, kinds in that
/// order. Each command gets a copy of the order definition once it has read
/// itself. Reading into a used root adds to its lists: reset() first to reuse
/// one.
///
/// The delete commands are written but take no part in isValid() or
/// syntaxError(): a message whose only faults lie in them is valid.
/// \ingroup commands
class KELXML_EXPORT XmlCmdRoot : public XmlComposite
{
public:
    XmlCmdRoot();

    bool hasOrderDef() const { return bool(m_orderDef); }
    /// Null when the message has none.
    const XmlOrderDef* orderDef() const { return m_orderDef.get(); }
    /// Copies the definition; commands already held keep theirs.
    void setOrderDef(const XmlOrderDef& orderDef) { m_orderDef.assign(orderDef); }

    /// The administrative commands, owned by the root, in document order;
    /// reading appends to them.
    const QList<XmlCmdAdmin*> getAdministrativeCmds() const { return m_admins.list(); }
    /// The create commands, owned by the root, in document order.
    const QList<XmlCmdCreate*> getCreateCmds() const { return m_creates.list(); }
    /// The delete commands, owned by the root, in document order.
    const QList<XmlCmdDelete*> getDeleteCmds() const { return m_deletes.list(); }
    /// The calculation commands, owned by the root, in document order.
    const QList<XmlCmdCalc*> getCalculationCmds() const { return m_calcs.list(); }
    /// The propagation-model command; null when the message holds none.
    const XmlPropModelType* getPropagationModelCmd() const { return m_propModel.get(); }

private:
    static const XmlLayout& layout();
    template <class Command>
    static void passOrderDef(XmlCmdRoot& root, Command& command);

    XmlOwnedPtr<XmlOrderDef> m_orderDef;
    XmlOwnedList<XmlCmdAdmin> m_admins;
    XmlOwnedList<XmlCmdCreate> m_creates;
    XmlOwnedList<XmlCmdDelete> m_deletes;
    XmlOwnedPtr<XmlPropModelType> m_propModel;
    XmlOwnedList<XmlCmdCalc> m_calcs;
};

} // namespace KelXml
