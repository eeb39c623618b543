#pragma once

#include "XmlCmdBase.h"
#include "XmlPropModelEnumType.h"
#include "XmlPropModelFSType.h"
#include "XmlPropModelHataType.h"
#include "XmlPropModelITMType.h"
#include "XmlPropModelOLOSType.h"
#include "XmlPropModelP1546Type.h"
#include "XmlPropModelP452Type.h"
#include "XmlPropModelP526Type.h"
#include "XmlPropModelP533Type.h"

namespace KelXml {

/// The propagation-model command: the selected model and at most one model's
/// parameter set, then, in command mode, the command's reference:
/// `<PropagationModel><SelectModel>ITM</SelectModel><PropertiesITM>...</PropertiesITM>`
/// `<Reference>r</Reference></PropagationModel>`. No version and no attributes.
/// The Okumura-Hata set travels as "PropertiesOkumura". Nothing ties the set to
/// the selected model. Reading replaces only the children it meets; in command
/// mode the element needs its reference. The order definition is handed in by
/// the message and never read or written. reset() deletes every optional
/// child and the order definition, resets the reference and keeps the mode.
/// \ingroup propmodels
class KELXML_EXPORT XmlPropModelType : public XmlCmdBase
{
public:
    explicit XmlPropModelType(bool isCommand);

    /// True for the form inside a command message, which needs a reference; fixed at construction.
    bool isCommand() const { return m_isCommand; }

    bool hasModel() const { return bool(m_model); }
    /// Null when absent; setModel() stores a copy.
    const XmlPropModelEnumType* model() const { return m_model.get(); }
    void setModel(const XmlPropModelEnumType& model) { m_model.assign(model); }

    bool hasFreespace() const { return bool(m_freespace); }
    /// Null when absent; setFreespace() stores a copy.
    const XmlPropModelFSType* freespace() const { return m_freespace.get(); }
    void setFreespace(const XmlPropModelFSType& set) { m_freespace.assign(set); }
    bool hasOLOS() const { return bool(m_OLOS); }
    /// Null when absent; setOLOS() stores a copy.
    const XmlPropModelOLOSType* OLOS() const { return m_OLOS.get(); }
    void setOLOS(const XmlPropModelOLOSType& set) { m_OLOS.assign(set); }
    bool hasITM() const { return bool(m_ITM); }
    /// Null when absent; setITM() stores a copy.
    const XmlPropModelITMType* ITM() const { return m_ITM.get(); }
    void setITM(const XmlPropModelITMType& set) { m_ITM.assign(set); }
    bool hasP452() const { return bool(m_P452); }
    /// Null when absent; setP452() stores a copy.
    const XmlPropModelP452Type* P452() const { return m_P452.get(); }
    void setP452(const XmlPropModelP452Type& set) { m_P452.assign(set); }
    bool hasP1546() const { return bool(m_P1546); }
    /// Null when absent; setP1546() stores a copy.
    const XmlPropModelP1546Type* P1546() const { return m_P1546.get(); }
    void setP1546(const XmlPropModelP1546Type& set) { m_P1546.assign(set); }
    bool hasP526() const { return bool(m_P526); }
    /// Null when absent; setP526() stores a copy.
    const XmlPropModelP526Type* P526() const { return m_P526.get(); }
    void setP526(const XmlPropModelP526Type& set) { m_P526.assign(set); }
    bool hasP533() const { return bool(m_P533); }
    /// Null when absent; setP533() stores a copy.
    const XmlPropModelP533Type* P533() const { return m_P533.get(); }
    void setP533(const XmlPropModelP533Type& set) { m_P533.assign(set); }
    bool hasHata() const { return bool(m_Hata); }
    /// Null when absent; setHata() stores a copy.
    const XmlPropModelHataType* Hata() const { return m_Hata.get(); }
    void setHata(const XmlPropModelHataType& set) { m_Hata.assign(set); }

protected:
    void checkContent(XmlChecks& checks) const override;

private:
    static const XmlLayout& layout(bool isCommand);

    XmlOwnedPtr<XmlPropModelEnumType> m_model;
    XmlOwnedPtr<XmlPropModelFSType> m_freespace;
    XmlOwnedPtr<XmlPropModelOLOSType> m_OLOS;
    XmlOwnedPtr<XmlPropModelITMType> m_ITM;
    XmlOwnedPtr<XmlPropModelP452Type> m_P452;
    XmlOwnedPtr<XmlPropModelP1546Type> m_P1546;
    XmlOwnedPtr<XmlPropModelP526Type> m_P526;
    XmlOwnedPtr<XmlPropModelP533Type> m_P533;
    XmlOwnedPtr<XmlPropModelHataType> m_Hata;
    bool m_isCommand;
};

} // namespace KelXml
