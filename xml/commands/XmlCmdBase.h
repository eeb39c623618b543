#pragma once

#include "XmlComposite.h"
#include "XmlOrderDef.h"
#include "XmlOwned.h"
#include "XmlReferenceType.h"

#include <initializer_list>

namespace KelXml {

class XmlField;

/// What the create, delete and calculation commands share: the command
/// reference by which the client recognises the answer, and a copy of the
/// order definition of the message, which the command document hands over
/// after the command has read itself. The order definition is never read or
/// written by the command.
///
/// The report gives the reference's text first, then the command's content.
/// \ingroup commands
class KELXML_EXPORT XmlCmdBase : public XmlComposite
{
public:
    void reset() override;

    /// The reference by which the client recognises the answer.
    const XmlReferenceType& cmdReference() const { return m_reference; }
    void setCmdReference(const XmlReferenceType& reference) { m_reference = reference; }
    bool hasOrderDef() const { return bool(m_orderDef); }
    /// Null until the command document hands its order definition over.
    const XmlOrderDef* orderDef() const { return m_orderDef.get(); }
    void setOrderDef(const XmlOrderDef& orderDef) { m_orderDef.assign(orderDef); }

protected:
    using XmlComposite::XmlComposite;

    /// The table of a command: at most one of its kinds, each held child of
    /// that kind replaced when read again, and only before the reference;
    /// then the reference. Reading ends once a kind and the reference were
    /// read; the report counts the kinds held ("Too many or too few elements.").
    static XmlLayout commandLayout(const char* classname, std::initializer_list<XmlField> kinds);

    void checkContent(XmlChecks& checks) const override;

    XmlReferenceType m_reference;

private:
    XmlOwnedPtr<XmlOrderDef> m_orderDef;
};

} // namespace KelXml
