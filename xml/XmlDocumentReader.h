#pragma once

#include "IXmlElement.h"
#include "XmlDocumentKind.h"
#include "XmlReadError.h"

#include <QByteArray>
#include <QString>

#include <memory>

class QIODevice;

namespace KelXml {

/// What reading a document gave: the root object (null when the document was
/// refused before its root was read), the root element's name, and the error.
/// When an error arose while the root was read, the root keeps what it had
/// read, as after processXml.
/// \ingroup framework
struct KELXML_EXPORT XmlReadResult
{
    std::unique_ptr<IXmlElement> root;
    QString rootName;
    XmlReadError error;

    /// The root as the class it was read as; null when absent or another class.
    template <class T>
    T* rootAs() const
    {
        return dynamic_cast<T*>(root.get());
    }
};

/// The safe way to read a whole document from an untrusted source: checks the
/// limits on the raw bytes in one pass, refuses any DTD, stands the XML reader
/// on the root element, lets the root class read it, and refuses anything but
/// whitespace, comments and processing instructions after it.
///
///     const XmlReadResult result = XmlDocumentReader().readCommand(message);
///     if (result.error) { reply(result.error.text()); return; }
///     const XmlCmdRoot* command = result.rootAs<XmlCmdRoot>();
/// \ingroup framework
class KELXML_EXPORT XmlDocumentReader
{
public:
    XmlDocumentReader() = default;
    explicit XmlDocumentReader(const XmlReadLimits& limits);

    const XmlReadLimits& limits() const { return m_limits; }
    void setLimits(const XmlReadLimits& limits) { m_limits = limits; }

    /// Whether each element read records where its start tag stands
    /// (XmlElementBase::place(), reported by XmlIssueSink). Off by default:
    /// a place costs a small allocation per element read.
    bool recordsPositions() const { return m_recordPositions; }
    void setRecordsPositions(bool record) { m_recordPositions = record; }

    /// Reads the document as an object of the registry class, or as the root
    /// class of the document kind of that name.
    XmlReadResult read(const QString& classNameOrAlias, const QByteArray& document) const;
    /// Reads the document from an open device, from its current position to
    /// its end. A device that is not sequential is refused from its size
    /// without being read; from a sequential one at most maxBytes + 1 bytes
    /// are read, waiting up to 30 seconds for each next part (a socket should
    /// rather be drained by the caller and its bytes passed).
    XmlReadResult read(const QString& classNameOrAlias, QIODevice* device) const;

    /// The documents of the three kinds (XmlDocumentKind): read("command", ...),
    /// read("response", ...) and read("scenario", ...).
    XmlReadResult readCommand(const QByteArray& document) const;
    XmlReadResult readCommand(QIODevice* device) const;
    XmlReadResult readResponse(const QByteArray& document) const;
    XmlReadResult readResponse(QIODevice* device) const;
    XmlReadResult readScenario(const QByteArray& document) const;
    XmlReadResult readScenario(QIODevice* device) const;

    /// Only the check of the raw bytes: a null error when the document keeps
    /// within the limits, has no DTD, and is UTF-8 without NUL bytes.
    XmlReadError scan(const QByteArray& document) const;

    /// Reads what the root element shows of the document's kind (see
    /// XmlDocumentKind::recognise()) under the same limits, looking at the
    /// root's children only by name: up to the end of the root, or up to a
    /// child that settles it. A document refused or not well-formed up to
    /// there gives its error in *error.
    XmlRootShape readRootShape(const QByteArray& document, XmlReadError* error) const;
    /// The same from an open device, from its current position.
    XmlRootShape readRootShape(QIODevice* device, XmlReadError* error) const;

private:
    XmlReadLimits m_limits;
    bool m_recordPositions = false;
};

} // namespace KelXml
