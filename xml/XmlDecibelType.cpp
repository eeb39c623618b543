#include "XmlDecibelType.h"

#include "XmlKit.h"

#include <cfloat>

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlDecibelType");
const XmlText unitWord = QStringLiteral("dB");
const double defaultDecibel = -0.0;
} // namespace

XmlDecibelType::XmlDecibelType()
    : XmlElementBase(PermanentName{&typeName})
    , m_unit(unitWord)
    , m_version(XmlKit::defaultVersionText)
    , m_decibel(defaultDecibel)
{}

void XmlDecibelType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    XmlElementReader in(*this, reader, elementName, XmlElementReader::TextWording);
    if (!in.begin(m_version))
        return;
    in.readText([&](QStringView text) { m_decibel = in.toDouble(text, defaultDecibel); });
}

void XmlDecibelType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    XmlKit::writeValueElement(writer, elementName, m_version, m_unit,
                              XmlKit::numberText(m_decibel, 'f', 6));
}

void XmlDecibelType::checkContent(XmlChecks& checks) const
{
    checks.version(supportsVersion(), m_version);
    // Zero and negative values fail the positive lower bound; NaN passes.
    checks.expect(!(m_decibel <= DBL_MIN || m_decibel >= DBL_MAX),
                  QStringLiteral("Illegal decibel."));
}

void XmlDecibelType::reset()
{
    m_unit = unitWord;
    m_version = XmlKit::defaultVersionText;
    m_decibel = defaultDecibel;
    XmlElementBase::reset();
}

bool XmlDecibelType::supportsVersion() const
{
    return XmlKit::isSupportedVersion(m_version);
}

} // namespace KelXml
