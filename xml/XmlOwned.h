#pragma once

#include <QList>

#include <utility>

namespace KelXml {

/// An owning pointer to a child element with value semantics: copying the
/// owner copies the child. Assignment assigns child to child when both exist,
/// allocates a copy when only the source has one, and deletes the own child
/// when the source has none.
/// \ingroup framework
template <class T>
class XmlOwnedPtr
{
public:
    XmlOwnedPtr() = default;
    explicit XmlOwnedPtr(T* owned)
        : m_ptr(owned)
    {}
    /// A pointer to a default-constructed child.
    static XmlOwnedPtr make() { return XmlOwnedPtr(new T); }

    XmlOwnedPtr(const XmlOwnedPtr& other)
        : m_ptr(other.m_ptr ? new T(*other.m_ptr) : nullptr)
    {}
    XmlOwnedPtr(XmlOwnedPtr&& other) noexcept
        : m_ptr(std::exchange(other.m_ptr, nullptr))
    {}
    XmlOwnedPtr& operator=(const XmlOwnedPtr& other)
    {
        if (this == &other)
            return *this;
        if (!other.m_ptr)
            reset();
        else
            assign(*other.m_ptr);
        return *this;
    }
    XmlOwnedPtr& operator=(XmlOwnedPtr&& other) noexcept
    {
        if (this != &other) {
            delete m_ptr;
            m_ptr = std::exchange(other.m_ptr, nullptr);
        }
        return *this;
    }
    ~XmlOwnedPtr() { reset(); }

    /// The child; null when there is none.
    T* get() const { return m_ptr; }
    T* operator->() const { return m_ptr; }
    T& operator*() const { return *m_ptr; }
    explicit operator bool() const { return m_ptr != nullptr; }

    /// Deletes the child; the pointer is null afterwards.
    void reset()
    {
        delete m_ptr;
        m_ptr = nullptr;
    }
    /// The child, allocated with its defaults when there is none.
    T& ensure()
    {
        if (!m_ptr)
            m_ptr = new T;
        return *m_ptr;
    }
    /// Assigns the value into the existing child, or allocates a copy of it.
    void assign(const T& value)
    {
        if (m_ptr)
            *m_ptr = value;
        else
            m_ptr = new T(value);
    }

private:
    T* m_ptr = nullptr;
};

/// An ordered list of owned child elements. Copying the list copies every
/// member; the members are deleted with the list.
/// \ingroup framework
template <class T>
class XmlOwnedList
{
public:
    XmlOwnedList() = default;
    XmlOwnedList(const XmlOwnedList& other) { m_list = copiesOf(other.m_list); }
    XmlOwnedList& operator=(const XmlOwnedList& other)
    {
        if (this != &other)
            assignCopies(other.m_list);
        return *this;
    }
    ~XmlOwnedList() { clear(); }

    /// The members, which the list owns.
    const QList<T*>& list() const { return m_list; }
    bool isEmpty() const { return m_list.isEmpty(); }
    int size() const { return int(m_list.size()); }

    void clear()
    {
        const QList<T*> members = std::exchange(m_list, QList<T*>());
        for (T* member : members)
            delete member;
    }
    /// Replaces the members with copies of the given objects, which stay the
    /// caller's. Null entries are skipped; passing the own list is safe.
    void assignCopies(const QList<T*>& objects)
    {
        QList<T*> copies = copiesOf(objects);
        clear();
        m_list = std::move(copies);
    }
    /// Appends a copy of the object, which stays the caller's.
    void appendCopy(const T& object) { m_list.append(new T(object)); }
    /// Appends a default-constructed member and returns it.
    T* appendNew()
    {
        // Most lists of a message hold a handful of members: those grow one
        // slot at a time and hold no spare room; longer ones grow as usual.
        constexpr int exactUpTo = 8;
        if (m_list.size() < exactUpTo)
            m_list.reserve(m_list.size() + 1);
        T* member = new T;
        m_list.append(member);
        return member;
    }

private:
    static QList<T*> copiesOf(const QList<T*>& objects)
    {
        QList<T*> copies;
        copies.reserve(objects.size());
        for (const T* object : objects) {
            if (object)
                copies.append(new T(*object));
        }
        return copies;
    }

    QList<T*> m_list;
};

} // namespace KelXml
