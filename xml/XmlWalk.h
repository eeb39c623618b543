#pragma once

#include "KelXmlGlobal.h"

#include <QDateTime>
#include <QString>

#include <utility>
#include <vector>

namespace KelXml {

class XmlElementBase;

/// One typed value of an element or of an attribute, as a walk over an
/// element tree hands it on (XmlWalker): its type, the value held, the text
/// the class writes for it and, for a measured value, its unit.
///
/// Two values are equal (operator==) when their types, units and values
/// agree, with two rules of their own:
/// - a NaN number equals another NaN ("nan" reads as a valid level and is
///   written back, so a tree holding one must equal its copy), and 0 differs
///   from -0, which is written "-0";
/// - a date-time equals another only when both the instant and the way it is
///   written agree: whether it is UTC, local or at an offset, the offset
///   from UTC (and its time zone), so that equal values write the same text.
///   Two invalid date-times are equal.
/// An enumeration compares the value held (every value outside its texts is
/// written alike); a text compares exactly, letter case and spaces included.
/// \ingroup framework
class KELXML_EXPORT XmlValue
{
public:
    /// What a value holds.
    enum Type : quint8
    {
        None,        ///< no value
        Number,      ///< a floating-point number: toDouble()
        Integer,     ///< a whole number: toInteger()
        Text,        ///< a text: text()
        Enumeration, ///< one value of an enumeration: toInteger(), written as text()
        DateTime,    ///< a date-time: toDateTime()
        Boolean,     ///< true or false: toBool()
    };

    XmlValue() = default;
    /// A number held as value and written as the text given.
    static XmlValue number(double value, const QString& written);
    static XmlValue integer(qint64 value);
    static XmlValue text(const QString& text);
    /// An enumeration's value and the text it is written as.
    static XmlValue enumeration(int value, const QString& written);
    /// Written in ISO 8601 to the second; an invalid one as an empty text.
    static XmlValue dateTime(const QDateTime& value);
    /// Written "true" or "false".
    static XmlValue boolean(bool value);
    /// The same value with its unit ("dBm", "MHz").
    XmlValue withUnit(const QString& unit) const;

    Type type() const { return m_type; }
    double toDouble() const { return m_number; }
    qint64 toInteger() const { return m_integer; }
    bool toBool() const { return m_integer != 0; }
    const QDateTime& toDateTime() const { return m_dateTime; }
    /// The text the class writes for the value, exactly.
    const QString& text() const { return m_text; }
    /// The unit of a measured value; null for every other value.
    const QString& unit() const { return m_unit; }

    bool operator==(const XmlValue& other) const;
    bool operator!=(const XmlValue& other) const { return !(*this == other); }

private:
    Type m_type = None;
    double m_number = 0.0;
    qint64 m_integer = 0;
    QDateTime m_dateTime;
    QString m_text;
    QString m_unit;
};

/// A read-only walk over an element tree (XmlElementBase::walk()): every
/// element in writing order, as the tree would be written, each with its
/// element name, its class, its attributes in writing order, its value and
/// its children. Elements without a class of their own (a text child, a
/// wrapper, a marker of a composite) are entered with a null class name and
/// no element object.
///
/// For an element the calls come in this order: enter(), attribute() for
/// each attribute, value() when it has one, the children's calls, leave().
/// \ingroup framework
class KELXML_EXPORT XmlWalker
{
public:
    virtual ~XmlWalker();

    /// An element begins. element is null for one without a class.
    virtual void enter(const QString& elementName, const QString& className,
                       const XmlElementBase* element) = 0;
    /// An attribute of the element entered last.
    virtual void attribute(const QString& name, const XmlValue& value) = 0;
    /// The value (the text content) of the element entered last.
    virtual void value(const XmlValue& value) = 0;
    /// The element entered last ends.
    virtual void leave() = 0;
    /// False once the walker needs nothing more: the walk then enters no
    /// further child (the elements open are still left).
    virtual bool wantsMore() const { return true; }

    /// Walks a child under the name it is written with; a null child is skipped.
    void child(const XmlElementBase* child, const QString& elementName);
    /// An element without a class holding only the value.
    void textElement(const QString& elementName, const XmlValue& value);
};

/// The C++ class of an element, without its namespace ("XmlFreqType"). The
/// class name its messages carry differs for a few classes
/// ("XmlreferenceType").
/// \relates XmlWalker
KELXML_EXPORT QString classNameOf(const XmlElementBase& element);

/// Numbers the children of one element among their siblings of one name, as
/// element paths count them ("Frequencies/Frequency[2]"): the first of a name
/// is 1.
/// \ingroup framework
class KELXML_EXPORT XmlSiblingCount
{
public:
    /// The number of the next child of that name.
    int next(const QString& name);
    /// A step of a path: the name, followed by "[index]" from the second on.
    static QString step(const QString& name, int index);

private:
    std::vector<std::pair<QString, int>> m_counts; // few names a parent
};

} // namespace KelXml
