#pragma once

// The limits a document is read within and the error that says why, and
// where, one was refused: shared by the document entry point and the check
// of the raw bytes.

#include "KelXmlGlobal.h"

#include <QString>

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

} // namespace KelXml
