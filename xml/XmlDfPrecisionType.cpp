#include "XmlDfPrecisionType.h"

#include "XmlKit.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlDfPrecisionType");
const XmlText defaultUnit = QString(QChar(0x00B0)); // the degree sign
const int notSet = -2;
} // namespace

XmlDfPrecisionType::XmlDfPrecisionType()
    : XmlElementBase(PermanentName{&typeName})
    , m_unit(defaultUnit)
    , m_version(XmlKit::defaultVersionText)
    , m_precision(notSet)
{}

void XmlDfPrecisionType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    XmlElementReader in(*this, reader, elementName, XmlElementReader::TextWording);
    if (!in.begin(m_version) || !in.readRequired(XmlKit::unitAttribute, m_unit))
        return;
    in.readText([&](QStringView text) { m_precision = in.toInt(text, notSet); });
}

void XmlDfPrecisionType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    XmlKit::writeValueElement(writer, elementName, m_version, m_unit, QString::number(m_precision));
}

void XmlDfPrecisionType::checkContent(XmlChecks& checks) const
{
    checks.version(supportsVersion(), m_version);
    // -1 is the lowest valid precision; the "not set" default fails.
    checks.expect(!(m_precision < -1), QStringLiteral("XmlDfPrecisionType: Illegal precision."));
    checks.expect(XmlKit::sameText(m_unit, defaultUnit),
                  QStringLiteral("XmlDfPrecisionType: Illegal unit."));
}

void XmlDfPrecisionType::reset()
{
    m_unit = defaultUnit;
    m_version = XmlKit::defaultVersionText;
    m_precision = notSet;
    XmlElementBase::reset();
}

bool XmlDfPrecisionType::supportsVersion() const
{
    return XmlKit::isSupportedVersion(m_version);
}

} // namespace KelXml
