#pragma once

#include "IXmlElement.h"

#include <QByteArray>
#include <QString>

#include <memory>

class QIODevice;

namespace KelXml {

/// Bounds on a document read from an untrusted source. Each is checked on the
/// raw bytes before the XML reader sees them; a document beyond any of them is
/// refused with a located error naming the bound.
/// \ingroup framework
struct KELXML_EXPORT XmlReadLimits
{
    /// Total size of the document in bytes.
    qint64 maxBytes = 64 * 1024 * 1024;
    /// Elements nested in one another, the root counting as 1.
    int maxDepth = 64;
    /// Attributes (namespace declarations included) in one start tag.
    int maxAttributes = 32;
    /// Bytes in one stretch of text, one attribute value, one name, one
    /// comment, one processing instruction or one CDATA section.
    qint64 maxValueLength = 16 * 1024 * 1024;
};

/// Why a document was refused, and where. A null error (kind None) means the
/// document was read without a structural fault.
/// \ingroup framework
struct KELXML_EXPORT XmlReadError
{
    enum Kind
    {
        None,
        SizeLimit,        ///< larger than maxBytes
        DepthLimit,       ///< nested deeper than maxDepth
        AttributesLimit,  ///< a start tag with more than maxAttributes
        ValueLengthLimit, ///< a value longer than maxValueLength
        Dtd,              ///< a document type declaration
        TrailingContent,  ///< something other than whitespace, comments or PIs after the root
        Encoding,         ///< invalid UTF-8, a NUL byte, or an encoding other than UTF-8
        NotWellFormed,    ///< the XML reader's own error, a truncated document included
        Element,          ///< a structural fault raised by an element class
        Device,           ///< the device cannot be read
        NoElement,        ///< the document holds no element
        UnknownClass,     ///< the class name or alias is not in the registry
    };

    Kind kind = None;
    /// For the four limit kinds: "maxBytes", "maxDepth", "maxAttributes" or
    /// "maxValueLength"; empty otherwise.
    QString limit;
    /// 1-based position of the fault; 0 when it has none (device, class). For
    /// faults found by the XML reader, its own line and column.
    qint64 line = 0;
    qint64 column = 0;
    /// What is wrong, without the position. For Element, the element class's
    /// message as raised on the reader (it carries class, line and column).
    QString message;

    bool isNull() const { return kind == None; }
    explicit operator bool() const { return kind != None; }
    bool isLimit() const { return !limit.isEmpty(); }
    /// The message with its position: "line 3, column 7: ...".
    QString text() const;
};

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

    /// Reads the document as an object of the registry class (or alias).
    XmlReadResult read(const QString& classNameOrAlias, const QByteArray& document) const;
    /// Reads the document from an open device, from its current position to
    /// its end. A device that is not sequential is refused from its size
    /// without being read; from a sequential one at most maxBytes + 1 bytes
    /// are read, waiting up to 30 seconds for each next part (a socket should
    /// rather be drained by the caller and its bytes passed).
    XmlReadResult read(const QString& classNameOrAlias, QIODevice* device) const;

    XmlReadResult readCommand(const QByteArray& document) const;
    XmlReadResult readCommand(QIODevice* device) const;
    XmlReadResult readResponse(const QByteArray& document) const;
    XmlReadResult readResponse(QIODevice* device) const;
    XmlReadResult readScenario(const QByteArray& document) const;
    XmlReadResult readScenario(QIODevice* device) const;

    /// Only the check of the raw bytes: a null error when the document keeps
    /// within the limits, has no DTD, and is UTF-8 without NUL bytes.
    XmlReadError scan(const QByteArray& document) const;

private:
    XmlReadLimits m_limits;
};

} // namespace KelXml
