#pragma once

#include "KelXmlGlobal.h"

#include <QString>
#include <QStringView>

#include <atomic>

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
    XmlText(const XmlText& other) noexcept;
    XmlText(XmlText&& other) noexcept;
    XmlText& operator=(const XmlText& other) noexcept;
    XmlText& operator=(XmlText&& other) noexcept;
    XmlText& operator=(const QString& text);
    ~XmlText();

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
    void release() noexcept;

    Node* m_node; // never null
};

} // namespace KelXml
