#include "XmlGridValuesType.h"

#include "XmlElementReader.h"
#include "XmlKit.h"
#include "XmlNumberText.h"

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlGridValuesType");
const QString minElement = QStringLiteral("Min");
const QString maxElement = QStringLiteral("Max");
const QString missingAttributes = QStringLiteral("Missing mandatory attributes");

QString formatted(double value)
{
    return XmlKit::number(value, 'g', 6);
}
} // namespace

XmlGridValuesType::XmlGridValuesType()
    : XmlElementBase(PermanentName{&typeName})
    , m_version(XmlKit::defaultVersionText)
    , m_min(0.0)
    , m_max(0.0)
{}

void XmlGridValuesType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    XmlElementReader in(*this, reader, elementName, XmlElementReader::ElementWording);
    if (!in.begin(m_version))
        return;
    const QString unit = reader.attributes().value(XmlKit::unitAttribute).toString();
    if (!unit.isEmpty())
        m_unit = unit;
    if (reader.attributes().value(XmlKit::versionAttribute).isEmpty() || unit.isEmpty()) {
        in.fail(missingAttributes);
        return;
    }
    if (!in.checkVersion(m_version))
        return;

    struct Tokens : XmlElementReader::Tokens
    {
        XmlGridValuesType& self;
        XmlElementReader& in;
        // Min first, then Max once Min has closed; the numbers are taken only
        // inside them.
        enum Place
        {
            Outside,
            InMin,
            InMax
        };
        Place place = Outside;
        bool minRead = false;
        bool maxRead = false;

        bool start(QStringView name)
        {
            if (place != Outside)
                return false;
            if (XmlKit::sameName(name, minElement) && !minRead && !maxRead) {
                place = InMin;
                return true;
            }
            if (XmlKit::sameName(name, maxElement) && minRead && !maxRead) {
                place = InMax;
                return true;
            }
            return false;
        }
        bool passEnd(QStringView name)
        {
            if (XmlKit::sameName(name, minElement) && place == InMin) {
                minRead = true;
            } else if (XmlKit::sameName(name, maxElement) && place == InMax) {
                maxRead = true;
            } else {
                return false;
            }
            place = Outside;
            return true;
        }
        bool mayEnd() { return maxRead; }
        void text(QStringView text)
        {
            bool ok = false;
            const double value = text.toDouble(&ok);
            if (!ok)
                return; // whitespace between the children, or a value that is no number
            if (place == InMin)
                self.m_min = value;
            else if (place == InMax)
                self.m_max = value;
            else
                in.fail(QStringLiteral("Unexpected characters"));
        }
    } tokens{{}, *this, in};
    in.loop(tokens);
}

void XmlGridValuesType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    XmlKit::writeStartElement(writer, elementName, m_version);
    writer.writeAttribute(XmlKit::unitAttribute, m_unit);
    writer.writeTextElement(minElement, formatted(m_min));
    writer.writeTextElement(maxElement, formatted(m_max));
    writer.writeEndElement();
}

void XmlGridValuesType::checkContent(XmlChecks& checks) const
{
    checks.expect(!m_version.isEmpty() && !m_unit.isEmpty(), missingAttributes);
    checks.version(supportsVersion(), m_version);
}

void XmlGridValuesType::reset()
{
    m_version = XmlKit::defaultVersionText;
    m_unit.clear();
    m_min = 0.0;
    m_max = 0.0;
    XmlElementBase::reset();
}

bool XmlGridValuesType::supportsVersion() const
{
    return XmlKit::isSupportedVersion(m_version);
}

} // namespace KelXml
