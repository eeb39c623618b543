#pragma once

// The reading kit that the element classes share: the token loop with its
// standard messages, and start-tag and attribute handling. Internal to the
// library and not installed; its symbols are exported for the library's
// tests.

#include "XmlElementBase.h"
#include "XmlEnumTexts.h"
#include "XmlKit.h"

#include <QString>
#include <QXmlStreamReader>

#include <optional>
#include <type_traits>

namespace KelXml {

class XmlPositionRecorder;

// Reads one element for an element object: raises its located errors and runs
// the token loop that every class shares.
class KELXML_EXPORT XmlElementReader
{
public:
    // How a class words a start or end tag that it refuses.
    enum Wording
    {
        // "Unexpected token \"StartElement\"", "Unexpected token \"EndElement\""
        TextWording,
        // "Unexpected element \"<tag>\"", "Unexpected token \"EndElement\""
        ElementWording,
        // "Unexpected token \"StartElement\": <tag>", "Unexpected token \"EndElement\": <tag>"
        NamedWording,
    };

    // What a class does with the tokens of its element, as a type whose
    // members loop() calls directly. A class derives from Tokens and hides
    // the members it needs; the others keep these defaults: every start tag
    // is refused, the own end tag ends the element, foreign end tags are
    // refused and character data is ignored. Names and texts view the
    // reader's buffer: valid until the next token is read.
    struct Tokens
    {
        // A start tag inside the element; true when it was taken.
        bool start(QStringView /*name*/) { return false; }
        // The element's own end tag; true when the element may end here.
        bool mayEnd() { return true; }
        // An end tag of another name; true when it passes silently.
        bool passEnd(QStringView /*name*/) { return false; }
        // Character data, whitespace included.
        void text(QStringView /*text*/) {}
    };

    // The element name is referred to, not copied: construct the reader from
    // the name processXml() was given.
    XmlElementReader(XmlElementBase& element, QXmlStreamReader& reader, const QString& elementName,
                     Wording wording)
        : m_element(element)
        , m_reader(reader)
        , m_elementName(elementName)
        , m_wording(wording)
        , m_recorder(reader.entityResolver() ? recorderOf(element, reader, elementName) : nullptr)
    {}
    ~XmlElementReader()
    {
        if (m_recorder)
            recorded();
    }
    XmlElementReader(const XmlElementReader&) = delete;
    XmlElementReader& operator=(const XmlElementReader&) = delete;

    QXmlStreamReader& reader() const { return m_reader; }
    const QString& elementName() const { return m_elementName; }
    bool failed() const { return m_reader.hasError(); }

    // Raises a located error for the element, unless the reader already
    // carries one: the first error is the one reported.
    void fail(const QString& message);

    // True when the current token is a start tag; otherwise raises
    // "Parse error (wrong position)".
    bool atStartTag();
    // The common opening: the version becomes "1.0", the position is checked
    // and a non-empty version attribute is taken. False after an error.
    bool begin(XmlText& version);
    // The same, and a required attribute taken in the same pass over the
    // start tag's attributes (see readRequired()). False after an error.
    bool begin(XmlText& version, const QString& required, XmlText& value);
    // Takes a non-empty version attribute of the current start tag.
    void readVersion(XmlText& version) const;
    // Takes a version attribute's value as readVersion() does.
    static void takeVersion(QStringView value, XmlText& version);
    // Takes a required attribute; absent or empty raises
    // "Missing attribute: \"<name>\"" and leaves the value as it was.
    bool readRequired(const QString& name, QString& value);
    bool readRequired(const QString& name, XmlText& value);
    // Raises "Illegal attribute value in \"<attribute>\"".
    void failAttribute(const QString& attribute);
    // An enumeration attribute of the current start tag, read whether present
    // or not: a text outside the table (absence included) gives 0 and
    // failAttribute().
    int readEnumAttribute(const QString& name, const XmlEnumTexts& texts);
    // The value of an attribute of the current start tag; a null view when
    // absent. Valid until the next token is read.
    QStringView attribute(const QString& name) const;
    // The same among the given attributes: the first of the name.
    static QStringView attributeIn(const QXmlStreamAttributes& attributes, QStringView name);
    // A required attribute absent or empty fails with "Missing attribute".
    bool missing(QStringView found, const QString& name);
    // "Missing attribute: \"<name>\"" and "Illegal attribute value in \"<name>\"".
    static QString missingAttributeMessage(const QString& name);
    static QString illegalAttributeMessage(const QString& name);
    // Raises "Version not supported: <version>" for any version but "1.0".
    bool checkVersion(const QString& version);

    // Converts numeric text; on failure raises
    // "Illegal value (must be numeric)" and gives nothing.
    std::optional<double> parseDouble(QStringView text);
    std::optional<int> parseInt(QStringView text);
    double toDouble(QStringView text, double fallback)
    {
        return parseDouble(text).value_or(fallback);
    }
    int toInt(QStringView text, int fallback) { return parseInt(text).value_or(fallback); }

    // The token loop, up to and including the element's end tag, with the
    // class's Tokens type: its members are called without indirection. True
    // when it ended at the element's own end tag, false after an error.
    template <class T>
    bool loop(T& tokens);
    // The loop of a text-valued element: every start tag is refused and each
    // piece of character data is handed to take(QStringView).
    template <class Take>
    void readText(Take take)
    {
        struct Text : Tokens
        {
            Take& take;
            void text(QStringView text) { take(text); }
        } tokens{{}, take};
        loop(tokens);
    }
    // The loop of a text element holding an enumeration: each piece of
    // character data must match one of the texts exactly; otherwise the value
    // becomes 0 and badValue is raised. take(int) receives the value.
    template <class Take>
    void readEnumText(const XmlEnumTexts& texts, const QString& badValue, Take take)
    {
        readText([&](QStringView text) {
            const auto value = texts.parse(text);
            take(value.value_or(0));
            if (!value)
                fail(badValue);
        });
    }

private:
    // The loop's messages, out of its way.
    void refuseStart();
    void refuseEnd(QStringView name);
    void otherToken(QXmlStreamReader::TokenType type);
    // The position recorder standing on the reader, which has then been told
    // that the element begins; null when positions are not recorded.
    static XmlPositionRecorder* recorderOf(XmlElementBase& element, QXmlStreamReader& reader,
                                           const QString& elementName);
    void recorded();

    XmlElementBase& m_element;
    QXmlStreamReader& m_reader;
    const QString& m_elementName; // the caller's, alive while the element is read
    Wording m_wording;
    XmlPositionRecorder* m_recorder;
};

template <class T>
bool XmlElementReader::loop(T& tokens)
{
    // Every error leaves the reader on an Invalid token, after which atEnd()
    // holds; only a premature end of input that may still grow leaves it
    // false, so the loop also stops on an Invalid token of its own.
    while (!m_reader.atEnd()) {
        const QXmlStreamReader::TokenType type = m_reader.readNext();
        if (type == QXmlStreamReader::StartElement) {
            if (!tokens.start(m_reader.name()))
                refuseStart();
        } else if (type == QXmlStreamReader::EndElement) {
            const QStringView name = m_reader.name();
            if (XmlKit::sameName(name, m_elementName)) {
                if (tokens.mayEnd())
                    return true;
                refuseEnd(name);
            } else if (!tokens.passEnd(name)) {
                refuseEnd(name);
            }
        } else if (type == QXmlStreamReader::Characters) {
            // The text is only fetched for a Tokens type that takes it.
            if constexpr (!std::is_same<decltype(&T::text), decltype(&Tokens::text)>::value)
                tokens.text(m_reader.text());
        } else {
            otherToken(type);
            if (type == QXmlStreamReader::Invalid)
                return false;
        }
    }
    return false;
}

} // namespace KelXml
