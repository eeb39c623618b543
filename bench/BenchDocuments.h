#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

class QXmlStreamReader;
class QXmlStreamWriter;

namespace KelXml {
class IXmlElement;
}

// Documents for the benchmarks and the instruction-count gate, and the
// library's model of each, read, checked and written as an application does.
namespace KelXmlBench {

enum class DocumentKind
{
    Command,   // a command message: every kind of create command, then calculations
    Snapshot,  // a scenario snapshot: areas with large polygons, stations, results
    Responses, // a stream of response messages with interlink results
    PairList,  // a list of frequency/threshold pairs
};

// "command", "snapshot", "responses", "pairs".
QString kindName(DocumentKind kind);
// The kind that kindName() gives that name; false when there is none.
bool kindFromName(const QString& name, DocumentKind* kind);

// A document of about `bytes` bytes (a little more, never much less: whole
// elements only). The same arguments give the same bytes on every run and
// machine: the content is derived from element counters, not from a clock or
// a random source. Every document reads without error and is valid.
QByteArray generate(DocumentKind kind, qint64 bytes);
// A pair list of exactly `count` pairs, laid out as the samples are
// (about 157 bytes a pair).
QByteArray pairList(int count);

// The library's object model of one document. A response stream is read as
// one document whose root holds many response messages, each read by its own
// root object.
class Model
{
public:
    explicit Model(DocumentKind kind);
    ~Model();
    Model(const Model&) = delete;
    Model& operator=(const Model&) = delete;

    // Reads the document the reader stands before (it must not have read
    // the root's start tag yet). False when the reader raised an error.
    bool read(QXmlStreamReader& reader);
    bool isValid() const;
    QString syntaxError() const;
    // Writes the whole document: start of document, root, end of document.
    void write(QXmlStreamWriter& writer) const;

private:
    DocumentKind m_kind;
    QString m_rootName;
    std::unique_ptr<KelXml::IXmlElement> m_root;              // every kind but Responses
    std::vector<std::unique_ptr<KelXml::IXmlElement>> m_list; // Responses
};

// Reads `document` into a new model and checks it. Empty when it reads
// without error and is valid, otherwise the reader's error or the report.
QString verify(DocumentKind kind, const QByteArray& document);

} // namespace KelXmlBench
