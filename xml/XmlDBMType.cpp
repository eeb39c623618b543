#include "XmlDBMType.h"

#include "XmlKit.h"

#include <cfloat>

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlDBMType");
const XmlText unitWord = QStringLiteral("dBm");
const double defaultDBm = -110.0;
} // namespace

XmlDBMType::XmlDBMType()
    : XmlElementBase(PermanentName{&typeName})
    , m_unit(unitWord)
    , m_version(XmlKit::defaultVersionText)
    , m_dBm(defaultDBm)
{}

void XmlDBMType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    XmlElementReader in(*this, reader, elementName, XmlElementReader::TextWording);
    if (!in.begin(m_version))
        return;
    in.readText([&](QStringView text) { m_dBm = in.toDouble(text, defaultDBm); });
}

void XmlDBMType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    XmlKit::writeValueElement(writer, elementName, m_version, m_unit,
                              XmlKit::numberText(m_dBm, 'f', 9));
}

void XmlDBMType::checkContent(XmlChecks& checks) const
{
    checks.version(supportsVersion(), m_version);
    // The lower bound is the smallest positive double: zero and every negative
    // level fail, and NaN passes both comparisons.
    checks.expect(!(m_dBm <= DBL_MIN || m_dBm >= DBL_MAX), QStringLiteral("Illegal decibel."));
}

void XmlDBMType::reset()
{
    m_unit = unitWord;
    m_version = XmlKit::defaultVersionText;
    m_dBm = defaultDBm;
    XmlElementBase::reset();
}

bool XmlDBMType::supportsVersion() const
{
    return XmlKit::isSupportedVersion(m_version);
}

} // namespace KelXml
