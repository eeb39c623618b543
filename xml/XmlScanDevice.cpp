#include "XmlScanDevice.h"

#include <QtAlgorithms>
#include <QtEndian>

#include <algorithm>
#include <cstring>
#include <limits>
#include <vector>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace KelXml {

namespace {

using Byte = unsigned char;

// An offset of the document and, once known, its 1-based line and column.
// The scan names the places of faults by offset; a place that lies in a
// block handed on already is located before the block is let go.
struct Mark
{
    qint64 offset = 0;
    qint64 line = 0; // 0 while not located
    qint64 column = 0;

    bool located() const { return line > 0; }
};

// A fault found on the raw bytes.
struct Fault
{
    XmlReadError::Kind kind = XmlReadError::None;
    Mark at;
    QString limit;
    QString message;
};

// ---- bytes ----

bool isContinuation(Byte c)
{
    return (c & 0xC0) == 0x80;
}

// The bytes that a UTF-8 sequence with this first byte (not ASCII) takes
// when well-formed; 1 for a byte that starts none.
int utf8Needs(Byte c)
{
    return c < 0xC2 ? 1 : c < 0xE0 ? 2 : c < 0xF0 ? 3 : c < 0xF5 ? 4 : 1;
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

// Eight bytes at a time, where sixteen (SSE2) are not to be had.
inline quint64 ones(Byte c)
{
    return 0x0101010101010101ULL * c;
}

// The high bit of every byte of the word that equals c, and no other bit.
inline quint64 equalBytes(quint64 word, Byte c)
{
    const quint64 x = word ^ ones(c);
    return ~(((x & ones(0x7F)) + ones(0x7F)) | x) & ones(0x80);
}

inline quint64 load(const Byte* p)
{
    quint64 word;
    std::memcpy(&word, p, 8);
    return word;
}

// The number of bytes of the word whose high bit is set, when no other bit
// is (without a population count instruction, which the baseline lacks).
inline int flaggedBytes(quint64 flags)
{
    return int(((flags >> 7) * ones(1)) >> 56);
}

// True when the word holds the byte c.
inline bool hasByte(quint64 word, Byte c)
{
    const quint64 x = word ^ ones(c);
    return ((x - ones(0x01)) & ~x & ones(0x80)) != 0;
}

// Whether a byte needs the scan's attention in a state whose stops are
// given: NUL, a byte that is not ASCII, or a stop.
template <Byte... Stops>
struct StopTable
{
    bool stop[256] = {};

    StopTable()
    {
        for (int c = 0; c < 256; ++c)
            stop[c] = c == 0 || c >= 0x80 || ((c == Stops) || ...);
    }
};

// The first byte in [p, bound) that needs the scan's attention (see
// StopTable); bound when there is none. Eight bytes at a time while none of
// them does, then byte by byte by the state's table. For comments,
// processing instructions and CDATA sections, which are rare; the states
// that most bytes pass through use StopBits.
template <Byte... Stops>
inline const Byte* findSpecial(const Byte* p, const Byte* bound)
{
    static const StopTable<Stops...> table;
    while (bound - p >= 8) {
        const quint64 word = load(p);
        if ((word & ones(0x80)) || hasByte(word, 0) || (hasByte(word, Stops) || ...))
            break;
        p += 8;
    }
    while (p < bound && !table.stop[*p])
        ++p;
    return p;
}

// The bytes of a piece that the scan must look at, found 64 at a time: NUL,
// bytes that are not ASCII, '<', '>', '"' and '\''. Each block of 64 bytes is
// sorted once, into one bit a byte, when the scan first reaches it; the scan
// then goes from one flagged byte to the next by the position of the next set
// bit, whatever its state, however short the runs between them (in
// markup-dense XML they are a few bytes). A state passes over the flagged
// bytes it has no use for ('>' in text, '<' in a tag).
class StopBits
{
public:
    static constexpr quint64 blockBytes = 64;

    StopBits(const Byte* begin, qint64 size)
        : m_begin(begin)
        , m_size(size)
    {}

    // The bits of the block at the offset (a multiple of 64 within the piece).
    quint64 bitsOf(qint64 block)
    {
        if (block != m_block) {
            m_block = block;
            m_bits = sort(m_begin + block, m_size - block);
        }
        return m_bits;
    }

    // The offset of the first flagged byte at or after the offset `from`
    // (at most the size); the size when there is none.
    qint64 next(qint64 from)
    {
        for (;;) {
            const quint64 within = quint64(from - m_block);
            if (within < blockBytes) {
                const quint64 bits = m_bits >> within;
                if (bits)
                    return from + qint64(qCountTrailingZeroBits(bits));
                from = m_block + qint64(blockBytes);
            }
            if (from >= m_size)
                return m_size;
            m_block = from & ~qint64(blockBytes - 1);
            m_bits = sort(m_begin + m_block, m_size - m_block);
        }
    }

private:
    // The bits of the block at `bytes`, of which `left` belong to the piece
    // (those past it are not flagged).
    static quint64 sort(const Byte* bytes, qint64 left)
    {
        Byte tail[blockBytes];
        if (left < qint64(blockBytes)) {
            std::memcpy(tail, bytes, size_t(left));
            std::memset(tail + left, ' ', blockBytes - size_t(left)); // not flagged
            bytes = tail;
        }
        quint64 bits = 0;
#if defined(__SSE2__)
        const __m128i zero = _mm_setzero_si128();
        const __m128i lt = _mm_set1_epi8('<');
        const __m128i gt = _mm_set1_epi8('>');
        const __m128i dq = _mm_set1_epi8('"');
        const __m128i sq = _mm_set1_epi8('\'');
        for (unsigned i = 0; i < blockBytes; i += 16) {
            const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes + i));
            // The high bit is set for a byte that is not ASCII; NUL sets all.
            const __m128i special = _mm_or_si128(v, _mm_cmpeq_epi8(v, zero));
            const __m128i tags = _mm_or_si128(_mm_cmpeq_epi8(v, lt), _mm_cmpeq_epi8(v, gt));
            const __m128i quotes = _mm_or_si128(_mm_cmpeq_epi8(v, dq), _mm_cmpeq_epi8(v, sq));
            const __m128i flagged = _mm_or_si128(special, _mm_or_si128(tags, quotes));
            bits |= quint64(unsigned(_mm_movemask_epi8(flagged))) << i;
        }
#else
        // Eight bytes at a time: the high bit of each flagged byte, gathered
        // into the byte's place in the block's bits.
        for (unsigned i = 0; i < blockBytes; i += 8) {
            const quint64 word = qFromLittleEndian<quint64>(bytes + i);
            const quint64 flagged = (word & ones(0x80)) | equalBytes(word, 0) |
                                    equalBytes(word, '<') | equalBytes(word, '>') |
                                    equalBytes(word, '"') | equalBytes(word, '\'');
            bits |= (((flagged >> 7) * 0x0102040810204080ULL) >> 56) << i;
        }
#endif
        return bits;
    }

    const Byte* const m_begin;
    const qint64 m_size;
    qint64 m_block = -qint64(blockBytes); // the offset of the block sorted last
    quint64 m_bits = 0;
};

bool startsWith(const Byte* p, const Byte* end, const char* text)
{
    const size_t length = std::strlen(text);
    return size_t(end - p) >= length && std::memcmp(p, text, length) == 0;
}

bool isSpace(Byte c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

qint64 countByte(const Byte* p, const Byte* end, Byte c)
{
    qint64 count = 0;
#if defined(__SSE2__)
    // Sixteen counters of a byte each, summed before they can overflow.
    const __m128i zero = _mm_setzero_si128();
    const __m128i needle = _mm_set1_epi8(char(c));
    while (end - p >= 16) {
        __m128i counters = zero;
        for (int round = 0; round < 255 && end - p >= 16; ++round, p += 16) {
            const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
            counters = _mm_sub_epi8(counters, _mm_cmpeq_epi8(bytes, needle));
        }
        const __m128i sums = _mm_sad_epu8(counters, zero);
        count += _mm_cvtsi128_si32(sums) + _mm_extract_epi16(sums, 4);
    }
#endif
    for (; end - p >= 8; p += 8)
        count += flaggedBytes(equalBytes(load(p), c));
    for (; p < end; ++p)
        count += *p == c;
    return count;
}

// Characters in [p, end): every byte but a UTF-8 continuation byte starts one.
qint64 characters(const Byte* p, const Byte* end)
{
    qint64 count = end - p;
    for (; end - p >= 8; p += 8) {
        const quint64 word = load(p);
        count -= flaggedBytes(word & ~(word << 1) & ones(0x80));
    }
    for (; p < end; ++p) {
        if (isContinuation(*p))
            --count;
    }
    return count;
}

const Byte* lastOf(const Byte* p, const Byte* end, Byte c)
{
    while (end > p) {
        if (*--end == c)
            return end;
    }
    return nullptr;
}

// ---- lines and columns ----

// The byte after a stretch: a byte, unknown yet, or the document's end.
enum : int
{
    Unknown = -1,
    DocumentEnd = -2,
};

// The line and column of a place of the document, carried forward over the
// bytes that follow it. Lines end at "\n", "\r\n" or a lone "\r"; columns
// count characters, not bytes. A "\r" just before the place is a line end of
// its own unless a "\n" follows; until the next byte is known it is pending.
struct Position
{
    qint64 line = 1;
    qint64 column = 1;
    bool pendingReturn = false;

    // Moves over [p, end); next is the byte at end (or Unknown, DocumentEnd).
    void advance(const Byte* p, const Byte* end, int next)
    {
        if (pendingReturn) {
            const int after = p < end ? int(*p) : next;
            if (after == Unknown)
                return;
            if (after != '\n')
                newLine();
            pendingReturn = false;
        }
        if (p == end)
            return;
        const Byte* lineStart = nullptr;
        qint64 lines = countByte(p, end, '\n');
        if (lines > 0)
            lineStart = lastOf(p, end, '\n') + 1;
        if (std::memchr(p, '\r', size_t(end - p))) {
            // A "\r" ends a line when no "\n" follows it.
            const Byte* last = end - 1;
            for (const Byte* r = p;
                 (r = static_cast<const Byte*>(std::memchr(r, '\r', size_t(end - r)))) != nullptr;
                 ++r) {
                if (r == last) {
                    if (next == Unknown) {
                        pendingReturn = true; // counted as a character until known
                        break;
                    }
                    if (next == '\n')
                        break;
                } else if (r[1] == '\n') {
                    continue;
                }
                ++lines;
                if (!lineStart || r + 1 > lineStart)
                    lineStart = r + 1;
            }
        }
        if (lines > 0) {
            line += lines;
            column = 1 + characters(lineStart, end);
        } else {
            column += characters(p, end);
        }
    }

    void newLine()
    {
        ++line;
        column = 1;
    }
};

// ---- the scan ----

// Finds, in one pass that may be fed the document in any number of pieces,
// the first way in which a document breaks the limits, holds a DTD, a NUL
// byte or invalid UTF-8, or names an encoding other than UTF-8. It follows
// the markup only as far as the limits need (tags, quoted values, comments,
// CDATA sections, processing instructions); whatever else is wrong is left
// to the XML reader. Where a piece ends before a decision (a UTF-8 sequence,
// the start of a markup, a terminator cut in two), the scan stops before it
// and takes it up again from the next piece, which must repeat those bytes.
class Scanner
{
public:
    enum Outcome
    {
        Suspended, // every byte before resume() is checked; more are needed
        Finished,  // the whole document is checked
        Failed,    // fault() says where and why
    };

    explicit Scanner(const XmlReadLimits& limits)
        : m_limits(limits)
    {}

    // Checks [begin, end), whose first byte is at offset base of the
    // document; final when end is the document's end. The piece must start
    // at or before keepFrom().
    Outcome feed(const Byte* begin, const Byte* end, qint64 base, bool final)
    {
        m_begin = begin;
        m_end = end;
        m_base = base;
        m_final = final;
        if (m_outcome != Suspended)
            return m_outcome;
        if (m_state == Start) {
            const Step step = start();
            if (step != Continue)
                return conclude(step);
        }
        if (m_declaration.open && declaration() == Fail)
            return conclude(Fail);
        if (m_pending.kind != XmlReadError::None) {
            // A fault inside a declaration that names its encoding later:
            // the encoding, as the first thing looked at, goes first.
            if (m_declaration.open)
                return Suspended;
            m_fault = m_pending;
            return conclude(Fail);
        }
        const Step step = scan();
        if (step == Fail && m_declaration.open) {
            m_pending = m_fault;
            m_fault = Fault();
            return Suspended;
        }
        return conclude(step);
    }

    // The offset up to which the bytes are checked.
    qint64 resume() const { return m_pending.kind == XmlReadError::None ? m_resume : m_handedOn; }
    // The first byte the next piece must hold again.
    qint64 keepFrom() const
    {
        const qint64 main = m_pending.kind == XmlReadError::None ? m_resume : m_declaration.at;
        return m_declaration.open ? std::min(main, m_declaration.at) : main;
    }
    // Notes how far the checked bytes were handed on, so that none are
    // handed on while a fault waits on the declaration.
    void handedOn(qint64 offset) { m_handedOn = offset; }

    const Fault& fault() const { return m_fault; }
    Outcome outcome() const { return m_outcome; }

    // Every place that a later fault may name and that may lie before the
    // next piece.
    template <class F>
    void forEachMark(F f)
    {
        f(m_run);
        if (m_state == Tag && m_summaryOf == m_run.offset) {
            f(m_afterSpace);
            f(m_nameStart);
        }
        if (m_declaration.open || m_pending.kind != XmlReadError::None)
            f(m_declaration.valueStart);
        f(m_pending.at);
    }

private:
    enum State
    {
        Start,       // before the first byte: byte order mark and declaration
        Text,        // character data up to the next '<'
        Markup,      // on a '<'
        Tag,         // in a start or end tag, outside quotes
        DQuoted,     // in "..." of a tag
        SQuoted,     // in '...'
        Instruction, // <?...?>
        Comment,     // <!--...-->
        CData,       // <![CDATA[...]]>
        Done,
    };

    enum Step
    {
        Continue,
        Suspend,
        Finish,
        Fail,
    };

    Outcome conclude(Step step)
    {
        switch (step) {
        case Fail:
            m_outcome = Failed;
            break;
        case Finish:
            m_state = Done;
            m_resume = offset(m_end);
            m_outcome = Finished;
            break;
        default:
            break;
        }
        return m_outcome;
    }

    qint64 offset(const Byte* p) const { return m_base + (p - m_begin); }
    const Byte* pointer(qint64 offset) const { return m_begin + (offset - m_base); }

    // Where a run that started at start must end at the latest in this
    // piece: one byte past the longest run allowed, so that reaching it means
    // the run is too long, or the piece's end.
    const Byte* runBound(qint64 start) const
    {
        const qint64 left = offset(m_end) - start;
        return m_limits.maxValueLength < left ? pointer(start + m_limits.maxValueLength + 1)
                                              : m_end;
    }

    Step failAt(XmlReadError::Kind kind, const Mark& at, const QString& message)
    {
        m_fault.kind = kind;
        m_fault.at = at;
        m_fault.message = message;
        return Fail;
    }

    Step failAt(XmlReadError::Kind kind, const Byte* at, const QString& message)
    {
        return failAt(kind, Mark{offset(at)}, message);
    }

    Step limitFault(XmlReadError::Kind kind, const Mark& at, const QString& limit,
                    const QString& message)
    {
        m_fault.limit = limit;
        return failAt(kind, at, QStringLiteral("%1 (limit %2)").arg(message, limit));
    }

    // A byte that the tables flag in every state: NUL or the lead of a UTF-8
    // sequence. Steps over a valid sequence.
    Step checkByte()
    {
        if (*m_p == 0)
            return failAt(XmlReadError::Encoding, m_p,
                          QStringLiteral("a NUL byte is not accepted"));
        if (!m_final && m_end - m_p < utf8Needs(*m_p))
            return Suspend;
        const int length = utf8Length(m_p, m_end);
        if (length == 0)
            return failAt(XmlReadError::Encoding, m_p, QStringLiteral("invalid UTF-8"));
        m_p += length;
        return Continue;
    }

    // The start: a byte order mark of UTF-16 or UTF-32 is refused, and an
    // XML declaration has its encoding looked at.
    Step start()
    {
        if (!m_final && m_end - m_begin < 9)
            return Suspend;
        const Byte* p = m_begin;
        if (startsWith(p, m_end, "\xEF\xBB\xBF")) {
            p += 3;
        } else if (startsWith(p, m_end, "\xFE\xFF") || startsWith(p, m_end, "\xFF\xFE")) {
            return failAt(XmlReadError::Encoding, p,
                          QStringLiteral("a UTF-16 or UTF-32 byte order mark is not accepted "
                                         "(documents must be UTF-8)"));
        }
        if (startsWith(p, m_end, "<?xml") && m_end - p >= 6 && isSpace(p[5])) {
            m_declaration.open = true;
            m_declaration.at = offset(p + 5);
            // The declaration ends at the first "?>", at the latest where
            // the instruction would grow too long.
            const qint64 content = offset(p + 2);
            m_declaration.bound =
                m_limits.maxValueLength < std::numeric_limits<qint64>::max() - content - 1
                    ? content + m_limits.maxValueLength + 1
                    : std::numeric_limits<qint64>::max();
        }
        m_state = Text;
        m_run = Mark{offset(p)};
        m_resume = offset(p);
        return Continue;
    }

    // A declaration naming an encoding other than UTF-8 is refused: the scan
    // only understands UTF-8. Looks for encoding="..." up to the end of the
    // declaration, one byte at a time (a declaration is short).
    Step declaration()
    {
        Declaration& d = m_declaration;
        const qint64 end = offset(m_end);
        for (;; ++d.at) {
            bool close = d.at >= d.bound || (d.at == end && m_final);
            if (!close) {
                if (d.at == end)
                    return Suspend;
                const Byte c = *pointer(d.at);
                if (c == '?' && d.at + 1 < d.bound) {
                    if (d.at + 1 < end)
                        close = *pointer(d.at + 1) == '>';
                    else if (!m_final)
                        return Suspend;
                }
                if (!close && !d.step(c))
                    return Continue; // decided: no encoding, or a fault to report
            }
            if (close || d.decided) {
                d.open = false;
                if (d.phase != Declaration::Value)
                    return Continue;
                if (d.name.size() == d.nameLength &&
                    d.name.compare("UTF-8", Qt::CaseInsensitive) == 0)
                    return Continue;
                return failAt(
                    XmlReadError::Encoding, d.valueStart,
                    QStringLiteral("the encoding \"%1\" is not accepted (documents must be UTF-8)")
                        .arg(QString::fromLatin1(d.name)));
            }
        }
    }

    // The scan proper, from resume() on: text and markup in turn, as one loop
    // that keeps its position, the depth and the tag at hand in registers and
    // goes from one flagged byte (StopBits) to the next. The state is written
    // down only where a piece ends inside a construct (which the next piece
    // takes up first) or a fault ends the scan. Offsets are counted from the
    // piece's start; a run that began in an earlier piece starts before 0.
    Step scan()
    {
        const Byte* const begin = m_begin;
        const qint64 size = m_end - m_begin;
        const qint64 base = m_base;
        const qint64 longest = m_limits.maxValueLength;
        const bool final = m_final;
        StopBits stops(begin, size);
        qint64 from = m_resume - base;    // where the search goes on
        qint64 run = m_run.offset - base; // where the text, stretch or value at hand started
        int depth = m_depth;
        bool isStart = m_isStart;
        int attributes = m_attributes;
        State state = m_state;
        qint64 at = from; // the flagged byte at hand
        Byte c = 0;

        const auto leave = [&](qint64 offset) {
            m_p = begin + offset;
            m_depth = depth;
            m_isStart = isStart;
            m_attributes = attributes;
        };
        // The piece ends inside the construct at hand, at the offset.
        const auto suspendAt = [&](qint64 offset) {
            leave(offset);
            return state == Tag ? suspendTag(base + run) : suspend(state, base + run);
        };

        switch (state) {
        case Text:
        case Tag:
        case DQuoted:
        case SQuoted:
            break;
        case Markup:
            state = Text;
            goto markup;
        case Instruction:
        case Comment:
        case CData:
            goto special;
        case Start:
        case Done:
            return Finish;
        }

        for (;;) {
            // Whole blocks at a time, while nothing in them can break a limit
            // or need more than the bytes at hand: every run in the block
            // stays within the longest allowed, and the bytes after any '<'
            // that the markup looks at lie in the piece. The flagged bytes
            // are taken one by one off the block's bits, by a loop for each
            // state. Anything else (a byte that is not ASCII, a comment, a
            // limit reached) is left to the byte-exact steps below, from the
            // byte on which it shows.
            {
                const qint64 block = from & ~qint64(StopBits::blockBytes - 1);
                const qint64 blockEnd = block + qint64(StopBits::blockBytes);
                if (blockEnd > size - 8 || blockEnd - run > longest)
                    goto search;
                quint64 bits = stops.bitsOf(block) & (~quint64(0) << (from - block));
                switch (state) {
                case Text:
                    goto text;
                case Tag:
                    goto tag;
                case DQuoted:
                    goto doubleQuoted;
                case SQuoted:
                    goto singleQuoted;
                default:
                    goto search;
                }
            text:
                while (bits) {
                    at = block + qint64(qCountTrailingZeroBits(bits));
                    bits &= bits - 1;
                    c = begin[at];
                    if (c == '<') {
                        c = begin[at + 1];
                        if (c == '/') {
                            run = at + 2;
                            isStart = false;
                            goto tag;
                        }
                        if (c == '!' || c == '?' || depth >= m_limits.maxDepth) {
                            state = Text;
                            goto exact;
                        }
                        ++depth;
                        run = at + 1;
                        isStart = true;
                        attributes = 0;
                        goto tag;
                    }
                    if (c == 0 || c >= 0x80) {
                        state = Text;
                        goto exact;
                    }
                }
                state = Text;
                from = blockEnd;
                continue;
            tag:
                while (bits) {
                    at = block + qint64(qCountTrailingZeroBits(bits));
                    bits &= bits - 1;
                    c = begin[at];
                    if (c == '>') {
                        if (!isStart) {
                            if (depth > 0)
                                --depth;
                        } else if ((at > 0 ? begin[at - 1] : m_before) == '/') {
                            --depth; // an empty-element tag
                        }
                        run = at + 1;
                        goto text;
                    }
                    if (c == '"' || c == '\'') {
                        if (isStart && attributes >= m_limits.maxAttributes) {
                            state = Tag;
                            goto exact;
                        }
                        attributes += isStart;
                        run = at + 1;
                        if (c == '"')
                            goto doubleQuoted;
                        goto singleQuoted;
                    }
                    if (c != '<') {
                        state = Tag;
                        goto exact;
                    }
                }
                state = Tag;
                from = blockEnd;
                continue;
            doubleQuoted:
                while (bits) {
                    at = block + qint64(qCountTrailingZeroBits(bits));
                    bits &= bits - 1;
                    c = begin[at];
                    if (c == '"') {
                        run = at + 1;
                        goto tag;
                    }
                    if (c == 0 || c >= 0x80) {
                        state = DQuoted;
                        goto exact;
                    }
                }
                state = DQuoted;
                from = blockEnd;
                continue;
            singleQuoted:
                while (bits) {
                    at = block + qint64(qCountTrailingZeroBits(bits));
                    bits &= bits - 1;
                    c = begin[at];
                    if (c == '\'') {
                        run = at + 1;
                        goto tag;
                    }
                    if (c == 0 || c >= 0x80) {
                        state = SQuoted;
                        goto exact;
                    }
                }
                state = SQuoted;
                from = blockEnd;
                continue;
            }
        exact:
            from = at;
        search:
            at = stops.next(from);
            // A text, stretch of a tag or value reaches one byte past the
            // longest allowed before anything ends it.
            if (at - run > longest)
                return valueTooLong(base + run);
            if (at == size) {
                if (final)
                    return Finish; // the document ends inside: the reader reports it
                return suspendAt(at);
            }
            c = begin[at];
            if (c == 0 || c >= 0x80) {
                const Byte* p = begin + at;
                const Step step = utf8At(p);
                if (step == Suspend)
                    return suspendAt(at);
                if (step != Continue)
                    return step;
                from = p - begin;
                continue;
            }
            switch (state) {
            case Text:
                if (c == '<')
                    goto markup;
                break;
            case Tag:
                if (c == '>') {
                    const Byte before = at > 0 ? begin[at - 1] : m_before;
                    if (!isStart) {
                        if (depth > 0)
                            --depth;
                    } else if (before == '/') {
                        --depth; // an empty-element tag
                    }
                    from = run = at + 1;
                    state = Text;
                    continue;
                }
                if (c == '"' || c == '\'') {
                    if (isStart && ++attributes > m_limits.maxAttributes) {
                        leave(at);
                        return limitFault(XmlReadError::AttributesLimit, attributeStart(base + run),
                                          QStringLiteral("maxAttributes"),
                                          QStringLiteral("more than %1 attributes in one start tag")
                                              .arg(m_limits.maxAttributes));
                    }
                    from = run = at + 1;
                    state = c == '"' ? DQuoted : SQuoted;
                    continue;
                }
                break;
            case DQuoted:
            case SQuoted:
                if (c == (state == DQuoted ? '"' : '\'')) {
                    from = run = at + 1;
                    state = Tag;
                    continue;
                }
                break;
            default:
                break;
            }
            from = at + 1; // a byte this state has no use for
            continue;

        markup:                            // at stands on '<', in text
            if (!final && size - at < 9) { // "<![CDATA[" and "<!DOCTYPE" are the longest
                leave(at);
                return suspend(Markup, base + at);
            }
            c = at + 1 < size ? begin[at + 1] : 0;
            if (c == '/') {
                from = run = at + 2;
                isStart = false;
                state = Tag;
                continue;
            }
            if (c == '?') {
                from = run = at + 2;
                m_state = Instruction;
                goto special;
            }
            if (c == '!') {
                const Byte* p = begin + at;
                if (startsWith(p, m_end, "<!--")) {
                    from = at + 4;
                    m_state = Comment;
                } else if (startsWith(p, m_end, "<![CDATA[")) {
                    from = at + 9;
                    m_state = CData;
                } else if (startsWith(p, m_end, "<!DOCTYPE")) {
                    return failAt(XmlReadError::Dtd, p,
                                  QStringLiteral("a document type declaration is not accepted"));
                } else {
                    // Not markup the reader accepts: it stops here.
                    from = run = at + 1;
                    continue;
                }
                run = from;
                goto special;
            }
            if (++depth > m_limits.maxDepth) {
                return limitFault(
                    XmlReadError::DepthLimit, Mark{base + at}, QStringLiteral("maxDepth"),
                    QStringLiteral("elements nested deeper than %1 levels").arg(m_limits.maxDepth));
            }
            from = run = at + 1;
            isStart = true;
            attributes = 0;
            state = Tag;
            continue;

        special : // a processing instruction, comment or CDATA section from run
        {
            leave(from);
            Step step;
            switch (m_state) {
            case Instruction:
                step = until<'?', '>'>(Instruction, base + run);
                break;
            case Comment:
                step = until<'-', '-', '>'>(Comment, base + run);
                break;
            default:
                step = until<']', ']', '>'>(CData, base + run);
                break;
            }
            if (step != Continue)
                return step;
            from = run = m_p - begin;
            state = Text;
        }
        }
    }

    // The byte at p needs a look (NUL, or not ASCII): steps over a valid UTF-8
    // sequence; Suspend when the piece ends inside one.
    Step utf8At(const Byte*& p)
    {
        if (*p == 0)
            return failAt(XmlReadError::Encoding, p, QStringLiteral("a NUL byte is not accepted"));
        if (!m_final && m_end - p < utf8Needs(*p))
            return Suspend;
        const int length = utf8Length(p, m_end);
        if (length == 0)
            return failAt(XmlReadError::Encoding, p, QStringLiteral("invalid UTF-8"));
        p += length;
        return Continue;
    }

    // Writes down where the piece ended inside a construct that started at
    // start, so that the next piece takes it up there.
    Step suspend(State state, qint64 start)
    {
        m_state = state;
        if (m_run.offset != start || !m_run.located())
            m_run = Mark{start};
        if (m_p > m_begin)
            m_before = m_p[-1];
        m_resume = offset(m_p);
        return Suspend;
    }

    // What a fault found at the offset is located by: a place written down
    // (and perhaps located) when an earlier piece ended, or the offset.
    Mark markAt(qint64 at) const
    {
        for (const Mark* mark : {&m_run, &m_afterSpace, &m_nameStart}) {
            if (mark->offset == at && mark->located())
                return *mark;
        }
        return Mark{at};
    }

    Step valueTooLong(qint64 start)
    {
        return limitFault(XmlReadError::ValueLengthLimit, markAt(start),
                          QStringLiteral("maxValueLength"),
                          QStringLiteral("a text, value, name or comment longer than %1 bytes")
                              .arg(m_limits.maxValueLength));
    }

    // A piece ends inside the unquoted stretch of a tag: besides the state,
    // sums up the part of the stretch in this piece for attributeStart():
    // where the name of its last non-blank starts, and where the stretch goes
    // on after its last blank.
    Step suspendTag(qint64 segment)
    {
        if (m_summaryOf != segment) {
            m_summaryOf = segment;
            m_tagPiece = segment;
            m_afterSpace = Mark{segment};
            m_hasName = false;
        }
        const Byte* floor = pointer(m_tagPiece);
        const Byte* top = m_p;
        const Byte* q = top;
        while (q > floor && (isSpace(q[-1]) || q[-1] == '='))
            --q;
        if (q > floor) {
            while (q > floor && !isSpace(q[-1]))
                --q;
            m_nameStart = q > floor ? Mark{offset(q)} : m_afterSpace;
            m_hasName = true;
        }
        for (q = top; q > floor; --q) {
            if (isSpace(q[-1])) {
                m_afterSpace = Mark{offset(q)};
                break;
            }
        }
        m_tagPiece = offset(top);
        return suspend(Tag, segment);
    }

    // The name of the attribute whose value opens at m_p: back over '=',
    // blanks and the name, not before the start of the unquoted stretch.
    // The part of the stretch in earlier pieces is summed up by suspendTag().
    Mark attributeStart(qint64 segment) const
    {
        const bool summed = m_summaryOf == segment;
        const Byte* floor = pointer(summed ? m_tagPiece : segment);
        const Byte* q = m_p;
        while (q > floor && (isSpace(q[-1]) || q[-1] == '='))
            --q;
        if (q == floor)
            return summed && m_hasName ? m_nameStart : markAt(segment);
        while (q > floor && !isSpace(q[-1]))
            --q;
        if (q == floor)
            return summed ? m_afterSpace : markAt(segment);
        return Mark{offset(q)};
    }

    // A comment, processing instruction or CDATA section whose content
    // starts at start, up to its terminator.
    template <Byte first, Byte... rest>
    Step until(State state, qint64 start)
    {
        static const Byte terminator[] = {first, rest...};
        const Byte* bound = runBound(start);
        while (m_p < bound) {
            m_p = findSpecial<first>(m_p, bound);
            if (m_p == bound)
                break;
            const Byte c = *m_p;
            if (c == first) {
                if (size_t(m_end - m_p) >= sizeof terminator) {
                    if (std::memcmp(m_p, terminator, sizeof terminator) == 0) {
                        m_p += sizeof terminator;
                        return Continue;
                    }
                } else if (!m_final) {
                    return suspend(state, start);
                }
            }
            if (c == 0 || c >= 0x80) {
                const Step step = checkByte();
                if (step == Suspend)
                    return suspend(state, start);
                if (step != Continue)
                    return step;
            } else {
                ++m_p;
            }
        }
        if (offset(m_p) - start > m_limits.maxValueLength)
            return valueTooLong(start);
        if (m_final)
            return Finish; // the document ends inside: the reader reports it
        return suspend(state, start);
    }

    // The XML declaration, looked at for encoding="..." up to its end.
    struct Declaration
    {
        enum Phase
        {
            Key,    // looking for "encoding"
            Equals, // blanks, then '='
            Quote,  // blanks, then the opening quote
            Value,  // the name, up to the closing quote
        };

        bool open = false;
        bool decided = false;
        qint64 at = 0;    // the next byte to look at
        qint64 bound = 0; // the declaration ends here at the latest
        Phase phase = Key;
        int matched = 0; // bytes of "encoding" matched
        Byte quote = 0;
        Mark valueStart;
        QByteArray name; // its first 64 bytes
        qint64 nameLength = 0;

        // Takes the byte at `at`, which is not the declaration's end; false
        // when the declaration names no encoding after all.
        bool step(Byte c)
        {
            static const char key[] = "encoding";
            switch (phase) {
            case Key:
                matched = c == Byte(key[matched]) ? matched + 1 : c == 'e' ? 1 : 0;
                if (matched == 8)
                    phase = Equals;
                return true;
            case Equals:
                if (c == '=')
                    phase = Quote;
                return isSpace(c) || c == '=' ? true : fallThrough();
            case Quote:
                if (c == '"' || c == '\'') {
                    quote = c;
                    valueStart = Mark{at + 1};
                    phase = Value;
                    return true;
                }
                return isSpace(c) ? true : fallThrough();
            case Value:
                if (c == quote) {
                    decided = true;
                    return true;
                }
                if (name.size() < 64)
                    name.append(char(c));
                ++nameLength;
                return true;
            }
            return true;
        }

        bool fallThrough()
        {
            open = false;
            return false;
        }
    };

    const XmlReadLimits& m_limits;

    // The piece at hand.
    const Byte* m_begin = nullptr;
    const Byte* m_end = nullptr;
    qint64 m_base = 0;
    bool m_final = false;
    const Byte* m_p = nullptr;

    Outcome m_outcome = Suspended;
    State m_state = Start;
    qint64 m_resume = 0;
    qint64 m_handedOn = 0;
    Mark m_run; // where the text, value, name or comment at hand started
    int m_depth = 0;
    Byte m_before = 0; // the byte before the piece
    // The tag at hand.
    bool m_isStart = false;
    int m_attributes = 0;
    // The unquoted stretch of a tag that a piece ended in, summed up.
    qint64 m_summaryOf = -1; // where it starts
    qint64 m_tagPiece = 0;   // where its part in the piece at hand starts
    bool m_hasName = false;
    Mark m_nameStart;
    Mark m_afterSpace;

    Declaration m_declaration;
    Fault m_pending; // found inside a declaration still being looked at
    Fault m_fault;
};

} // namespace

// ---- the device ----

struct XmlScanDevice::Private
{
    Private(const XmlReadLimits& limitsGiven, qint64 block)
        : limits(limitsGiven)
        , blockSize(std::max<qint64>(block, 1))
        , scanner(limits)
    {}

    XmlReadLimits limits;
    qint64 blockSize;
    Scanner scanner;
    XmlReadError fault;

    // The source: an array, or a device read into the buffer.
    QByteArray array;
    QIODevice* source = nullptr;
    std::vector<Byte> buffer;
    qint64 bufferOffset = 0; // the offset of buffer[0]
    qint64 buffered = 0;     // bytes in the buffer
    bool sourceEnded = false;
    qint64 taken = 0;
    qint64 largestHeld = 0;

    // The piece last scanned, and what of it is handed on.
    qint64 pieceStart = 0;
    qint64 pieceEnd = 0;
    qint64 handedOn = 0; // bytes before this offset went to Qt
    qint64 checked = 0;  // bytes before this offset may go to Qt
    bool stopped = false;

    // Lines and columns: the position of pieceStart for a device; for an
    // array, counted from the start when needed.
    Position position;
    Position endPosition; // the document's end, once asked for
    bool endLocated = false;

    const Byte* bytes(qint64 offset) const
    {
        if (source)
            return buffer.data() + (offset - bufferOffset);
        return reinterpret_cast<const Byte*>(array.constData()) + offset;
    }

    qint64 documentEnd() const { return source ? bufferOffset + buffered : array.size(); }

    // The byte at the offset, Unknown past what is at hand, DocumentEnd at
    // the document's end.
    int byteAt(qint64 offset) const
    {
        if (offset < documentEnd())
            return *bytes(offset);
        return sourceEnded || !source ? DocumentEnd : Unknown;
    }

    // The position of an offset at or after pieceStart (any offset for an
    // array).
    Position locate(qint64 offset) const
    {
        Position at = source ? position : Position();
        const qint64 from = source ? pieceStart : 0;
        at.advance(bytes(from), bytes(offset), byteAt(offset));
        return at;
    }

    void setFault(const Fault& found)
    {
        fault.kind = found.kind;
        fault.limit = found.limit;
        fault.message = found.message;
        if (found.at.located()) {
            fault.line = found.at.line;
            fault.column = found.at.column;
        } else {
            const Position at = locate(found.at.offset);
            fault.line = at.line;
            fault.column = at.column;
        }
        stopped = true;
    }

    void setSizeFault()
    {
        fault.kind = XmlReadError::SizeLimit;
        fault.limit = QStringLiteral("maxBytes");
        fault.message = QStringLiteral("the document is larger than %1 bytes (limit %2)")
                            .arg(limits.maxBytes)
                            .arg(fault.limit);
        fault.line = 1;
        fault.column = 1;
        stopped = true;
    }

    // Locates the marks that lie before `keep`, then carries the position
    // of the piece's start forward to `keep`, in one pass.
    void letGo(qint64 keep)
    {
        std::vector<Mark*> marks;
        scanner.forEachMark([&](Mark& mark) {
            if (!mark.located() && mark.offset >= pieceStart && mark.offset < keep)
                marks.push_back(&mark);
        });
        std::sort(marks.begin(), marks.end(),
                  [](const Mark* a, const Mark* b) { return a->offset < b->offset; });
        qint64 at = pieceStart;
        for (Mark* mark : marks) {
            position.advance(bytes(at), bytes(mark->offset), byteAt(mark->offset));
            at = mark->offset;
            mark->line = position.line;
            mark->column = position.column;
        }
        position.advance(bytes(at), bytes(keep), byteAt(keep));
        pieceStart = keep;
    }

    // Reads from the source until the buffer holds blockSize bytes past
    // `keep`, or the source ends. False when it cannot be read.
    bool fill(qint64 keep)
    {
        const qint64 kept = bufferOffset + buffered - keep;
        if (kept > 0)
            std::memmove(buffer.data(), bytes(keep), size_t(kept));
        bufferOffset = keep;
        buffered = kept;
        const qint64 wanted = kept + blockSize;
        if (qint64(buffer.size()) < wanted)
            buffer.resize(size_t(wanted));
        largestHeld = std::max<qint64>(largestHeld, qint64(buffer.size()));
        // One byte past the limit, so that the scan learns the document is over.
        const qint64 most = limits.maxBytes < std::numeric_limits<qint64>::max()
                                ? limits.maxBytes + 1
                                : limits.maxBytes;
        while (buffered < wanted && taken < most) {
            const qint64 room = std::min(wanted - buffered, most - taken);
            const qint64 got =
                source->read(reinterpret_cast<char*>(buffer.data()) + buffered, room);
            if (got < 0) {
                fault.kind = XmlReadError::Device;
                fault.message = QStringLiteral("cannot read: %1").arg(source->errorString());
                stopped = true;
                return false;
            }
            if (got == 0 && !source->waitForReadyRead(30000)) {
                sourceEnded = true;
                break;
            }
            buffered += got;
            taken += got;
        }
        return true;
    }

    // Checks the next piece. Called when everything checked went to Qt.
    void next()
    {
        if (stopped)
            return;
        const qint64 keep = scanner.keepFrom();
        qint64 end;
        bool final;
        bool oversize = false;
        if (source) {
            letGo(keep);
            if (!fill(keep))
                return;
            end = bufferOffset + buffered;
            oversize = end > limits.maxBytes;
            if (oversize)
                end = limits.maxBytes; // the byte past the limit is not the document's
            final = sourceEnded && !oversize;
        } else {
            // Each piece reaches a block further, so that a check that
            // needs the bytes after a piece gets them.
            const qint64 from = std::max(keep, pieceEnd);
            end = from + std::min<qint64>(blockSize, array.size() - from);
            final = end == array.size();
        }
        pieceStart = source ? pieceStart : keep;
        pieceEnd = end;
        const Scanner::Outcome outcome = scanner.feed(bytes(keep), bytes(end), keep, final);
        if (outcome == Scanner::Failed) {
            setFault(scanner.fault());
            return;
        }
        checked = scanner.resume();
        if (outcome == Scanner::Finished) {
            stopped = true; // nothing more to check; what is checked still goes to Qt
        } else if (oversize) {
            setSizeFault();
        }
    }
};

XmlScanDevice::XmlScanDevice(const QByteArray& document, const XmlReadLimits& limits,
                             qint64 blockSize)
    : m(new Private(limits, blockSize))
{
    m->array = document;
    m->taken = document.size();
    if (document.size() > limits.maxBytes)
        m->setSizeFault();
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

XmlScanDevice::XmlScanDevice(QIODevice* source, const XmlReadLimits& limits, qint64 blockSize)
    : m(new Private(limits, blockSize))
{
    m->source = source;
    if (!source->isSequential() && source->size() - source->pos() > limits.maxBytes)
        m->setSizeFault(); // refused from its size alone, without reading it
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

XmlScanDevice::~XmlScanDevice() = default;

// Qt asks whether the device is at its end when it met the end of what it
// was given: a reader whose document ended too early tries again otherwise.
bool XmlScanDevice::atEnd() const
{
    return !m->fault.isNull() || (m->stopped && m->handedOn == m->checked);
}

qint64 XmlScanDevice::bytesAvailable() const
{
    return (m->fault.isNull() ? m->checked - m->handedOn : 0) + QIODevice::bytesAvailable();
}

const XmlReadError& XmlScanDevice::fault() const
{
    return m->fault;
}

void XmlScanDevice::scanToEnd()
{
    while (!m->stopped) {
        m->handedOn = m->checked; // let go of what is checked, without handing it on
        m->scanner.handedOn(m->handedOn);
        m->next();
    }
}

bool XmlScanDevice::finished() const
{
    return m->fault.isNull() && m->scanner.outcome() == Scanner::Finished;
}

// The end is located when first asked for: the last piece is still at hand.
qint64 XmlScanDevice::endLine() const
{
    if (!finished())
        return 0;
    if (!m->endLocated) {
        m->endPosition = m->locate(m->documentEnd());
        m->endLocated = true;
    }
    return m->endPosition.line;
}

qint64 XmlScanDevice::endColumn() const
{
    return endLine() > 0 ? m->endPosition.column : 0;
}

qint64 XmlScanDevice::taken() const
{
    return m->taken;
}

qint64 XmlScanDevice::largestHeld() const
{
    return m->largestHeld;
}

qint64 XmlScanDevice::readData(char* data, qint64 maxSize)
{
    qint64 copied = 0;
    while (copied < maxSize && m->fault.isNull()) {
        if (m->handedOn == m->checked) {
            if (m->stopped)
                break;
            m->next();
            continue;
        }
        const qint64 count = std::min(maxSize - copied, m->checked - m->handedOn);
        std::memcpy(data + copied, m->bytes(m->handedOn), size_t(count));
        m->handedOn += count;
        m->scanner.handedOn(m->handedOn);
        copied += count;
    }
    return copied;
}

qint64 XmlScanDevice::writeData(const char*, qint64)
{
    return -1;
}

} // namespace KelXml
