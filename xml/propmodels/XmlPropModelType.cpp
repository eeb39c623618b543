#include "XmlPropModelType.h"

#include "XmlKit.h"

#include <functional>

namespace KelXml {

namespace {

const QString selectModelElement = QStringLiteral("SelectModel");
const QString referenceElement = QStringLiteral("Reference");

} // namespace

// One parameter set: its element name, the child held, and reading it into a
// fresh child in place of the one held.
struct XmlPropModelType::ParamSet
{
    template <class T>
    ParamSet(const char* elementName, XmlOwnedPtr<T> XmlPropModelType::*member)
        : name(QLatin1String(elementName))
        , get([member](const XmlPropModelType& owner) -> IXmlElement* {
            return (owner.*member).get();
        })
        , remove([member](XmlPropModelType& owner) { (owner.*member).reset(); })
        , renew([member](XmlPropModelType& owner) -> IXmlElement& {
            (owner.*member).reset();
            return (owner.*member).ensure();
        })
    {}

    QString name;
    std::function<IXmlElement*(const XmlPropModelType&)> get;
    std::function<void(XmlPropModelType&)> remove;
    std::function<IXmlElement&(XmlPropModelType&)> renew;
};

const std::vector<XmlPropModelType::ParamSet>& XmlPropModelType::paramSets()
{
    using Self = XmlPropModelType;
    static const std::vector<ParamSet> sets = {
        {"PropertiesFreespace", &Self::m_freespace},
        {"PropertiesOLOS", &Self::m_OLOS},
        {"PropertiesITM", &Self::m_ITM},
        {"PropertiesP452", &Self::m_P452},
        {"PropertiesP1546", &Self::m_P1546},
        {"PropertiesP526", &Self::m_P526},
        {"PropertiesP533", &Self::m_P533},
        {"PropertiesOkumura", &Self::m_Hata},
    };
    return sets;
}

XmlPropModelType::XmlPropModelType(bool isCommand)
    : XmlElementBase(QStringLiteral("XmlPropModelType"))
    , m_isCommand(isCommand)
{}

void XmlPropModelType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    // Reading starts on the next token wherever the reader stands. The model
    // comes first if at all, then one parameter set, then the reference, each
    // once; a child met is read into a fresh object, the others stay as held.
    XmlElementReader in(*this, reader, elementName, XmlElementReader::ElementWording);
    bool modelSeen = false;
    bool setSeen = false;
    bool referenceSeen = false;
    XmlElementReader::Handlers handlers;
    handlers.start = [&](const QString& name) {
        if (name == selectModelElement) {
            if (modelSeen || setSeen || referenceSeen)
                return false;
            m_model.reset();
            m_model.ensure().processXml(reader, name);
            modelSeen = true;
            return true;
        }
        for (const ParamSet& set : paramSets()) {
            if (set.name != name)
                continue;
            if (setSeen || referenceSeen)
                return false;
            set.renew(*this).processXml(reader, name);
            setSeen = true;
            return true;
        }
        if (name != referenceElement || !m_isCommand || referenceSeen)
            return false;
        m_cmdReference.processXml(reader, name);
        referenceSeen = true;
        return true;
    };
    handlers.mayEnd = [&]() { return !m_isCommand || referenceSeen; };
    in.run(handlers);
}

void XmlPropModelType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    writer.writeStartElement(elementName);
    if (m_model)
        m_model->produceXml(writer, selectModelElement);
    for (const ParamSet& set : paramSets()) {
        if (const IXmlElement* child = set.get(*this))
            child->produceXml(writer, set.name);
    }
    if (m_isCommand)
        m_cmdReference.produceXml(writer, referenceElement);
    writer.writeEndElement();
}

void XmlPropModelType::checkContent(XmlChecks& checks) const
{
    // The reference is reported before the parameter sets, unlike the writing order.
    checks.child(m_model.get());
    if (m_isCommand)
        checks.child(const_cast<XmlReferenceType*>(&m_cmdReference));
    int present = 0;
    for (const ParamSet& set : paramSets()) {
        IXmlElement* child = set.get(*this);
        checks.child(child);
        present += child ? 1 : 0;
    }
    checks.expect(present <= 1, QStringLiteral("Illegal number of elements."));
}

void XmlPropModelType::reset()
{
    m_model.reset();
    for (const ParamSet& set : paramSets())
        set.remove(*this);
    m_orderDef.reset();
    m_cmdReference.reset();
    XmlElementBase::reset();
}

} // namespace KelXml
