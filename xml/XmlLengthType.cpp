#include "XmlLengthType.h"

#include "XmlKit.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlLengthType");
const XmlText defaultUnit = QStringLiteral("m");
const int defaultLength = 0;
const QString illegalUnit = QStringLiteral("Illegal unit (must be \"%1\").").arg(defaultUnit);
} // namespace

XmlLengthType::XmlLengthType()
    : XmlElementBase(PermanentName{&typeName})
    , m_unit(defaultUnit)
    , m_version(XmlKit::defaultVersionText)
    , m_length(defaultLength)
{}

void XmlLengthType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    XmlElementReader in(*this, reader, elementName, XmlElementReader::TextWording);
    if (!in.begin(m_version) || !in.readRequired(XmlKit::unitAttribute, m_unit))
        return;
    in.readText([&](QStringView text) { m_length = in.toInt(text, defaultLength); });
}

void XmlLengthType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    XmlKit::writeValueElement(writer, elementName, m_version, m_unit, QString::number(m_length));
}

void XmlLengthType::checkContent(XmlChecks& checks) const
{
    checks.version(supportsVersion(), m_version);
    checks.expect(XmlKit::sameText(m_unit, defaultUnit), illegalUnit);
}

void XmlLengthType::reset()
{
    m_unit = defaultUnit;
    m_version = XmlKit::defaultVersionText;
    m_length = defaultLength;
    XmlElementBase::reset();
}

bool XmlLengthType::supportsVersion() const
{
    return XmlKit::isSupportedVersion(m_version);
}

} // namespace KelXml
