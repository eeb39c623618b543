#pragma once

#include "KelXmlGlobal.h"

#include <QString>
#include <QStringView>

#include <atomic>
#include <cstring>
#include <utility>

namespace KelXml {

/// A short text that many elements hold alike, such as a version or a unit
/// word, in one pointer. Texts seen often ("1.0", "MHz") point to one shared
/// copy for the whole program; any other text is an ordinary string of its
/// own. It reads as a `const QString&` wherever one is expected, and a null
/// string stays null.
/// \ingroup framework
class KELXML_EXPORT XmlText
{
public:
    /// A null text.
    XmlText() noexcept;
    /// The text; shares the program's copy when it has one.
    XmlText(const QString& text); // NOLINT(google-explicit-constructor): a QString stand-in
    XmlText(const XmlText& other) noexcept
        : m_node(other.m_node)
    {
        retain();
    }
    XmlText(XmlText&& other) noexcept;
    XmlText& operator=(const XmlText& other) noexcept
    {
        if (m_node != other.m_node) {
            XmlText copy(other);
            std::swap(m_node, copy.m_node);
        }
        return *this;
    }
    XmlText& operator=(XmlText&& other) noexcept;
    XmlText& operator=(const QString& text);
    ~XmlText() { release(); }

    /// Sets the text from characters read; a short text shares the program's
    /// copy when it has one, or becomes it while there is room.
    void assign(QStringView text);

    /// Makes the text null.
    void clear() noexcept;
    bool isEmpty() const noexcept { return toString().isEmpty(); }
    const QString& toString() const noexcept { return m_node->text; }
    operator const QString&() const noexcept { return toString(); } // NOLINT: a QString stand-in

private:
    struct Node
    {
        std::atomic<int> refs; // negative: the program's shared copy, never freed
        QString text;
    };
    static Node* nodeFor(QStringView text, const QString* whole);
    // Shared texts are never counted; the counting of the others stays out of line.
    void retain() noexcept
    {
        if (m_node->refs.load(std::memory_order_relaxed) >= 0)
            m_node->refs.fetch_add(1, std::memory_order_relaxed);
    }
    void release() noexcept
    {
        if (m_node->refs.load(std::memory_order_relaxed) >= 0)
            drop();
    }
    void drop() noexcept;

    Node* m_node; // never null
};

namespace XmlKit {

// Equal names, compared in place (the loop's test of a tag against a table),
// four characters at a time.
inline bool sameName(QStringView a, QStringView b)
{
    if (a.size() != b.size())
        return false;
    const char* p = reinterpret_cast<const char*>(a.data());
    const char* q = reinterpret_cast<const char*>(b.data());
    size_t bytes = size_t(a.size()) * sizeof(QChar);
    for (; bytes >= 8; bytes -= 8, p += 8, q += 8) {
        quint64 x, y;
        std::memcpy(&x, p, 8);
        std::memcpy(&y, q, 8);
        if (x != y)
            return false;
    }
    for (; bytes > 0; bytes -= 2, p += 2, q += 2) {
        quint16 x, y;
        std::memcpy(&x, p, 2);
        std::memcpy(&y, q, 2);
        if (x != y)
            return false;
    }
    return true;
}

// Equal texts, compared in place: quick for the short words (versions,
// units) that every element checks, and at once when both share one string.
inline bool sameText(const QString& a, const QString& b)
{
    if (a.constData() == b.constData())
        return a.size() == b.size();
    return sameName(a, b);
}

} // namespace XmlKit

} // namespace KelXml
