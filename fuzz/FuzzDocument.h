#pragma once

// What the document targets share: read the input as a whole document
// through the entry point, then check, report, write and reset the result.
// Whatever the input, this must end quickly and safely, and every refusal
// must say where it happened.

#include <XmlDocumentReader.h>

#include <QByteArray>
#include <QXmlStreamWriter>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace KelXmlFuzz {

inline void require(bool condition)
{
    if (!condition)
        std::abort();
}

inline QByteArray written(const KelXml::IXmlElement& element, const QString& name)
{
    QByteArray text;
    QXmlStreamWriter writer(&text);
    writer.writeStartDocument();
    element.produceXml(writer, name);
    writer.writeEndDocument();
    return text;
}

inline int readDocument(const char* alias, const uint8_t* data, size_t size)
{
    // Small enough for the fuzzer to reach every limit.
    KelXml::XmlReadLimits limits;
    limits.maxBytes = 1 << 20;
    limits.maxValueLength = 4096;
    const KelXml::XmlDocumentReader reader(limits);

    const QByteArray document =
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), int(size));
    const QString className = QString::fromLatin1(alias);
    KelXml::XmlReadResult result = reader.read(className, document);
    const KelXml::XmlReadError& error = result.error;
    if (error && error.kind != KelXml::XmlReadError::Element)
        require(error.line >= 1 && error.column >= 0 && !error.message.isEmpty());
    require(error.isLimit() == (error.kind >= KelXml::XmlReadError::SizeLimit &&
                                error.kind <= KelXml::XmlReadError::ValueLengthLimit));
    if (!result.root) {
        require(bool(error));
        return 0;
    }

    result.root->isValid();
    result.root->syntaxError();
    written(*result.root, result.rootName);
    result.root->reset();
    result.root->isValid();
    return 0;
}

} // namespace KelXmlFuzz
