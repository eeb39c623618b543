#pragma once

// The table of a composite element: its attributes, its children and the
// elements it reads in its own token loop (wrappers, markers, text taken
// piece by piece), each named once, with where it is held, whether the
// element needs it and the rule that admits it. XmlComposite reads, writes,
// checks and resets the element from this table. Internal to the library and
// not installed.
//
// A row keeps its member as a type-erased member pointer and its work as
// plain functions instantiated for the member's type: reading a row costs one
// indirect call, with nothing allocated.

#include "XmlElementReader.h"
#include "XmlOwned.h"
#include "XmlWalk.h"

#include <QDateTime>
#include <QStringList>

#include <cstring>
#include <initializer_list>
#include <memory>
#include <type_traits>
#include <vector>

namespace KelXml {

class XmlEnumTexts;
class XmlLayout;

// One row of a composite's table: an attribute, a child, an element read in
// the element's own loop, or one choice between children.
class KELXML_EXPORT XmlField
{
public:
    // --- Children read by an object of their own ---------------------------

    // A child object that is always there, held by value.
    template <class Owner, class T>
    static XmlField object(const char* name, T Owner::*member)
    {
        XmlField field(name, true, Child);
        field.m_member = hold(member);
        field.m_get = [](const XmlField& f, const XmlElementBase& owner) -> XmlElementBase* {
            return &f.at<Owner, T>(owner);
        };
        field.m_read = [](const XmlField& f, XmlElementBase& owner,
                          QXmlStreamReader& reader) -> IXmlElement* {
            T& child = f.at<Owner, T>(owner);
            child.processXml(reader, f.m_readName);
            return &child;
        };
        field.m_clear = [](const XmlField& f, XmlElementBase& owner) {
            f.at<Owner, T>(owner).reset();
        };
        return field;
    }

    // A child that may be absent (a null pointer): allocated when it is first
    // read (by make, when the class has no default constructor), deleted by
    // reset().
    template <class Owner, class T>
    static XmlField optional(const char* name, XmlOwnedPtr<T> Owner::*member)
    {
        return optional(
            name, member, +[]() -> T* { return new T; });
    }
    template <class Owner, class T>
    static XmlField optional(const char* name, XmlOwnedPtr<T> Owner::*member, T* (*make)())
    {
        using Ptr = XmlOwnedPtr<T>;
        XmlField field(name, false, Child);
        field.m_member = hold(member);
        field.m_function = reinterpret_cast<void (*)()>(make);
        field.m_get = [](const XmlField& f, const XmlElementBase& owner) -> XmlElementBase* {
            return f.at<Owner, Ptr>(owner).get();
        };
        field.m_read = [](const XmlField& f, XmlElementBase& owner,
                          QXmlStreamReader& reader) -> IXmlElement* {
            Ptr& child = f.at<Owner, Ptr>(owner);
            if (!child || f.m_replaced)
                child = Ptr(reinterpret_cast<T* (*)()>(f.m_function)());
            child->processXml(reader, f.m_readName);
            return child.get();
        };
        field.m_clear = [](const XmlField& f, XmlElementBase& owner) {
            f.at<Owner, Ptr>(owner).reset();
        };
        return field;
    }

    // A repeated child: each occurrence is appended to the list as a new
    // member, kept even when its reading fails. The element may hold none.
    template <class Owner, class T>
    static XmlField list(const char* name, XmlOwnedList<T> Owner::*member)
    {
        using List = XmlOwnedList<T>;
        XmlField field(name, false, Child);
        field.m_repeated = true;
        field.m_member = hold(member);
        field.m_read = [](const XmlField& f, XmlElementBase& owner,
                          QXmlStreamReader& reader) -> IXmlElement* {
            T* child = f.at<Owner, List>(owner).appendNew();
            child->processXml(reader, f.m_readName);
            return child;
        };
        field.m_write = [](const XmlField& f, const XmlElementBase& owner,
                           QXmlStreamWriter& writer) {
            for (const T* item : f.at<Owner, List>(owner).list())
                item->produceXml(writer, f.m_writeName);
        };
        field.m_check = [](const XmlField& f, const XmlElementBase& owner, XmlChecks& checks) {
            const List& items = f.at<Owner, List>(owner);
            checks.children(items.list(), f.pathName());
            if (!f.m_countMessage.isNull())
                checks.expect(!items.isEmpty(), f.m_countMessage);
        };
        field.m_clear = [](const XmlField& f, XmlElementBase& owner) {
            f.at<Owner, List>(owner).clear();
        };
        field.m_walkItems = [](const XmlField& f, const XmlElementBase& owner, XmlWalker& walker) {
            for (const T* item : f.at<Owner, List>(owner).list())
                walker.child(item, f.m_writeName);
        };
        field.m_holds = [](const XmlField& f, const XmlElementBase& owner,
                           const XmlElementBase& child) {
            for (const T* item : f.at<Owner, List>(owner).list()) {
                if (item == &child)
                    return true;
            }
            return false;
        };
        return field;
    }

    // --- Children holding text, read whole with readElementText() ----------
    // Written with writeTextElement(). The layout neither checks nor resets
    // the values: the class does.

    // Handed to the setter, written from the getter. A setter may return
    // bool: false refuses the text, which fails the reading when the row has
    // a message (failsWith()).
    template <class Owner, class R>
    static XmlField text(const char* name, R (Owner::*take)(const QString&),
                         const QString& (Owner::*give)() const)
    {
        XmlField field(name, true, Text);
        field.m_member = hold(take);
        field.m_extra = hold(give);
        field.m_take = [](const XmlField& f, XmlElementBase& owner, QStringView text) -> Outcome {
            Owner& self = static_cast<Owner&>(owner);
            const auto setter = unhold<R (Owner::*)(const QString&)>(f.m_member);
            if constexpr (std::is_same<R, bool>::value) {
                return (self.*setter)(text.toString()) ? Taken : Refused;
            } else {
                (self.*setter)(text.toString());
                return Taken;
            }
        };
        field.m_format = [](const XmlField& f, const XmlElementBase& owner) -> QString {
            const auto getter = unhold<const QString& (Owner::*)() const>(f.m_extra);
            return (static_cast<const Owner&>(owner).*getter)();
        };
        return field;
    }
    // The text as it stands.
    template <class Owner>
    static XmlField text(const char* name, QString Owner::*member)
    {
        return value(name, member, Text);
    }
    // A number, converted unchecked (a text that is no number gives 0) and
    // written with QString::number(value, format, precision).
    template <class Owner>
    static XmlField number(const char* name, double Owner::*member, char format, int precision)
    {
        XmlField field = value(name, member, Text);
        field.m_numberFormat = format;
        field.m_precision = precision;
        return field;
    }
    // A whole number; a text that is none gives the fallback and the message.
    template <class Owner>
    static XmlField number(const char* name, int Owner::*member, int fallback, const char* message)
    {
        XmlField field = value(name, member, Text);
        field.m_fallback = fallback;
        return field.failsWith(message);
    }
    // One of the texts, matched exactly; any other gives 0 and the message.
    template <class Owner, class E>
    static XmlField enumeration(const char* name, E Owner::*member, const XmlEnumTexts& texts,
                                const char* message)
    {
        return enumerationValue(name, member, texts, Text).failsWith(message);
    }
    // An ISO 8601 date-time, kept even when invalid; an invalid one gives the
    // message.
    template <class Owner>
    static XmlField dateTime(const char* name, QDateTime Owner::*member, const char* message)
    {
        return value(name, member, Text).failsWith(message);
    }

    // --- Elements read in the element's own token loop ----------------------
    // Their start tag does not hand the reading to an object: the element's
    // loop goes on inside them, and their end tag comes to it.

    // An element that only marks: it counts as read at its start tag (then
    // hook(owner) runs, see afterRead()), and its content belongs to the
    // element around it. Its end tag always passes. Not required; written as
    // an empty element only when writtenWhen() says so.
    static XmlField marker(const char* name);
    // An element around rows of its own, which are admitted only while it is
    // open, in their own order. It opens at its start tag (again, while open,
    // unless it counts as read already) and the rows of the element around it
    // stay admitted inside. Its end tag passes while it is open and once the
    // rows it needs were read; it then counts as read (and afterRead()'s hook
    // runs). The first end tag closes it; a repeated() wrapper needs one end
    // tag per start tag.
    static XmlField wrapper(const char* name, std::initializer_list<XmlField> rows);
    // A child holding only text, taken piece by piece in the element's loop:
    // every start tag inside it is refused, each piece of character data is
    // handed to take(owner, piece), and it counts as read when it closes;
    // when take returns bool, only once it returned true for a piece. Written
    // with writeTextElement() from give(owner).
    template <class Owner, class R>
    static XmlField characters(const char* name, R (*take)(Owner&, QStringView),
                               QString (*give)(const Owner&))
    {
        XmlField field(name, true, Characters);
        field.m_function = reinterpret_cast<void (*)()>(take);
        field.m_giveFunction = reinterpret_cast<void (*)()>(give);
        field.m_countsWithText = std::is_same<R, bool>::value;
        field.m_take = [](const XmlField& f, XmlElementBase& owner, QStringView text) -> Outcome {
            const auto hook = reinterpret_cast<R (*)(Owner&, QStringView)>(f.m_function);
            if constexpr (std::is_same<R, bool>::value) {
                return hook(static_cast<Owner&>(owner), text) ? Taken : Refused;
            } else {
                hook(static_cast<Owner&>(owner), text);
                return Taken;
            }
        };
        field.m_format = [](const XmlField& f, const XmlElementBase& owner) -> QString {
            return reinterpret_cast<QString (*)(const Owner&)>(f.m_giveFunction)(
                static_cast<const Owner&>(owner));
        };
        return field;
    }

    // --- Choices ------------------------------------------------------------

    // Exactly one of several optional children. They share one place in the
    // order: once one was read, none of them is accepted again (but for a
    // repeated() one, which stays accepted until another is read), and
    // reading one deletes the others. The element needs one of them; the
    // report names the child present, or gives the message when none or
    // several are.
    static XmlField oneOf(std::initializer_list<XmlField> alternatives, const char* neitherMessage);
    // At most one of several optional children is read: once one was read,
    // none of them is accepted again. Reading one leaves the others as they
    // are. The report gives each child held, then the message unless exactly
    // one is held (or, for a group marked notRequired(), when several are).
    static XmlField single(std::vector<XmlField> kinds, const char* countMessage);

    // --- Rules --------------------------------------------------------------

    // Written under another name than it is read.
    XmlField writtenAs(const char* name) const;
    // The element may end without this child.
    XmlField notRequired() const;
    // The element may not end without this child.
    XmlField required() const;
    // A list that the element needs at least once; its report gives the
    // message when the list is empty.
    XmlField atLeastOne(const char* emptyMessage) const;
    // Refused once any of the named children (itself included, when named)
    // was read, instead of once itself or a later child was read.
    XmlField refusedBy(std::initializer_list<const char*> names) const;
    // Accepted only once one of the named children was read (for a group,
    // every alternative).
    XmlField after(std::initializer_list<const char*> names) const;
    // Accepted wherever it stands, once (any number of times when also
    // repeated()).
    XmlField anywhere() const;
    // Reading deletes the child held and reads into a new one.
    XmlField replaced() const;
    // May stand several times in a row.
    XmlField repeated() const;
    // Left out of the report and the verdict.
    XmlField unchecked() const;
    // A text or attribute row: a refused text fails the reading with this
    // message (attributes have one by default).
    XmlField failsWith(const char* message) const;
    // Read but never written.
    XmlField notWritten() const;
    // A marker or wrapper: written only when the owner's predicate holds.
    template <class Owner>
    XmlField writtenWhen(bool (Owner::*holds)() const) const
    {
        XmlField copy(*this);
        copy.m_extra = hold(holds);
        copy.m_when = [](const XmlField& f, const XmlElementBase& owner) {
            return (static_cast<const Owner&>(owner).*unhold<bool (Owner::*)() const>(f.m_extra))();
        };
        return copy;
    }
    // After each reading of this child, hook(owner, child) runs.
    template <class Owner, class T>
    XmlField afterRead(void (*hook)(Owner& owner, T& child)) const
    {
        XmlField copy(*this);
        copy.m_hookFunction = reinterpret_cast<void (*)()>(hook);
        copy.m_afterRead = [](const XmlField& f, XmlElementBase& owner, IXmlElement* child) {
            reinterpret_cast<void (*)(Owner&, T&)>(f.m_hookFunction)(static_cast<Owner&>(owner),
                                                                     static_cast<T&>(*child));
        };
        return copy;
    }
    // A marker or wrapper: hook(owner) runs each time it counts as read.
    template <class Owner>
    XmlField afterRead(void (*hook)(Owner& owner)) const
    {
        XmlField copy(*this);
        copy.m_hookFunction = reinterpret_cast<void (*)()>(hook);
        copy.m_afterRead = [](const XmlField& f, XmlElementBase& owner, IXmlElement*) {
            reinterpret_cast<void (*)(Owner&)>(f.m_hookFunction)(static_cast<Owner&>(owner));
        };
        return copy;
    }

private:
    friend class XmlLayout;
    friend struct XmlAttribute;

    enum Kind : quint8
    {
        Child,      // read by an object
        Text,       // read whole as text
        Attribute,  // an attribute of the element's start tag
        Marker,     // read in the element's loop, counted at its start tag
        Wrapper,    // read in the element's loop, counted when it closes
        Characters, // text taken in the element's loop
        Group,      // a choice between children
    };
    // What taking a text gave: the value, a refusal, or no text at all where
    // one is needed.
    enum Outcome : quint8
    {
        Taken,
        Refused,
        Missing,
    };

    // A member pointer of any class, kept as its bytes; the functions that
    // the factories instantiate know its type.
    struct Held
    {
        alignas(void*) unsigned char bytes[2 * sizeof(void*)] = {};
    };
    template <class P>
    static Held hold(P pointer)
    {
        static_assert(sizeof(P) <= sizeof(Held) && std::is_trivially_copyable<P>::value,
                      "a member pointer fits");
        Held held;
        std::memcpy(held.bytes, &pointer, sizeof pointer);
        return held;
    }
    template <class P>
    static P unhold(const Held& held)
    {
        P pointer;
        std::memcpy(&pointer, held.bytes, sizeof pointer);
        return pointer;
    }
    // The data member of the owner.
    template <class Owner, class T>
    T& at(const XmlElementBase& owner) const
    {
        return const_cast<Owner&>(static_cast<const Owner&>(owner)).*unhold<T Owner::*>(m_member);
    }

    using Get = XmlElementBase* (*)(const XmlField&, const XmlElementBase&);
    using Read = IXmlElement* (*)(const XmlField&, XmlElementBase&, QXmlStreamReader&);
    using AfterRead = void (*)(const XmlField&, XmlElementBase&, IXmlElement*);
    using Write = void (*)(const XmlField&, const XmlElementBase&, QXmlStreamWriter&);
    using Check = void (*)(const XmlField&, const XmlElementBase&, XmlChecks&);
    using Holds = bool (*)(const XmlField&, const XmlElementBase&, const XmlElementBase&);
    using Clear = void (*)(const XmlField&, XmlElementBase&);
    using Take = Outcome (*)(const XmlField&, XmlElementBase&, QStringView);
    using Format = QString (*)(const XmlField&, const XmlElementBase&);
    using When = bool (*)(const XmlField&, const XmlElementBase&);
    using Typed = XmlValue (*)(const XmlField&, const XmlElementBase&);
    using WalkItems = void (*)(const XmlField&, const XmlElementBase&, XmlWalker&);

    XmlField(const char* name, bool required, Kind kind);

    // A text or attribute value held in a data member, converted by the
    // member's type (see the conversions below).
    template <class Owner, class T>
    static XmlField value(const char* name, T Owner::*member, Kind kind)
    {
        XmlField field(name, true, kind);
        field.m_member = hold(member);
        field.m_take = [](const XmlField& f, XmlElementBase& owner, QStringView text) -> Outcome {
            return f.take(f.at<Owner, T>(owner), text);
        };
        field.m_format = [](const XmlField& f, const XmlElementBase& owner) -> QString {
            return f.format(f.at<Owner, T>(owner));
        };
        field.m_typed = [](const XmlField& f, const XmlElementBase& owner) -> XmlValue {
            return f.typed(f.at<Owner, T>(owner));
        };
        return field;
    }

    // An enumeration (or an int) held in a data member, converted by the texts.
    template <class Owner, class E>
    static XmlField enumerationValue(const char* name, E Owner::*member, const XmlEnumTexts& texts,
                                     Kind kind)
    {
        XmlField field(name, true, kind);
        field.m_member = hold(member);
        field.m_texts = &texts;
        field.m_take = [](const XmlField& f, XmlElementBase& owner, QStringView text) -> Outcome {
            E& value = f.at<Owner, E>(owner);
            int number = int(value);
            const Outcome outcome = f.takeEnumeration(number, text);
            value = E(number);
            return outcome;
        };
        field.m_format = [](const XmlField& f, const XmlElementBase& owner) -> QString {
            return f.formatEnumeration(int(f.at<Owner, E>(owner)));
        };
        field.m_typed = [](const XmlField& f, const XmlElementBase& owner) -> XmlValue {
            const int value = int(f.at<Owner, E>(owner));
            return XmlValue::enumeration(value, f.formatEnumeration(value));
        };
        return field;
    }

    // The conversions between a text and a value, by the value's type.
    Outcome take(QString& value, QStringView text) const;
    Outcome take(XmlText& value, QStringView text) const;
    Outcome take(double& value, QStringView text) const;
    Outcome take(int& value, QStringView text) const;
    Outcome take(bool& value, QStringView text) const;
    Outcome take(QDateTime& value, QStringView text) const;
    Outcome takeEnumeration(int& value, QStringView text) const;
    QString format(const QString& value) const { return value; }
    QString format(const XmlText& value) const { return value.toString(); }
    QString format(double value) const;
    QString format(int value) const;
    QString format(bool value) const;
    QString format(const QDateTime& value) const;
    QString formatEnumeration(int value) const;
    // The typed values of the walk, by the value's type; their texts are
    // those format() gives.
    XmlValue typed(const QString& value) const { return XmlValue::text(value); }
    XmlValue typed(const XmlText& value) const { return XmlValue::text(value.toString()); }
    XmlValue typed(double value) const { return XmlValue::number(value, format(value)); }
    XmlValue typed(int value) const { return XmlValue::integer(value); }
    XmlValue typed(bool value) const { return XmlValue::boolean(value); }
    XmlValue typed(const QDateTime& value) const { return XmlValue::dateTime(value); }
    // The row's value for the walk: typed when the row knows its type, else
    // the text it writes.
    XmlValue valueOf(const XmlElementBase& owner) const;

    void write(const XmlElementBase& owner, QXmlStreamWriter& writer) const;
    void check(const XmlElementBase& owner, XmlChecks& checks) const;
    // Hands the walker what write() writes, in the same order.
    void describe(const XmlElementBase& owner, XmlWalker& walker) const;
    void checkGroup(const XmlElementBase& owner, XmlChecks& checks) const;
    const QString* nameOf(const XmlElementBase& owner, const XmlElementBase& child) const;

    // The name a checked child is reported under: its written name, behind
    // the names of the wrappers around its row.
    const QString* pathName() const { return m_pathName.isEmpty() ? &m_writeName : &m_pathName; }
    void prefixPath(const QString& wrapper);

    QString m_readName;
    QString m_writeName;
    QString m_pathName; // "Wrapper/Name" inside a wrapper, else empty
    Kind m_kind;
    bool m_required;
    bool m_repeated = false;
    bool m_replaced = false;
    bool m_anywhere = false;
    bool m_unchecked = false;
    bool m_written = true;
    bool m_countsWithText = false;
    char m_numberFormat = 'g';
    int m_precision = 6;
    int m_fallback = 0;
    const XmlEnumTexts* m_texts = nullptr;
    QStringList m_refusedBy;
    QStringList m_after;
    Held m_member;                      // the data member, or the setter
    Held m_extra;                       // the getter, or the predicate of writtenWhen()
    void (*m_function)() = nullptr;     // make, or the take of a characters row
    void (*m_giveFunction)() = nullptr; // the give of a characters row
    void (*m_hookFunction)() = nullptr; // the hook of afterRead()
    Get m_get = nullptr;
    Read m_read = nullptr;
    Write m_write = nullptr;
    Check m_check = nullptr;
    Holds m_holds = nullptr; // a list row: whether the list holds the child
    Clear m_clear = nullptr;
    AfterRead m_afterRead = nullptr;
    Take m_take = nullptr;
    Format m_format = nullptr;
    When m_when = nullptr;
    Typed m_typed = nullptr;         // the value for the walk, when not the text
    WalkItems m_walkItems = nullptr; // a list row: walks its members
    QString m_message;               // a refused text's message
    QString m_missing;               // the message when an attribute needed is absent or empty
    // A group: its alternatives, and the report when not exactly one is there.
    // Reading one alternative of a choice deletes the others. A wrapper: its rows.
    std::vector<XmlField> m_rows;
    bool m_exclusive = false;
    QString m_countMessage;
};

// The attributes of an element's start tag, as rows of its table. They are
// read after the version, each whether an earlier one was refused or not (the
// first refusal is reported), and written after the version, in table order.
struct KELXML_EXPORT XmlAttribute
{
    // One of the texts, matched exactly, read whether present or not: any
    // other text, absence included, gives 0 and "Illegal attribute value in
    // \"<name>\"".
    template <class Owner, class E>
    static XmlField enumeration(const char* name, E Owner::*member, const XmlEnumTexts& texts)
    {
        return refusedAsIllegal(
            XmlField::enumerationValue(name, member, texts, XmlField::Attribute));
    }
    // "TRUE" or "FALSE" in any letter case, "1" or "0"; anything else, absence
    // included, leaves the value and fails as an enumeration does. Written
    // "true" or "false".
    template <class Owner>
    static XmlField boolean(const char* name, bool Owner::*member)
    {
        return refusedAsIllegal(XmlField::value(name, member, XmlField::Attribute));
    }
    // A required whole number: absent or empty fails with "Missing attribute:
    // \"<name>\"" and leaves the value; a text that is no number gives 0 and
    // "Illegal attribute value (must be numeric)".
    template <class Owner>
    static XmlField integer(const char* name, int Owner::*member)
    {
        return required(XmlField::value(name, member, XmlField::Attribute))
            .failsWith("Illegal attribute value (must be numeric)");
    }
    // An ISO 8601 date-time handed to the setter, read whether present or
    // not; an invalid one is handed on too, and fails as an enumeration does.
    template <class Owner>
    static XmlField dateTime(const char* name, void (Owner::*set)(const QDateTime&),
                             const QDateTime& (Owner::*get)() const)
    {
        XmlField field(name, true, XmlField::Attribute);
        field.m_member = XmlField::hold(set);
        field.m_extra = XmlField::hold(get);
        field.m_take = [](const XmlField& f, XmlElementBase& owner,
                          QStringView text) -> XmlField::Outcome {
            QDateTime value;
            const XmlField::Outcome outcome = f.take(value, text);
            (static_cast<Owner&>(owner).*
             XmlField::unhold<void (Owner::*)(const QDateTime&)>(f.m_member))(value);
            return outcome;
        };
        field.m_format = [](const XmlField& f, const XmlElementBase& owner) -> QString {
            return f.format((static_cast<const Owner&>(owner).*
                             XmlField::unhold<const QDateTime& (Owner::*)() const>(f.m_extra))());
        };
        field.m_typed = [](const XmlField& f, const XmlElementBase& owner) -> XmlValue {
            return XmlValue::dateTime(
                (static_cast<const Owner&>(owner).*
                 XmlField::unhold<const QDateTime& (Owner::*)() const>(f.m_extra))());
        };
        return refusedAsIllegal(field);
    }
    // A required text: absent or empty fails with the message (by default
    // "Missing attribute: \"<name>\"") and leaves the value.
    template <class Owner>
    static XmlField text(const char* name, XmlText Owner::*member, const char* missing = nullptr)
    {
        return required(XmlField::value(name, member, XmlField::Attribute), missing);
    }

private:
    static XmlField refusedAsIllegal(const XmlField& field);
    static XmlField required(const XmlField& field, const char* missing = nullptr);
};

// Which children of a composite have been read so far.
class KELXML_EXPORT XmlSeen
{
public:
    bool has(const QString& name) const;
    // Those of the named children that were read, in the order given.
    QStringList among(const QStringList& names) const;

private:
    friend class XmlLayout;
    XmlSeen(const XmlLayout& layout, quint64 entries)
        : m_layout(layout)
        , m_entries(entries)
    {}

    const XmlLayout& m_layout;
    quint64 m_entries; // one bit per readable child, choices' alternatives apart
};

// The rows of a composite class in writing (and checking) order, with how
// the class reads its element.
class KELXML_EXPORT XmlLayout
{
public:
    enum VersionRule
    {
        NoVersion,      // no version attribute
        Version,        // read and written; an unsupported one shows only in the report
        CheckedVersion, // and reading refuses another version than "1.0"
    };

    // The attribute rows may stand anywhere among the others; they are read
    // and written in their own order, before the children.
    XmlLayout(const char* classname, XmlElementReader::Wording wording, VersionRule version,
              std::vector<XmlField> fields);
    // Copies index their own fields.
    XmlLayout(const XmlLayout& other);
    XmlLayout& operator=(const XmlLayout& other);

    // Reading starts on the next token, wherever the reader stands.
    XmlLayout withoutPositionTest() const;
    // The own end tag also needs this to hold.
    XmlLayout completeWhen(bool (*complete)(const XmlSeen&)) const;
    // Character data outside the rows that hold text goes to hook(owner, in,
    // text) instead of being ignored.
    template <class Owner>
    XmlLayout onText(void (*hook)(Owner& owner, XmlElementReader& in, QStringView text)) const
    {
        XmlLayout copy(*this);
        copy.m_textFunction = reinterpret_cast<void (*)()>(hook);
        copy.m_onText = [](const XmlLayout& layout, XmlElementBase& owner, XmlElementReader& in,
                           QStringView text) {
            reinterpret_cast<void (*)(Owner&, XmlElementReader&, QStringView)>(
                layout.m_textFunction)(static_cast<Owner&>(owner), in, text);
        };
        return copy;
    }

    const QString& classname() const { return m_identity->classname; }
    VersionRule versionRule() const { return m_version; }

    // The whole reading of an element: opening, then the children. The
    // owner's version is the one its element carries (when the table has
    // one). True when the reading ended at the element's own end tag.
    bool read(XmlElementBase& owner, XmlText& version, QXmlStreamReader& reader,
              const QString& elementName) const;
    void write(const XmlElementBase& owner, const XmlText& version, QXmlStreamWriter& writer,
               const QString& elementName) const;
    // Hands the walker the version, the attributes and the children, in the
    // order write() writes them.
    void describe(const XmlElementBase& owner, const XmlText& version, XmlWalker& walker) const;
    // Every child's verdict or report, in table order.
    void checkChildren(const XmlElementBase& owner, XmlChecks& checks) const;
    // Resets the children held by value, deletes the others, empties lists.
    void resetChildren(XmlElementBase& owner) const;
    // The name, behind its wrappers, of the row that holds the child; null
    // when no row does.
    const QString* nameOf(const XmlElementBase& owner, const XmlElementBase& child) const;

private:
    friend class XmlSeen;
    friend class XmlComposite;

    // The class name, and the table that owns it: a composite holds no
    // pointer to its table but finds it from the name its base refers to.
    struct Identity
    {
        QString classname;
        const XmlLayout* layout;
    };
    static_assert(std::is_standard_layout<Identity>::value,
                  "the name must sit at the start of the identity");
    static const XmlLayout& ofName(const QString& classname)
    {
        return *reinterpret_cast<const Identity*>(&classname)->layout;
    }

    // At most this many wrappers and characters rows in one table.
    static constexpr int maxOpen = 4;

    // What reading needs of a row, kept together so that looking a tag up and
    // reading the child touch little besides the entry.
    struct Entry
    {
        const XmlField* field;
        int slot;
        quint64 slotBit = 0; // the slot's and the entry's bit in the progress
        quint64 entryBit = 0;
        quint64 refusers = 0;
        quint64 others = 0;       // a repeated choice: the other alternatives, by entry
        quint64 needs = 0;        // one of these must have been read; 0 for none
        quint64 rowsRequired = 0; // a wrapper: the slots of the rows it needs to close
        quint8 index = 0;         // its place among the entries
        qint8 within = -1;        // the wrapper (its place among those open) holding this row
        qint8 open = -1;          // a wrapper's or characters row's own place
        bool rare = false;        // admitted under a rule besides the refusers
        XmlField::Kind kind = XmlField::Child;
        QStringView name = {};           // the field's read name
        const XmlField* group = nullptr; // the choice that deletes the others, if any
    };
    // Which rows one reading has met so far.
    struct Progress
    {
        quint64 order = 0;   // by place in the order
        quint64 entries = 0; // by row, choices' alternatives apart
        quint64 held = 0;    // characters rows that took text
        size_t last = 0;     // the entry read last: where a tag is looked up first
        int text = -1;       // the characters row open, if any
        quint32 open[maxOpen] = {};
    };
    struct Children;
    struct TextChildren;

    // The opening: position test, version and attributes as the class has
    // them. False after an error.
    bool begin(XmlElementBase& owner, XmlText& version, XmlElementReader& in) const;
    bool readAttributes(XmlElementBase& owner, XmlElementReader& in) const;
    // The token loop over the children, up to the own end tag; true when it
    // ended there.
    bool readChildren(XmlElementBase& owner, XmlElementReader& in) const;
    // The members the loop calls: a start tag, an end tag of another name,
    // character data, the own end tag.
    inline bool start(XmlElementBase& owner, XmlElementReader& in, QStringView name,
                      Progress& progress) const;
    bool startOther(XmlElementBase& owner, XmlElementReader& in, const Entry& entry,
                    Progress& progress) const;
    bool passEnd(XmlElementBase& owner, QStringView name, Progress& progress) const;
    void text(XmlElementBase& owner, XmlElementReader& in, QStringView text,
              Progress& progress) const;
    bool mayEnd(const Progress& progress) const;

    void index();
    void indexRow(const XmlField& field, int& slot, qint8 within, quint64& level);
    quint64 maskOf(const QStringList& names) const;
    int entryIndex(const QString& name) const;
    // The entry of the name, looked up from the given one on (children
    // mostly follow the table order) when no two entries share a name.
    inline const Entry* entryFor(QStringView name, size_t from) const;
    static void markRead(const Entry& entry, Progress& progress);

    std::unique_ptr<Identity> m_identity;
    XmlElementReader::Wording m_wording;
    VersionRule m_version;
    bool m_positionTest = true;
    std::vector<XmlField> m_attributes;
    std::vector<XmlField> m_fields;
    std::vector<Entry> m_entries;
    quint64 m_required = 0;
    bool m_namesUnique = true;
    bool m_takesText = false;
    bool (*m_complete)(const XmlSeen&) = nullptr;
    void (*m_textFunction)() = nullptr;
    void (*m_onText)(const XmlLayout&, XmlElementBase&, XmlElementReader&, QStringView) = nullptr;
};

} // namespace KelXml
