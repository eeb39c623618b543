#include "XmlMapType.h"

#include "XmlElementReader.h"
#include "XmlKit.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlMapType");
const QString keyElement = QStringLiteral("Key");
const QString valueElement = QStringLiteral("Value");
} // namespace

XmlMapType::XmlMapType()
    : XmlElementBase(PermanentName{&typeName})
    , m_key(XmlOwnedPtr<XmlKeyType>::make())
    , m_value(XmlOwnedPtr<XmlLengthType>::make())
    , m_version(XmlKit::defaultVersionText)
{}

void XmlMapType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    XmlElementReader in(*this, reader, elementName, XmlElementReader::ElementWording);
    if (!in.begin(m_version) || !in.checkVersion(m_version))
        return;
    in.readChildren({
        XmlChild::created(keyElement, m_key),
        XmlChild::created(valueElement, m_value),
    });
}

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
    checks.version(supportsVersion(), m_version);
    checks.child(m_key.get());
    // Only a reset entry lacks its value.
    checks.expect(bool(m_value), QStringLiteral("No value: the entry has been reset"));
    checks.child(m_value.get());
}

void XmlMapType::reset()
{
    m_key.reset();
    m_value.reset();
    m_version = XmlKit::defaultVersionText;
    XmlElementBase::reset();
}

bool XmlMapType::supportsVersion() const
{
    return XmlKit::isSupportedVersion(m_version);
}

} // namespace KelXml
