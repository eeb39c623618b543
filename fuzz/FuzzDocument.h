#pragma once

// What the document targets share: read the input as a whole document
// through the entry point, then check, report, write and reset the result.
// Whatever the input, this must end quickly and safely, and every refusal
// must say where it happened. The check of the raw bytes, cut into small
// blocks, must find what it finds on the whole.

#include <XmlDocumentReader.h>
#include <XmlElementBase.h>
#include <XmlScanDevice.h>

#include <QBuffer>
#include <QByteArray>
#include <QXmlStreamWriter>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

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

// The report as the walk hands it over, framed as syntaxError() frames it.
class Rendering : public KelXml::XmlReportSink
{
public:
    void enter(const QString& classname) override { m_frames.push_back(&classname); }
    void message(const QString& text) override
    {
        for (; m_opened < m_frames.size(); ++m_opened)
            line(QStringLiteral("+++ in ") + *m_frames[m_opened] + QStringLiteral(" Begin:"));
        line(text);
    }
    void leave() override
    {
        if (m_opened == m_frames.size()) {
            line(QStringLiteral("--- in ") + *m_frames.back() + QStringLiteral(" End"));
            --m_opened;
        }
        m_frames.pop_back();
    }
    const QString& text() const { return m_text; }

private:
    void line(const QString& text)
    {
        if (!m_text.isEmpty())
            m_text += QLatin1Char('\n');
        m_text += text;
    }

    std::vector<const QString*> m_frames;
    size_t m_opened = 0;
    QString m_text;
};

inline int readDocument(const char* alias, const uint8_t* data, size_t size)
{
    // Small enough for the fuzzer to reach every limit.
    KelXml::XmlReadLimits limits;
    limits.maxBytes = 1 << 20;
    limits.maxValueLength = 4096;
    const KelXml::XmlDocumentReader reader(limits);

    const QByteArray document =
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), int(size));

    // The check carries its state from block to block: in blocks of a few
    // bytes, from the array and from a device, it refuses as on the whole.
    // Large inputs are cut into blocks of a few hundred bytes, so that a run
    // at size spends its time on the documents rather than on the blocks.
    const KelXml::XmlReadError whole = reader.scan(document);
    const qint64 unit = size <= 65536 ? 1 : 251;
    KelXml::XmlScanDevice cut(document, limits, unit * (1 + qint64(size % 7)));
    cut.scanToEnd();
    require(cut.fault().kind == whole.kind && cut.fault().text() == whole.text());
    QByteArray copy(document);
    QBuffer source(&copy);
    source.open(QIODevice::ReadOnly);
    KelXml::XmlScanDevice fromDevice(&source, limits, unit * (1 + qint64(size % 5)));
    fromDevice.scanToEnd();
    require(fromDevice.fault().kind == whole.kind && fromDevice.fault().text() == whole.text());

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
    const QString report = result.root->syntaxError();
    // The walk that the tool prints from gives the same report.
    if (const auto* element = dynamic_cast<const KelXml::XmlElementBase*>(result.root.get())) {
        Rendering walk;
        element->reportTo(walk);
        require(walk.text() == report);
    }
    written(*result.root, result.rootName);
    result.root->reset();
    result.root->isValid();
    return 0;
}

} // namespace KelXmlFuzz
