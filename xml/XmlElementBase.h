#pragma once

#include "IXmlElement.h"
#include "XmlText.h"

#include <QList>
#include <QString>

namespace KelXml {

class XmlChecks;

/// The base of every element class. It holds the class name that every message
/// of the element carries, and the text that syntaxError() accumulates. Both
/// fit in one pointer: the name is shared by all objects of a class, and the
/// text takes memory only while there is some.
///
/// isValid() and syntaxError() run the element's checkContent() once as a
/// verdict and once as a report, so that a class states each rule and its
/// message in one place. A class whose verdict and report differ overrides them.
/// \ingroup framework
class KELXML_EXPORT XmlElementBase : public IXmlElement
{
public:
    explicit XmlElementBase(const QString& classname);
    XmlElementBase(const XmlElementBase& other);
    XmlElementBase& operator=(const XmlElementBase& other);
    ~XmlElementBase() override;

    bool isValid() const override;
    QString syntaxError() override;
    /// Returns the element to its constructed state. This base part empties the
    /// accumulated error text; every concrete reset() ends here.
    void reset() override;

protected:
    /// A class name that outlives every object made with it, such as one
    /// held by a static table: the object refers to it as it is.
    struct PermanentName
    {
        const QString* name;
    };
    explicit XmlElementBase(PermanentName classname);

    /// Raises a custom error on the reader:
    /// `"in <class> (line <l>, column <c>): <message>."`
    void setReaderError(QXmlStreamReader& reader, const QString& message);
    /// Appends a message to the accumulated text, one per line; empty ones are ignored.
    void addSyntaxError(const QString& message);
    void clearSyntaxError();
    const QString& classname() const;
    /// The accumulated text framed by `"+++ in <class> Begin:"` and
    /// `"--- in <class> End"`; a null string when nothing was accumulated.
    QString mySyntaxError() const;

    /// States the element's rules: its version, its bounds in order, then its
    /// children in writing order. The default has no rules.
    virtual void checkContent(XmlChecks& checks) const;

private:
    friend class XmlChecks;
    friend class XmlElementReader;

    struct Report;
    Report* report() const
    {
        return m_state & 1 ? reinterpret_cast<Report*>(m_state & ~quintptr(1)) : nullptr;
    }
    void dropReport();

    // One word per element: the class name (a string shared by every object
    // of the class) or, once text has been accumulated, a Report holding the
    // name and the text, marked by the lowest bit.
    quintptr m_state;
};

/// Collects the outcome of an element's rules, either as a verdict (stopping at
/// the first failure) or as a report into the element's accumulated text.
/// \ingroup framework
class KELXML_EXPORT XmlChecks
{
public:
    /// A verdict only: no message is built.
    XmlChecks() = default;
    /// A report: each failure adds its message to the element's text.
    explicit XmlChecks(XmlElementBase& element)
        : m_report(&element)
    {}

    /// False once a rule has failed.
    bool passed() const { return m_passed; }

    /// Fails with `"Version \"<version>\" not supported"` unless supported.
    void version(bool supported, const QString& version)
    {
        if (!supported)
            failVersion(version);
    }
    /// Fails with the message unless ok holds.
    void expect(bool ok, const QString& message)
    {
        if (!ok)
            fail(message);
    }
    /// Takes in a child's verdict or report; a null child is skipped.
    void child(IXmlElement* child)
    {
        if (!child)
            return;
        if (m_report)
            reportOf(*child);
        else if (m_passed && !child->isValid())
            m_passed = false;
    }
    template <class T>
    /// Takes in every child of the list, in order.
    void children(const QList<T*>& list)
    {
        // The members lie apart on the heap: asking for the next ones early
        // overlaps their fetching with the work on this one.
        const qsizetype count = list.size();
        for (qsizetype i = 0; i < count; ++i) {
#if defined(__GNUC__)
            if (i + 2 < count)
                __builtin_prefetch(list.at(i + 2));
#endif
            child(list.at(i));
        }
    }

private:
    void fail(const QString& message);
    void failVersion(const QString& version);
    void reportOf(IXmlElement& child);

    XmlElementBase* m_report = nullptr;
    bool m_passed = true;
};

} // namespace KelXml
