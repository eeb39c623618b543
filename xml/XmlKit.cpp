#include "XmlKit.h"

namespace KelXml {

namespace XmlKit {

const QString versionAttribute = QStringLiteral("version");
const QString unitAttribute = QStringLiteral("unit");
const QString defaultVersion = QStringLiteral("1.0");
const XmlText defaultVersionText = defaultVersion;

void writeValueElement(QXmlStreamWriter& writer, const QString& name, const QString& version,
                       const QString& unit, const QString& text)
{
    writer.writeStartElement(name);
    writer.writeAttribute(versionAttribute, version);
    writer.writeAttribute(unitAttribute, unit);
    writer.writeCharacters(text);
    writer.writeEndElement();
}

void writeValueElement(QXmlStreamWriter& writer, const QString& name, const QString& version,
                       const QString& text)
{
    writer.writeStartElement(name);
    writer.writeAttribute(versionAttribute, version);
    writer.writeCharacters(text);
    writer.writeEndElement();
}

void writeStartElement(QXmlStreamWriter& writer, const QString& name, const QString& version)
{
    writer.writeStartElement(name);
    writer.writeAttribute(versionAttribute, version);
}

} // namespace XmlKit

} // namespace KelXml
