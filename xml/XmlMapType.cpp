#include "XmlMapType.h"

#include "XmlKit.h"
#include "XmlLayout.h"
#include "XmlWalk.h"

namespace KelXml {

namespace {
const QString keyElement = QStringLiteral("Key");
const QString valueElement = QStringLiteral("Value");
} // namespace

// Both children are needed; a reset entry creates them again when read.
const XmlLayout& XmlMapType::layout()
{
    using Self = XmlMapType;
    static const XmlLayout layout("XmlMapType", XmlElementReader::ElementWording,
                                  XmlLayout::CheckedVersion,
                                  {
                                      XmlField::optional("Key", &Self::m_key).required(),
                                      XmlField::optional("Value", &Self::m_value).required(),
                                  });
    return layout;
}

XmlMapType::XmlMapType()
    : XmlVersionedComposite(layout())
    , m_key(XmlOwnedPtr<XmlKeyType>::make())
    , m_value(XmlOwnedPtr<XmlLengthType>::make())
{}

void XmlMapType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    XmlKit::writeStartElement(writer, elementName, m_version);
    // The length stands under both names; the key object is not written.
    if (m_value) {
        m_value->produceXml(writer, keyElement);
        m_value->produceXml(writer, valueElement);
    }
    writer.writeEndElement();
}

bool XmlMapType::isValid() const
{
    // The key is not consulted.
    return supportsVersion() && m_value && m_value->isValid();
}

void XmlMapType::checkContent(XmlChecks& checks) const
{
    checkVersion(checks);
    checks.child(m_key.get());
    // Only a reset entry lacks its value.
    checks.expect(bool(m_value), QStringLiteral("No value: the entry has been reset"));
    checks.child(m_value.get());
}

void XmlMapType::describe(XmlWalker& walker, const QString&) const
{
    // As written: the length under both names, the key object not at all.
    walker.attribute(XmlKit::versionAttribute, XmlValue::text(m_version));
    walker.child(m_value.get(), keyElement);
    walker.child(m_value.get(), valueElement);
}

} // namespace KelXml
