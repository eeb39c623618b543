#include "XmlLayout.h"
#include "XmlElementReader.h"
#include "XmlKit.h"

namespace KelXml {

XmlField::XmlField(const char* name, bool required)
    : m_readName(QLatin1String(name))
    , m_writeName(m_readName)
    , m_required(required)
{}

XmlField XmlField::oneOf(std::initializer_list<XmlField> alternatives, const char* neitherMessage)
{
    XmlField field("", true);
    field.m_alternatives.assign(alternatives.begin(), alternatives.end());
    field.m_exclusive = true;
    field.m_countMessage = QLatin1String(neitherMessage);
    return field;
}

XmlField XmlField::single(std::vector<XmlField> kinds, const char* countMessage)
{
    XmlField field("", true);
    field.m_alternatives = std::move(kinds);
    field.m_countMessage = QLatin1String(countMessage);
    return field;
}

XmlField XmlField::unchecked() const
{
    XmlField copy(*this);
    copy.m_unchecked = true;
    return copy;
}

XmlField XmlField::writtenAs(const char* name) const
{
    XmlField copy(*this);
    copy.m_writeName = QLatin1String(name);
    return copy;
}

XmlField XmlField::notRequired() const
{
    XmlField copy(*this);
    copy.m_required = false;
    return copy;
}

XmlField XmlField::refusedBy(std::initializer_list<const char*> names) const
{
    XmlField copy(*this);
    for (const char* name : names)
        copy.m_refusedBy.append(QLatin1String(name));
    return copy;
}

XmlField XmlField::after(std::initializer_list<const char*> names) const
{
    XmlField copy(*this);
    for (const char* name : names)
        copy.m_after.append(QLatin1String(name));
    return copy;
}

XmlField XmlField::anywhere() const
{
    XmlField copy(*this);
    copy.m_anywhere = true;
    return copy;
}

XmlField XmlField::replaced() const
{
    XmlField copy(*this);
    copy.m_replaced = true;
    return copy;
}

XmlField XmlField::repeated() const
{
    XmlField copy(*this);
    copy.m_repeated = true;
    return copy;
}

void XmlField::write(const XmlElementBase& owner, QXmlStreamWriter& writer) const
{
    if (!m_alternatives.empty()) {
        for (const XmlField& alternative : m_alternatives)
            alternative.write(owner, writer);
    } else if (m_write) {
        m_write(owner, writer, m_writeName);
    } else if (const IXmlElement* child = m_get(owner)) {
        child->produceXml(writer, m_writeName);
    }
}

void XmlField::check(const XmlElementBase& owner, XmlChecks& checks) const
{
    if (m_unchecked)
        return;
    if (!m_alternatives.empty()) {
        XmlElementBase* present = nullptr;
        int count = 0;
        for (const XmlField& alternative : m_alternatives) {
            if (XmlElementBase* child = alternative.m_get(owner)) {
                present = child;
                ++count;
                if (!m_exclusive)
                    checks.child(child);
            }
        }
        if (m_exclusive && count == 1)
            checks.child(present);
        checks.expect(m_required ? count == 1 : count <= 1, m_countMessage);
    } else if (m_check) {
        m_check(owner, checks);
    } else if (m_get) {
        checks.child(m_get(owner));
    }
}

bool XmlSeen::has(const QString& name) const
{
    const int index = m_layout.entryIndex(name);
    return index >= 0 && ((m_entries >> index) & 1u);
}

QStringList XmlSeen::among(const QStringList& names) const
{
    QStringList present;
    for (const QString& name : names) {
        if (has(name))
            present.append(name);
    }
    return present;
}

XmlLayout::XmlLayout(const char* classname, XmlElementReader::Wording wording, VersionRule version,
                     std::vector<XmlField> fields)
    : m_identity(new Identity{QLatin1String(classname), this})
    , m_wording(wording)
    , m_version(version)
    , m_fields(std::move(fields))
{
    index();
}

XmlLayout::XmlLayout(const XmlLayout& other)
    : m_identity(new Identity{other.classname(), this})
    , m_wording(other.m_wording)
    , m_version(other.m_version)
    , m_positionTest(other.m_positionTest)
    , m_fields(other.m_fields)
    , m_complete(other.m_complete)
{
    index();
}

XmlLayout& XmlLayout::operator=(const XmlLayout& other)
{
    if (this != &other) {
        m_identity->classname = other.classname();
        m_wording = other.m_wording;
        m_version = other.m_version;
        m_positionTest = other.m_positionTest;
        m_fields = other.m_fields;
        m_complete = other.m_complete;
        index();
    }
    return *this;
}

XmlLayout XmlLayout::withoutPositionTest() const
{
    XmlLayout copy(*this);
    copy.m_positionTest = false;
    return copy;
}

XmlLayout XmlLayout::completeWhen(std::function<bool(const XmlSeen&)> complete) const
{
    XmlLayout copy(*this);
    copy.m_complete = std::move(complete);
    return copy;
}

// One entry per child that can be read, each choice's alternatives sharing
// the choice's slot; slots follow the table order.
void XmlLayout::index()
{
    m_entries.clear();
    m_required = 0;
    for (size_t slot = 0; slot < m_fields.size(); ++slot) {
        const XmlField& field = m_fields[slot];
        if (field.m_required)
            m_required |= quint64(1) << slot;
        if (field.m_alternatives.empty()) {
            m_entries.push_back({&field, int(slot), 0, 0, false});
        } else {
            for (const XmlField& alternative : field.m_alternatives)
                m_entries.push_back({&alternative, int(slot), 0, 0, true});
        }
    }
    for (Entry& entry : m_entries) {
        entry.name = entry.field->m_readName;
        entry.read = entry.field->m_replaced ? &entry.field->m_replace : &entry.field->m_read;
        const XmlField& group = m_fields[size_t(entry.slot)];
        if (entry.inGroup && group.m_exclusive)
            entry.group = &group;
        entry.needs = maskOf(entry.inGroup ? group.m_after : entry.field->m_after);
    }
    Q_ASSERT(m_entries.size() <= 64);
    m_namesUnique = true;
    for (size_t i = 0; i < m_entries.size(); ++i) {
        if (entryIndex(m_entries[i].field->m_readName) != int(i))
            m_namesUnique = false;
    }
    for (Entry& entry : m_entries) {
        const quint64 own = quint64(1) << entry.slot;
        if (!entry.field->m_refusedBy.isEmpty())
            entry.refusers = maskOf(entry.field->m_refusedBy);
        else if (entry.field->m_anywhere)
            entry.refusers = own;
        else if (entry.field->m_repeated)
            entry.refusers = ~((own << 1) - 1); // every later slot
        else
            entry.refusers = ~(own - 1); // this slot and every later one
    }
}

quint64 XmlLayout::maskOf(const QStringList& names) const
{
    quint64 mask = 0;
    for (const Entry& entry : m_entries) {
        if (names.contains(entry.field->m_readName))
            mask |= quint64(1) << entry.slot;
    }
    return mask;
}

int XmlLayout::entryIndex(const QString& name) const
{
    for (size_t i = 0; i < m_entries.size(); ++i) {
        if (m_entries[i].field->m_readName == name)
            return int(i);
    }
    return -1;
}

const XmlLayout::Entry* XmlLayout::entryFor(QStringView name, size_t from) const
{
    const size_t count = m_entries.size();
    if (!m_namesUnique || from >= count)
        from = 0;
    for (size_t i = from; i < count; ++i) {
        if (XmlKit::sameName(m_entries[i].name, name))
            return &m_entries[i];
    }
    for (size_t i = 0; i < from; ++i) {
        if (XmlKit::sameName(m_entries[i].name, name))
            return &m_entries[i];
    }
    return nullptr;
}

void XmlLayout::read(XmlElementBase& owner, XmlText& version, QXmlStreamReader& reader,
                     const QString& elementName) const
{
    XmlElementReader in(owner, reader, elementName, m_wording);
    if (begin(version, in))
        readChildren(owner, in);
}

bool XmlLayout::begin(XmlText& version, XmlElementReader& in) const
{
    if (m_version == NoVersion)
        return !m_positionTest || in.atStartTag();
    if (!in.begin(version))
        return false;
    return m_version != CheckedVersion || in.checkVersion(version);
}

bool XmlLayout::readChild(XmlElementBase& owner, XmlElementReader& in, QStringView name,
                          Progress& progress) const
{
    const Entry* entry = entryFor(name, progress.last);
    if (!entry || (progress.order & entry->refusers) ||
        (entry->needs && !(progress.order & entry->needs)))
        return false;
    const XmlField& field = *entry->field;
    if (entry->group) {
        for (const XmlField& other : entry->group->m_alternatives) {
            if (&other != &field)
                other.m_clear(owner);
        }
    }
    // The child reads under the table's copy of its name, equal to the tag.
    IXmlElement* child = (*entry->read)(owner, in.reader(), field.m_readName);
    if (child && field.m_afterRead)
        field.m_afterRead(owner, *child);
    progress.order |= quint64(1) << entry->slot;
    const size_t index = size_t(entry - m_entries.data());
    progress.entries |= quint64(1) << index;
    progress.last = index;
    return true;
}

void XmlLayout::readChildren(XmlElementBase& owner, XmlElementReader& in) const
{
    struct Children : XmlElementReader::Tokens
    {
        const XmlLayout& layout;
        XmlElementBase& owner;
        XmlElementReader& in;
        Progress progress;

        bool start(QStringView name) { return layout.readChild(owner, in, name, progress); }
        bool mayEnd()
        {
            return (progress.order & layout.m_required) == layout.m_required &&
                   (!layout.m_complete || layout.m_complete(XmlSeen(layout, progress.entries)));
        }
    } tokens{{}, *this, owner, in, {}};
    in.loop(tokens);
}

void XmlLayout::write(const XmlElementBase& owner, const XmlText& version, QXmlStreamWriter& writer,
                      const QString& elementName) const
{
    if (m_version == NoVersion)
        writer.writeStartElement(elementName);
    else
        XmlKit::writeStartElement(writer, elementName, version);
    for (const XmlField& field : m_fields)
        field.write(owner, writer);
    writer.writeEndElement();
}

void XmlLayout::checkChildren(const XmlElementBase& owner, XmlChecks& checks) const
{
    for (const XmlField& field : m_fields)
        field.check(owner, checks);
}

void XmlLayout::resetChildren(XmlElementBase& owner) const
{
    for (const Entry& entry : m_entries) {
        if (entry.field->m_clear)
            entry.field->m_clear(owner);
    }
}

} // namespace KelXml
