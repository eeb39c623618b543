#include "XmlNumCoordType.h"

#include "XmlElementReader.h"
#include "XmlKit.h"

#include <QXmlStreamAttributes>

namespace KelXml {

namespace {
const QString numberAttribute = QStringLiteral("number");
const int unset = -9999;
} // namespace

XmlNumCoordType::XmlNumCoordType()
    : m_number(unset)
{}

void XmlNumCoordType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    if (reader.tokenType() == QXmlStreamReader::StartElement) {
        XmlElementReader in(*this, reader, elementName, XmlElementReader::NamedWording);
        QString number;
        if (in.readRequired(numberAttribute, number)) {
            bool ok = false;
            m_number = number.toInt(&ok, 10);
            if (!ok)
                in.fail(QStringLiteral("Illegal attribute value (must be numeric)"));
        }
    }
    // The position check, the version and the children are the base's; after
    // an error above the base reads nothing more.
    XmlCoordinateType::processXml(reader, elementName);
}

void XmlNumCoordType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    XmlKit::writeStartElement(writer, elementName, version());
    writer.writeAttribute(numberAttribute, QString::number(m_number));
    produceChildren(writer);
    writer.writeEndElement();
}

void XmlNumCoordType::checkContent(XmlChecks& checks) const
{
    XmlCoordinateType::checkContent(checks);
    checks.expect(!(m_number < 0),
                  QStringLiteral("(XmlNumCoordType) Number attribute too small (min. 0)"));
}

void XmlNumCoordType::reset()
{
    m_number = unset;
    XmlCoordinateType::reset();
}

} // namespace KelXml
