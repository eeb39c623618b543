#include "XmlDocumentReader.h"

#include "XmlElementRegistry.h"

#include <QIODevice>
#include <QXmlStreamReader>
#include <QtAlgorithms>

#include <algorithm>
#include <cstring>
#include <limits>

namespace KelXml {

namespace {

using Byte = unsigned char;

// A fault found on the raw bytes, at a byte offset of the document.
struct Fault
{
    XmlReadError::Kind kind = XmlReadError::None;
    qint64 offset = 0;
    QString limit;
    QString message;
};

// Byte classes of the scanner. A byte of class 0 needs no attention in the
// state at hand; the inner loops skip runs of them.
enum : Byte
{
    Plain = 0,
    Special = 1,
};

struct ByteTable
{
    Byte text[256] = {};   // character data: '<', NUL, non-ASCII
    Byte tag[256] = {};    // inside a tag: '>', quotes, NUL, non-ASCII
    Byte dquote[256] = {}; // inside "...": '"', NUL, non-ASCII
    Byte squote[256] = {}; // inside '...': '\'', NUL, non-ASCII

    ByteTable()
    {
        for (int c = 0x80; c < 0x100; ++c)
            text[c] = tag[c] = dquote[c] = squote[c] = Special;
        text[0] = tag[0] = dquote[0] = squote[0] = Special;
        text[Byte('<')] = Special;
        tag[Byte('>')] = tag[Byte('"')] = tag[Byte('\'')] = Special;
        dquote[Byte('"')] = Special;
        squote[Byte('\'')] = Special;
    }
};

const ByteTable& tables()
{
    static const ByteTable table;
    return table;
}

bool isContinuation(Byte c)
{
    return (c & 0xC0) == 0x80;
}

// The length of the well-formed UTF-8 sequence at p (whose first byte is not
// ASCII), or 0: no overlong forms, no surrogates, nothing above U+10FFFF.
int utf8Length(const Byte* p, const Byte* end)
{
    const Byte c = p[0];
    const qint64 left = end - p;
    if (c < 0xC2)
        return 0;
    if (c < 0xE0)
        return left >= 2 && isContinuation(p[1]) ? 2 : 0;
    if (c < 0xF0) {
        if (left < 3 || !isContinuation(p[2]))
            return 0;
        const Byte low = c == 0xE0 ? 0xA0 : 0x80;
        const Byte high = c == 0xED ? 0x9F : 0xBF;
        return p[1] >= low && p[1] <= high ? 3 : 0;
    }
    if (c < 0xF5) {
        if (left < 4 || !isContinuation(p[2]) || !isContinuation(p[3]))
            return 0;
        const Byte low = c == 0xF0 ? 0x90 : 0x80;
        const Byte high = c == 0xF4 ? 0x8F : 0xBF;
        return p[1] >= low && p[1] <= high ? 4 : 0;
    }
    return 0;
}

// Eight bytes at a time: true when none is NUL, non-ASCII or one of the
// stops (pass NUL for an unused stop).
inline quint64 ones(Byte c)
{
    return 0x0101010101010101ULL * c;
}

inline bool hasByte(quint64 word, Byte c)
{
    const quint64 x = word ^ ones(c);
    return ((x - ones(0x01)) & ~x & ones(0x80)) != 0;
}

// Steps p over bytes that need no attention, up to bound: first eight at a
// time, then one by one by the table of the state at hand.
inline bool plainWord(quint64 word)
{
    return !(word & ones(0x80)) && !hasByte(word, 0);
}

template <Byte... Stops>
inline const Byte* skipWords(const Byte* p, const Byte* bound)
{
    while (bound - p >= 8) {
        quint64 word;
        std::memcpy(&word, p, 8);
        if (!plainWord(word) || (hasByte(word, Stops) || ...))
            break;
        p += 8;
    }
    return p;
}

template <Byte... Stops>
inline const Byte* skip(const Byte* p, const Byte* bound, const Byte* table)
{
    p = skipWords<Stops...>(p, bound);
    while (p < bound && table[*p] == Plain)
        ++p;
    return p;
}

bool startsWith(const Byte* p, const Byte* end, const char* text)
{
    const size_t length = std::strlen(text);
    return size_t(end - p) >= length && std::memcmp(p, text, length) == 0;
}

bool isSpace(Byte c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// One linear pass over the raw bytes that finds the first way in which a
// document breaks the limits, holds a DTD, a NUL byte or invalid UTF-8, or
// names an encoding other than UTF-8. It follows the markup only as far as
// the limits need (tags, quoted values, comments, CDATA sections, processing
// instructions); whatever else is wrong is left to the XML reader.
class Scanner
{
public:
    Scanner(const QByteArray& document, const XmlReadLimits& limits)
        : m_begin(reinterpret_cast<const Byte*>(document.constData()))
        , m_end(m_begin + document.size())
        , m_p(m_begin)
        , m_limits(limits)
        , m_table(tables())
    {}

    Fault run()
    {
        if (m_end - m_begin > m_limits.maxBytes) {
            return limitFault(
                XmlReadError::SizeLimit, 0, QStringLiteral("maxBytes"),
                QStringLiteral("the document is larger than %1 bytes").arg(m_limits.maxBytes));
        }
        if (!checkEncoding())
            return m_fault;
        while (m_p < m_end) {
            if (!text())
                return m_fault;
            if (m_p == m_end)
                break;
            if (!markup())
                return m_fault;
        }
        return m_fault;
    }

private:
    bool fail(XmlReadError::Kind kind, const Byte* at, const QString& message)
    {
        m_fault.kind = kind;
        m_fault.offset = at - m_begin;
        m_fault.message = message;
        return false;
    }

    Fault limitFault(XmlReadError::Kind kind, qint64 offset, const QString& limit,
                     const QString& message)
    {
        m_fault.kind = kind;
        m_fault.offset = offset;
        m_fault.limit = limit;
        m_fault.message = QStringLiteral("%1 (limit %2)").arg(message, limit);
        return m_fault;
    }

    bool valueTooLong(const Byte* start)
    {
        limitFault(XmlReadError::ValueLengthLimit, start - m_begin,
                   QStringLiteral("maxValueLength"),
                   QStringLiteral("a text, value, name or comment longer than %1 bytes")
                       .arg(m_limits.maxValueLength));
        return false;
    }

    // Where a run that started at start must end at the latest: one byte past
    // the longest run allowed, so that reaching it means the run is too long.
    const Byte* runBound(const Byte* start) const
    {
        const qint64 left = m_end - start;
        return start + (m_limits.maxValueLength < left ? m_limits.maxValueLength + 1 : left);
    }

    // A byte that the tables flag in every state: NUL or the lead of a UTF-8
    // sequence. Steps over a valid sequence; false on a fault.
    bool checkByte()
    {
        if (*m_p == 0)
            return fail(XmlReadError::Encoding, m_p, QStringLiteral("a NUL byte is not accepted"));
        const int length = utf8Length(m_p, m_end);
        if (length == 0)
            return fail(XmlReadError::Encoding, m_p, QStringLiteral("invalid UTF-8"));
        m_p += length;
        return true;
    }

    // A byte order mark of UTF-16 or UTF-32, or a declaration naming another
    // encoding than UTF-8, is refused: the scan only understands UTF-8.
    bool checkEncoding()
    {
        if (startsWith(m_p, m_end, "\xEF\xBB\xBF")) {
            m_p += 3;
        } else if (startsWith(m_p, m_end, "\xFE\xFF") || startsWith(m_p, m_end, "\xFF\xFE")) {
            return fail(XmlReadError::Encoding, m_p,
                        QStringLiteral("a UTF-16 or UTF-32 byte order mark is not accepted "
                                       "(documents must be UTF-8)"));
        }
        if (!startsWith(m_p, m_end, "<?xml") || m_end - m_p < 6 || !isSpace(m_p[5]))
            return true;
        // The declaration ends at the first "?>"; look for encoding="..." inside.
        static const char end[] = "?>";
        const Byte* close = std::search(m_p + 5, runBound(m_p + 2), end, end + 2);
        static const char key[] = "encoding";
        const Byte* at = std::search(m_p + 5, close, key, key + sizeof key - 1);
        if (at == close)
            return true;
        const Byte* q = at + sizeof key - 1;
        while (q < close && isSpace(*q))
            ++q;
        if (q == close || *q != '=')
            return true;
        ++q;
        while (q < close && isSpace(*q))
            ++q;
        if (q == close || (*q != '"' && *q != '\''))
            return true;
        const Byte quote = *q++;
        const Byte* valueEnd = std::find(q, close, quote);
        const QByteArray name(reinterpret_cast<const char*>(q), int(valueEnd - q));
        if (name.compare("UTF-8", Qt::CaseInsensitive) == 0)
            return true;
        return fail(XmlReadError::Encoding, q,
                    QStringLiteral("the encoding \"%1\" is not accepted (documents must be UTF-8)")
                        .arg(QString::fromLatin1(name.left(64))));
    }

    // Character data up to the next '<'.
    bool text()
    {
        const Byte* start = m_p;
        const Byte* bound = runBound(start);
        while (m_p < bound) {
            m_p = skip<'<'>(m_p, bound, m_table.text);
            if (m_p == bound || *m_p == '<')
                break;
            if (!checkByte())
                return false;
        }
        if (m_p - start > m_limits.maxValueLength)
            return valueTooLong(start);
        return true;
    }

    // The markup that starts at m_p, which stands on '<'.
    bool markup()
    {
        const Byte* start = m_p;
        const Byte next = m_p + 1 < m_end ? m_p[1] : 0;
        if (next == '/') {
            m_p += 2;
            if (!tag(false))
                return false;
            if (m_depth > 0)
                --m_depth;
            return true;
        }
        if (next == '?')
            return until<'?', '>'>(m_p + 2);
        if (next == '!') {
            if (startsWith(m_p, m_end, "<!--"))
                return until<'-', '-', '>'>(m_p + 4);
            if (startsWith(m_p, m_end, "<![CDATA["))
                return until<']', ']', '>'>(m_p + 9);
            if (startsWith(m_p, m_end, "<!DOCTYPE"))
                return fail(XmlReadError::Dtd, start,
                            QStringLiteral("a document type declaration is not accepted"));
            // Not markup the reader accepts: it stops here.
            ++m_p;
            return true;
        }
        if (++m_depth > m_limits.maxDepth) {
            limitFault(
                XmlReadError::DepthLimit, start - m_begin, QStringLiteral("maxDepth"),
                QStringLiteral("elements nested deeper than %1 levels").arg(m_limits.maxDepth));
            return false;
        }
        ++m_p;
        if (!tag(true))
            return false;
        if (m_p[-1] == '>' && m_p - start >= 2 && m_p[-2] == '/')
            --m_depth; // an empty-element tag
        return true;
    }

    // A comment, processing instruction or CDATA section whose content starts
    // at content and ends with the terminator.
    template <Byte first, Byte... rest>
    bool until(const Byte* content)
    {
        static const Byte terminator[] = {first, rest...};
        const Byte* bound = runBound(content);
        m_p = content;
        while (m_p < bound) {
            m_p = skipWords<first>(m_p, bound);
            if (m_p == bound)
                break;
            const Byte c = *m_p;
            if (c == first && size_t(m_end - m_p) >= sizeof terminator &&
                std::memcmp(m_p, terminator, sizeof terminator) == 0) {
                m_p += sizeof terminator;
                return true;
            }
            if (c == 0 || c >= 0x80) {
                if (!checkByte())
                    return false;
            } else {
                ++m_p;
            }
        }
        if (m_p - content > m_limits.maxValueLength)
            return valueTooLong(content);
        return true; // the document ends inside: the reader reports it
    }

    // The rest of a start or end tag, up to and including its '>'. Counts the
    // attributes of a start tag by their quoted values.
    bool tag(bool isStart)
    {
        int attributes = 0;
        const Byte* segment = m_p; // the unquoted stretch: names, '=', blanks
        while (m_p < m_end) {
            const Byte* bound = runBound(segment);
            m_p = skip<'>', '"', '\''>(m_p, bound, m_table.tag);
            if (m_p == bound) {
                if (m_p - segment > m_limits.maxValueLength)
                    return valueTooLong(segment);
                return true; // the document ends inside the tag
            }
            const Byte c = *m_p;
            if (c == '>') {
                ++m_p;
                return true;
            }
            if (c == '"' || c == '\'') {
                if (isStart && ++attributes > m_limits.maxAttributes) {
                    limitFault(XmlReadError::AttributesLimit, attributeStart(segment) - m_begin,
                               QStringLiteral("maxAttributes"),
                               QStringLiteral("more than %1 attributes in one start tag")
                                   .arg(m_limits.maxAttributes));
                    return false;
                }
                if (!(c == '"' ? quoted<'"'>(m_table.dquote) : quoted<'\''>(m_table.squote)))
                    return false;
                segment = m_p;
                continue;
            }
            if (!checkByte())
                return false;
        }
        return true;
    }

    // The name of the attribute whose value opens at m_p: back over '=',
    // blanks and the name, not before the start of the unquoted stretch.
    const Byte* attributeStart(const Byte* segment) const
    {
        const Byte* q = m_p;
        while (q > segment && (isSpace(q[-1]) || q[-1] == '='))
            --q;
        while (q > segment && !isSpace(q[-1]))
            --q;
        return q;
    }

    // A quoted value; m_p stands on its opening quote.
    template <Byte quote>
    bool quoted(const Byte* table)
    {
        ++m_p;
        const Byte* start = m_p;
        const Byte* bound = runBound(start);
        while (m_p < bound) {
            m_p = skip<quote>(m_p, bound, table);
            if (m_p == bound)
                break;
            if (*m_p == quote) {
                if (m_p - start > m_limits.maxValueLength)
                    return valueTooLong(start);
                ++m_p;
                return true;
            }
            if (!checkByte())
                return false;
        }
        if (m_p - start > m_limits.maxValueLength)
            return valueTooLong(start);
        return true; // the document ends inside the value
    }

    const Byte* m_begin;
    const Byte* m_end;
    const Byte* m_p;
    const XmlReadLimits& m_limits;
    const ByteTable& m_table;
    int m_depth = 0;
    Fault m_fault;
};

// The 1-based line and column of a byte offset: lines end at "\n", "\r\n" or
// a lone "\r"; columns count characters, not bytes.
void locate(const QByteArray& document, qint64 offset, qint64& line, qint64& column)
{
    const Byte* begin = reinterpret_cast<const Byte*>(document.constData());
    const Byte* end = begin + document.size();
    const Byte* at = begin + std::min<qint64>(offset, document.size());
    line = 1;
    const Byte* lineStart = begin;
    if (!std::memchr(begin, '\r', size_t(at - begin))) {
        while (const void* newline = std::memchr(lineStart, '\n', size_t(at - lineStart))) {
            ++line;
            lineStart = static_cast<const Byte*>(newline) + 1;
        }
    } else {
        for (const Byte* p = begin; p < at; ++p) {
            if (*p == '\n' || (*p == '\r' && (p + 1 == end || p[1] != '\n'))) {
                ++line;
                lineStart = p + 1;
            }
        }
    }
    // Every byte but a UTF-8 continuation byte starts a character.
    column = 1 + (at - lineStart);
    const Byte* p = lineStart;
    for (; at - p >= 8; p += 8) {
        quint64 word;
        std::memcpy(&word, p, 8);
        column -= qPopulationCount(word & ~(word << 1) & ones(0x80));
    }
    for (; p < at; ++p) {
        if (isContinuation(*p))
            --column;
    }
}

XmlReadError located(const QByteArray& document, const Fault& fault)
{
    XmlReadError error;
    error.kind = fault.kind;
    error.limit = fault.limit;
    error.message = fault.message;
    locate(document, fault.offset, error.line, error.column);
    return error;
}

XmlReadError simpleError(XmlReadError::Kind kind, const QString& message)
{
    XmlReadError error;
    error.kind = kind;
    error.message = message;
    return error;
}

// The error the XML reader holds. A document that ends too early is located
// at its end, where the reader itself may not say.
XmlReadError readerError(const QXmlStreamReader& reader, const QByteArray& document, bool afterRoot)
{
    XmlReadError error;
    error.message = reader.errorString();
    error.line = reader.lineNumber();
    error.column = reader.columnNumber();
    switch (reader.error()) {
    case QXmlStreamReader::CustomError:
        error.kind = XmlReadError::Element;
        break;
    case QXmlStreamReader::PrematureEndOfDocumentError:
        error.kind = XmlReadError::NotWellFormed;
        locate(document, document.size(), error.line, error.column);
        break;
    default:
        error.kind = afterRoot ? XmlReadError::TrailingContent : XmlReadError::NotWellFormed;
        break;
    }
    return error;
}

} // namespace

QString XmlReadError::text() const
{
    if (kind == None)
        return QString();
    if (line <= 0 || kind == Element)
        return message;
    return QStringLiteral("line %1, column %2: %3").arg(line).arg(column).arg(message);
}

XmlDocumentReader::XmlDocumentReader(const XmlReadLimits& limits)
    : m_limits(limits)
{}

XmlReadError XmlDocumentReader::scan(const QByteArray& document) const
{
    const Fault fault = Scanner(document, m_limits).run();
    if (fault.kind == XmlReadError::None)
        return XmlReadError();
    return located(document, fault);
}

XmlReadResult XmlDocumentReader::read(const QString& classNameOrAlias,
                                      const QByteArray& document) const
{
    XmlReadResult result;
    const QString className = XmlElementRegistry::resolve(classNameOrAlias);
    if (className.isEmpty()) {
        result.error =
            simpleError(XmlReadError::UnknownClass,
                        QStringLiteral("unknown element class \"%1\"").arg(classNameOrAlias));
        return result;
    }
    result.error = scan(document);
    if (result.error)
        return result;

    QXmlStreamReader reader(document);
    while (!reader.atEnd() && reader.readNext() != QXmlStreamReader::StartElement) {
    }
    if (reader.tokenType() != QXmlStreamReader::StartElement) {
        if (reader.hasError()) {
            result.error = readerError(reader, document, false);
        } else {
            result.error = simpleError(XmlReadError::NoElement, QStringLiteral("no element found"));
            locate(document, document.size(), result.error.line, result.error.column);
        }
        return result;
    }
    result.root = XmlElementRegistry::create(className);
    result.rootName = reader.name().toString();
    result.root->processXml(reader, result.rootName);
    if (reader.hasError()) {
        result.error = readerError(reader, document, false);
        return result;
    }
    // After the root: only whitespace, comments and processing instructions.
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::Comment:
        case QXmlStreamReader::ProcessingInstruction:
        case QXmlStreamReader::EndDocument:
        case QXmlStreamReader::Invalid:
            break;
        case QXmlStreamReader::Characters:
            if (reader.isWhitespace())
                break;
            Q_FALLTHROUGH();
        default:
            result.error.kind = XmlReadError::TrailingContent;
            result.error.message = QStringLiteral("content after the root element");
            result.error.line = reader.lineNumber();
            result.error.column = reader.columnNumber();
            return result;
        }
    }
    if (reader.hasError())
        result.error = readerError(reader, document, true);
    return result;
}

XmlReadResult XmlDocumentReader::read(const QString& classNameOrAlias, QIODevice* device) const
{
    XmlReadResult result;
    if (!device || !device->isReadable()) {
        result.error = simpleError(XmlReadError::Device, QStringLiteral("the device is not open "
                                                                        "for reading"));
        return result;
    }
    if (!device->isSequential() && device->size() - device->pos() > m_limits.maxBytes) {
        // Refused from its size alone, without reading it.
        result.error.kind = XmlReadError::SizeLimit;
        result.error.limit = QStringLiteral("maxBytes");
        result.error.message = QStringLiteral("the document is larger than %1 bytes (limit %2)")
                                   .arg(m_limits.maxBytes)
                                   .arg(result.error.limit);
        result.error.line = 1;
        result.error.column = 1;
        return result;
    }
    // At most one byte more than the limit, so that the scan sees it is over
    // (and never more than a byte array holds).
    const qint64 largest = qint64(std::numeric_limits<int>::max()) - 4096;
    const qint64 wanted = std::min(m_limits.maxBytes, largest - 1) + 1;
    const qint64 chunk = 1 << 16;
    QByteArray document;
    qint64 size = 0;
    while (size < wanted) {
        const qint64 room = std::min(chunk, wanted - size);
        document.resize(int(size + room));
        const qint64 got = device->read(document.data() + size, room);
        if (got < 0) {
            result.error = simpleError(
                XmlReadError::Device, QStringLiteral("cannot read: %1").arg(device->errorString()));
            return result;
        }
        if (got == 0 && !device->waitForReadyRead(30000))
            break;
        size += got;
    }
    document.resize(int(size));
    return read(classNameOrAlias, document);
}

XmlReadResult XmlDocumentReader::readCommand(const QByteArray& document) const
{
    return read(QStringLiteral("XmlCmdRoot"), document);
}

XmlReadResult XmlDocumentReader::readCommand(QIODevice* device) const
{
    return read(QStringLiteral("XmlCmdRoot"), device);
}

XmlReadResult XmlDocumentReader::readResponse(const QByteArray& document) const
{
    return read(QStringLiteral("XmlRespRoot"), document);
}

XmlReadResult XmlDocumentReader::readResponse(QIODevice* device) const
{
    return read(QStringLiteral("XmlRespRoot"), device);
}

XmlReadResult XmlDocumentReader::readScenario(const QByteArray& document) const
{
    return read(QStringLiteral("XmlKelBtType"), document);
}

XmlReadResult XmlDocumentReader::readScenario(QIODevice* device) const
{
    return read(QStringLiteral("XmlKelBtType"), device);
}

} // namespace KelXml
