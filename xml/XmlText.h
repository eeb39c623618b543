#pragma once

#include "KelXmlGlobal.h"

#include <QString>
#include <QStringView>

#include <atomic>
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

} // namespace KelXml
