#pragma once

// The table of a composite element's children: each child named once, with
// the element name it is read and written under, where it is held, whether
// the element needs it, and the rule that admits it. XmlComposite reads,
// writes, checks and resets its children from this table. Internal to the
// library and not installed.

#include "XmlElementReader.h"
#include "XmlOwned.h"

#include <QStringList>

#include <functional>
#include <initializer_list>
#include <memory>
#include <type_traits>
#include <vector>

namespace KelXml {

class XmlComposite;
class XmlLayout;

// One child of a composite's table, or one choice between children.
class KELXML_EXPORT XmlField
{
public:
    // A child object that is always there, held by value.
    template <class Owner, class T>
    static XmlField object(const char* name, T Owner::*member)
    {
        XmlField field(name, true);
        field.m_get = [member](const XmlElementBase& owner) -> XmlElementBase* {
            return const_cast<T*>(&(static_cast<const Owner&>(owner).*member));
        };
        field.m_read = [member](XmlElementBase& owner, QXmlStreamReader& reader,
                                const QString& childName) -> IXmlElement* {
            T& child = static_cast<Owner&>(owner).*member;
            child.processXml(reader, childName);
            return &child;
        };
        field.m_clear = [member](XmlElementBase& owner) {
            (static_cast<Owner&>(owner).*member).reset();
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
        XmlField field(name, false);
        field.m_get = [member](const XmlElementBase& owner) -> XmlElementBase* {
            return (static_cast<const Owner&>(owner).*member).get();
        };
        field.m_read = [member, make](XmlElementBase& owner, QXmlStreamReader& reader,
                                      const QString& childName) -> IXmlElement* {
            XmlOwnedPtr<T>& child = static_cast<Owner&>(owner).*member;
            if (!child)
                child = XmlOwnedPtr<T>(make());
            child->processXml(reader, childName);
            return child.get();
        };
        field.m_replace = [member, make](XmlElementBase& owner, QXmlStreamReader& reader,
                                         const QString& childName) -> IXmlElement* {
            XmlOwnedPtr<T>& child = static_cast<Owner&>(owner).*member;
            child = XmlOwnedPtr<T>(make());
            child->processXml(reader, childName);
            return child.get();
        };
        field.m_clear = [member](XmlElementBase& owner) {
            (static_cast<Owner&>(owner).*member).reset();
        };
        return field;
    }

    // A repeated child: each occurrence is appended to the list as a new
    // member, kept even when its reading fails. The element may hold none.
    template <class Owner, class T>
    static XmlField list(const char* name, XmlOwnedList<T> Owner::*member)
    {
        XmlField field(name, false);
        field.m_repeated = true;
        field.m_read = [member](XmlElementBase& owner, QXmlStreamReader& reader,
                                const QString& childName) -> IXmlElement* {
            T* child = (static_cast<Owner&>(owner).*member).appendNew();
            child->processXml(reader, childName);
            return child;
        };
        field.m_write = [member](const XmlElementBase& owner, QXmlStreamWriter& writer,
                                 const QString& childName) {
            for (const T* item : (static_cast<const Owner&>(owner).*member).list())
                item->produceXml(writer, childName);
        };
        field.m_check = [member](const XmlElementBase& owner, XmlChecks& checks) {
            checks.children((static_cast<const Owner&>(owner).*member).list());
        };
        field.m_clear = [member](XmlElementBase& owner) {
            (static_cast<Owner&>(owner).*member).clear();
        };
        return field;
    }

    // A child holding plain text: read whole and handed to the setter, written
    // from the getter with writeTextElement(). Not checked, not reset here.
    template <class Owner, class R>
    static XmlField text(const char* name, R (Owner::*take)(const QString&),
                         const QString& (Owner::*give)() const)
    {
        XmlField field(name, true);
        field.m_read = [take](XmlElementBase& owner, QXmlStreamReader& reader,
                              const QString&) -> IXmlElement* {
            (static_cast<Owner&>(owner).*take)(reader.readElementText());
            return nullptr;
        };
        field.m_write = [give](const XmlElementBase& owner, QXmlStreamWriter& writer,
                               const QString& childName) {
            writer.writeTextElement(childName, (static_cast<const Owner&>(owner).*give)());
        };
        return field;
    }

    // Exactly one of several optional children. They share one place in the
    // order: once one was read, none of them is accepted again, and reading
    // one deletes the others. The element needs one of them; the report names
    // the child present, or gives the message when none or several are.
    static XmlField oneOf(std::initializer_list<XmlField> alternatives, const char* neitherMessage);
    // At most one of several optional children is read: once one was read,
    // none of them is accepted again. Reading one leaves the others as they
    // are. The report gives each child held, then the message unless exactly
    // one is held (or, for a group marked notRequired(), when several are).
    static XmlField single(std::vector<XmlField> kinds, const char* countMessage);

    // Written under another name than it is read.
    XmlField writtenAs(const char* name) const;
    // The element may end without this child.
    XmlField notRequired() const;
    // Refused once any of the named children (itself included, when named)
    // was read, instead of once itself or a later child was read.
    XmlField refusedBy(std::initializer_list<const char*> names) const;
    // Accepted only once one of the named children was read (for a group,
    // every alternative).
    XmlField after(std::initializer_list<const char*> names) const;
    // Accepted wherever it stands, once.
    XmlField anywhere() const;
    // Reading deletes the child held and reads into a new one.
    XmlField replaced() const;
    // May stand several times in a row.
    XmlField repeated() const;
    // Left out of the report and the verdict.
    XmlField unchecked() const;
    // After each reading of this child, hook(owner, child) runs.
    template <class Owner, class T>
    XmlField afterRead(void (*hook)(Owner& owner, T& child)) const
    {
        XmlField copy(*this);
        copy.m_afterRead = [hook](XmlElementBase& owner, IXmlElement& child) {
            hook(static_cast<Owner&>(owner), static_cast<T&>(child));
        };
        return copy;
    }

private:
    friend class XmlLayout;

    using Get = std::function<XmlElementBase*(const XmlElementBase&)>;
    using Read = std::function<IXmlElement*(XmlElementBase&, QXmlStreamReader&, const QString&)>;
    using AfterRead = std::function<void(XmlElementBase&, IXmlElement&)>;
    using Write = std::function<void(const XmlElementBase&, QXmlStreamWriter&, const QString&)>;
    using Check = std::function<void(const XmlElementBase&, XmlChecks&)>;
    using Clear = std::function<void(XmlElementBase&)>;

    XmlField(const char* name, bool required);

    void write(const XmlElementBase& owner, QXmlStreamWriter& writer) const;
    void check(const XmlElementBase& owner, XmlChecks& checks) const;

    QString m_readName;
    QString m_writeName;
    bool m_required;
    bool m_repeated = false;
    bool m_replaced = false;
    bool m_anywhere = false;
    bool m_unchecked = false;
    QStringList m_refusedBy;
    QStringList m_after;
    Get m_get;
    Read m_read;
    Read m_replace;
    Write m_write;
    Check m_check;
    Clear m_clear;
    AfterRead m_afterRead;
    // A group: its alternatives, and the report when not exactly one is there.
    // Reading one alternative of a choice deletes the others.
    std::vector<XmlField> m_alternatives;
    bool m_exclusive = false;
    QString m_countMessage;
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

// The children of a composite class in writing (and checking) order, with how
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

    XmlLayout(const char* classname, XmlElementReader::Wording wording, VersionRule version,
              std::vector<XmlField> fields);
    // Copies index their own fields.
    XmlLayout(const XmlLayout& other);
    XmlLayout& operator=(const XmlLayout& other);

    // Reading starts on the next token, wherever the reader stands.
    XmlLayout withoutPositionTest() const;
    // The own end tag also needs this to hold.
    XmlLayout completeWhen(std::function<bool(const XmlSeen&)> complete) const;

    const QString& classname() const { return m_identity->classname; }
    VersionRule versionRule() const { return m_version; }

    // The whole reading of an element: opening, then the children.
    // The owner's version is the one its element carries (when the table has one).
    void read(XmlElementBase& owner, XmlText& version, QXmlStreamReader& reader,
              const QString& elementName) const;
    // The opening: position test and version as the class has them. False
    // after an error.
    bool begin(XmlText& version, XmlElementReader& in) const;
    // Which children one reading has met so far.
    struct Progress
    {
        quint64 order = 0;   // by place in the order
        quint64 entries = 0; // by child, choices' alternatives apart
        size_t last = 0;     // the entry read last: where a tag is looked up first
    };
    // The token loop over the children, up to the own end tag.
    void readChildren(XmlElementBase& owner, XmlElementReader& in) const;
    // One child start tag, for a class that runs its own loop: reads the child
    // and returns true when the table admits it at this point.
    bool readChild(XmlElementBase& owner, XmlElementReader& in, QStringView name,
                   Progress& progress) const;
    void write(const XmlElementBase& owner, const XmlText& version, QXmlStreamWriter& writer,
               const QString& elementName) const;
    // The same for a table without a version.
    void write(const XmlElementBase& owner, QXmlStreamWriter& writer,
               const QString& elementName) const
    {
        write(owner, XmlText(), writer, elementName);
    }
    // Every child's verdict or report, in table order.
    void checkChildren(const XmlElementBase& owner, XmlChecks& checks) const;
    // Resets the children held by value, deletes the others, empties lists.
    void resetChildren(XmlElementBase& owner) const;

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

    // What reading needs of a child, kept together so that looking a tag up
    // and reading the child touch little besides the entry.
    struct Entry
    {
        const XmlField* field;
        int slot;
        quint64 refusers;
        quint64 needs; // one of these must have been read; 0 for none
        bool inGroup;
        QStringView name = {};                // the field's read name
        const XmlField::Read* read = nullptr; // its reading, or its replacing one
        const XmlField* group = nullptr;      // the choice that deletes the others, if any
    };

    void index();
    quint64 maskOf(const QStringList& names) const;
    int entryIndex(const QString& name) const;
    // The entry of the name, looked up from the given one on (children
    // mostly follow the table order) when no two entries share a name.
    const Entry* entryFor(QStringView name, size_t from) const;

    std::unique_ptr<Identity> m_identity;
    XmlElementReader::Wording m_wording;
    VersionRule m_version;
    bool m_positionTest = true;
    std::vector<XmlField> m_fields;
    std::vector<Entry> m_entries;
    quint64 m_required = 0;
    bool m_namesUnique = true;
    std::function<bool(const XmlSeen&)> m_complete;
};

} // namespace KelXml
