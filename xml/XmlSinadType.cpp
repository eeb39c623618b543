#include "XmlSinadType.h"

#include "XmlKit.h"

#include <cfloat>

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlSinadType");
const double defaultSinad = 0.0;
} // namespace

XmlSinadType::XmlSinadType()
    : XmlElementBase(PermanentName{&typeName})
    , m_version(XmlKit::defaultVersionText)
    , m_sinad(defaultSinad)
{}

void XmlSinadType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    XmlElementReader in(*this, reader, elementName, XmlElementReader::TextWording);
    if (!in.begin(m_version))
        return;
    in.readText([&](QStringView text) { m_sinad = in.toDouble(text, defaultSinad); });
}

void XmlSinadType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    XmlKit::writeValueElement(writer, elementName, m_version, XmlKit::numberText(m_sinad, 'f', 6));
}

void XmlSinadType::checkContent(XmlChecks& checks) const
{
    checks.version(supportsVersion(), m_version);
    // A bad SINAD is reported with the frequency message; zero fails, NaN passes.
    checks.expect(!(m_sinad <= DBL_MIN || m_sinad >= DBL_MAX),
                  QStringLiteral("Illegal frequency."));
}

void XmlSinadType::reset()
{
    m_version = XmlKit::defaultVersionText;
    m_sinad = defaultSinad;
    XmlElementBase::reset();
}

bool XmlSinadType::supportsVersion() const
{
    return XmlKit::isSupportedVersion(m_version);
}

} // namespace KelXml
