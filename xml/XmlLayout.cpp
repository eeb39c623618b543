#include "XmlLayout.h"

#include "XmlDateTime.h"
#include "XmlElementReader.h"
#include "XmlEnumTexts.h"
#include "XmlKit.h"
#include "XmlNumberText.h"

#include <QXmlStreamAttributes>

namespace KelXml {

XmlField::XmlField(const char* name, bool required, Kind kind)
    : m_readName(QLatin1String(name))
    , m_writeName(m_readName)
    , m_kind(kind)
    , m_required(required)
{}

XmlField XmlField::marker(const char* name)
{
    return XmlField(name, false, Marker);
}

XmlField XmlField::wrapper(const char* name, std::initializer_list<XmlField> rows)
{
    XmlField field(name, true, Wrapper);
    field.m_rows.assign(rows.begin(), rows.end());
    for (XmlField& row : field.m_rows)
        row.prefixPath(field.m_writeName);
    return field;
}

void XmlField::prefixPath(const QString& wrapper)
{
    if (m_kind == Wrapper || m_kind == Group) {
        for (XmlField& row : m_rows)
            row.prefixPath(wrapper);
    } else {
        m_pathName = wrapper + QLatin1Char('/') + *pathName();
    }
}

XmlField XmlField::oneOf(std::initializer_list<XmlField> alternatives, const char* neitherMessage)
{
    XmlField field("", true, Group);
    field.m_rows.assign(alternatives.begin(), alternatives.end());
    field.m_exclusive = true;
    field.m_countMessage = QLatin1String(neitherMessage);
    return field;
}

XmlField XmlField::single(std::vector<XmlField> kinds, const char* countMessage)
{
    XmlField field("", true, Group);
    field.m_rows = std::move(kinds);
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

XmlField XmlField::required() const
{
    XmlField copy(*this);
    copy.m_required = true;
    return copy;
}

XmlField XmlField::atLeastOne(const char* emptyMessage) const
{
    XmlField copy = required();
    copy.m_countMessage = QLatin1String(emptyMessage);
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

XmlField XmlField::failsWith(const char* message) const
{
    XmlField copy(*this);
    copy.m_message = QLatin1String(message);
    return copy;
}

XmlField XmlField::notWritten() const
{
    XmlField copy(*this);
    copy.m_written = false;
    return copy;
}

XmlField::Outcome XmlField::take(QString& value, QStringView text) const
{
    if (text.isEmpty() && !m_missing.isNull())
        return Missing;
    value = text.toString();
    return Taken;
}

XmlField::Outcome XmlField::take(XmlText& value, QStringView text) const
{
    if (text.isEmpty() && !m_missing.isNull())
        return Missing;
    value.assign(text);
    return Taken;
}

XmlField::Outcome XmlField::take(double& value, QStringView text) const
{
    bool ok = false;
    value = XmlKit::toDouble(text, &ok);
    return Taken;
}

XmlField::Outcome XmlField::take(int& value, QStringView text) const
{
    if (text.isEmpty() && !m_missing.isNull())
        return Missing;
    bool ok = false;
    const int number = XmlKit::toInt(text, &ok);
    value = ok ? number : m_fallback;
    return ok ? Taken : Refused;
}

XmlField::Outcome XmlField::take(bool& value, QStringView text) const
{
    const QString given = text.toString();
    if (given.toUpper() == QLatin1String("TRUE") || given == QLatin1String("1"))
        value = true;
    else if (given.toUpper() == QLatin1String("FALSE") || given == QLatin1String("0"))
        value = false;
    else
        return Refused;
    return Taken;
}

XmlField::Outcome XmlField::take(QDateTime& value, QStringView text) const
{
    value = XmlKit::parseDateTime(text.toString());
    return value.isValid() ? Taken : Refused;
}

XmlField::Outcome XmlField::takeEnumeration(int& value, QStringView text) const
{
    const std::optional<int> parsed = m_texts->parse(text);
    value = parsed.value_or(0);
    return parsed ? Taken : Refused;
}

QString XmlField::format(double value) const
{
    return XmlKit::numberText(value, m_numberFormat, m_precision);
}

QString XmlField::format(int value) const
{
    return QString::number(value);
}

QString XmlField::format(bool value) const
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

QString XmlField::format(const QDateTime& value) const
{
    return XmlKit::formatDateTime(value);
}

QString XmlField::formatEnumeration(int value) const
{
    return m_texts->text(value);
}

void XmlField::write(const XmlElementBase& owner, QXmlStreamWriter& writer) const
{
    if (!m_written)
        return;
    switch (m_kind) {
    case Child:
        if (m_write) {
            m_write(*this, owner, writer);
        } else if (const IXmlElement* child = m_get(*this, owner)) {
            child->produceXml(writer, m_writeName);
        }
        break;
    case Text:
    case Characters:
        writer.writeTextElement(m_writeName, m_format(*this, owner));
        break;
    case Marker:
        if (m_when && m_when(*this, owner))
            writer.writeEmptyElement(m_writeName);
        break;
    case Wrapper:
        if (m_when && !m_when(*this, owner))
            break;
        if (m_rows.empty()) {
            writer.writeEmptyElement(m_writeName);
            break;
        }
        writer.writeStartElement(m_writeName);
        for (const XmlField& row : m_rows)
            row.write(owner, writer);
        writer.writeEndElement();
        break;
    case Group:
        for (const XmlField& alternative : m_rows)
            alternative.write(owner, writer);
        break;
    case Attribute:
        break;
    }
}

XmlValue XmlField::valueOf(const XmlElementBase& owner) const
{
    return m_typed ? m_typed(*this, owner) : XmlValue::text(m_format(*this, owner));
}

void XmlField::describe(const XmlElementBase& owner, XmlWalker& walker) const
{
    if (!m_written || !walker.wantsMore())
        return;
    switch (m_kind) {
    case Child:
        if (m_walkItems)
            m_walkItems(*this, owner, walker);
        else
            walker.child(m_get(*this, owner), m_writeName);
        break;
    case Text:
    case Characters:
        walker.textElement(m_writeName, valueOf(owner));
        break;
    case Marker:
        if (m_when && m_when(*this, owner)) {
            walker.enter(m_writeName, QString(), nullptr);
            walker.leave();
        }
        break;
    case Wrapper:
        if (m_when && !m_when(*this, owner))
            break;
        walker.enter(m_writeName, QString(), nullptr);
        for (const XmlField& row : m_rows)
            row.describe(owner, walker);
        walker.leave();
        break;
    case Group:
        for (const XmlField& alternative : m_rows)
            alternative.describe(owner, walker);
        break;
    case Attribute:
        break;
    }
}

void XmlField::check(const XmlElementBase& owner, XmlChecks& checks) const
{
    if (m_unchecked)
        return;
    if (m_kind == Child) {
        if (m_check)
            m_check(*this, owner, checks);
        else
            checks.child(m_get(*this, owner), pathName());
    } else if (m_kind == Wrapper) {
        for (const XmlField& row : m_rows)
            row.check(owner, checks);
    } else if (m_kind == Group) {
        checkGroup(owner, checks);
    }
}

const QString* XmlField::nameOf(const XmlElementBase& owner, const XmlElementBase& child) const
{
    if (m_kind == Wrapper || m_kind == Group) {
        for (const XmlField& row : m_rows) {
            if (const QString* name = row.nameOf(owner, child))
                return name;
        }
        return nullptr;
    }
    if (m_kind != Child)
        return nullptr;
    const bool holds =
        m_holds ? m_holds(*this, owner, child) : m_get && m_get(*this, owner) == &child;
    return holds ? pathName() : nullptr;
}

void XmlField::checkGroup(const XmlElementBase& owner, XmlChecks& checks) const
{
    XmlElementBase* present = nullptr;
    const QString* presentName = nullptr;
    int count = 0;
    for (const XmlField& alternative : m_rows) {
        XmlElementBase* child = alternative.m_get ? alternative.m_get(alternative, owner) : nullptr;
        if (child) {
            present = child;
            presentName = alternative.pathName();
            ++count;
            if (!m_exclusive)
                checks.child(child, presentName);
        }
    }
    if (m_exclusive && count == 1)
        checks.child(present, presentName);
    checks.expect(m_required ? count == 1 : count <= 1, m_countMessage);
}

const QString* XmlLayout::nameOf(const XmlElementBase& owner, const XmlElementBase& child) const
{
    for (const XmlField& field : m_fields) {
        if (const QString* name = field.nameOf(owner, child))
            return name;
    }
    return nullptr;
}

XmlField XmlAttribute::refusedAsIllegal(const XmlField& field)
{
    XmlField copy(field);
    copy.m_message = XmlElementReader::illegalAttributeMessage(field.m_readName);
    return copy;
}

XmlField XmlAttribute::required(const XmlField& field, const char* missing)
{
    XmlField copy(field);
    copy.m_missing = missing ? QString(QLatin1String(missing))
                             : XmlElementReader::missingAttributeMessage(field.m_readName);
    return copy;
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
{
    for (XmlField& field : fields) {
        if (field.m_kind == XmlField::Attribute)
            m_attributes.push_back(std::move(field));
        else
            m_fields.push_back(std::move(field));
    }
    index();
}

XmlLayout::XmlLayout(const XmlLayout& other)
    : m_identity(new Identity{other.classname(), this})
    , m_wording(other.m_wording)
    , m_version(other.m_version)
    , m_positionTest(other.m_positionTest)
    , m_attributes(other.m_attributes)
    , m_fields(other.m_fields)
    , m_complete(other.m_complete)
    , m_textFunction(other.m_textFunction)
    , m_onText(other.m_onText)
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
        m_attributes = other.m_attributes;
        m_fields = other.m_fields;
        m_complete = other.m_complete;
        m_textFunction = other.m_textFunction;
        m_onText = other.m_onText;
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

XmlLayout XmlLayout::completeWhen(bool (*complete)(const XmlSeen&)) const
{
    XmlLayout copy(*this);
    copy.m_complete = complete;
    return copy;
}

// One entry per row that can be read, each choice's alternatives sharing the
// choice's slot, and a wrapper's rows following the wrapper; slots follow the
// table order. A row is refused by the rows of its own level only: those of
// the element, or those of the same wrapper.
void XmlLayout::index()
{
    m_entries.clear();
    m_required = 0;
    int slot = 0;
    quint64 level = 0;
    for (const XmlField& field : m_fields)
        indexRow(field, slot, -1, level);
    Q_ASSERT(m_entries.size() <= 64);
    // The masks of each level: the element's own rows, and each wrapper's.
    quint64 levels[maxOpen] = {};
    for (const Entry& entry : m_entries) {
        if (entry.within >= 0)
            levels[entry.within] |= quint64(1) << entry.slot;
    }
    m_takesText = m_onText != nullptr;
    for (Entry& entry : m_entries) {
        const XmlField& field = *entry.field;
        entry.name = field.m_readName;
        const XmlField* group = entry.group;
        entry.needs = maskOf(group ? group->m_after : field.m_after);
        if (group && !group->m_exclusive)
            entry.group = nullptr; // only a choice deletes the others
        const quint64 own = quint64(1) << entry.slot;
        const quint64 ownLevel = entry.within >= 0 ? levels[entry.within] : level;
        if (!field.m_refusedBy.isEmpty())
            entry.refusers = maskOf(field.m_refusedBy);
        else if (field.m_anywhere)
            entry.refusers = field.m_repeated ? 0 : own;
        else if (field.m_repeated)
            entry.refusers = ~((own << 1) - 1) & ownLevel; // every later slot
        else
            entry.refusers = ~(own - 1) & ownLevel; // this slot and every later one
        if (entry.group && field.m_repeated && field.m_refusedBy.isEmpty()) {
            // The choice's place stays open to this alternative until another is read.
            for (size_t i = 0; i < m_entries.size(); ++i) {
                if (m_entries[i].group == entry.group && &m_entries[i] != &entry)
                    entry.others |= quint64(1) << i;
            }
        }
        if (entry.kind == XmlField::Wrapper) {
            for (const Entry& row : m_entries) {
                if (row.within == entry.open && row.field->m_required)
                    entry.rowsRequired |= quint64(1) << row.slot;
            }
        }
        if (entry.kind == XmlField::Characters)
            m_takesText = true;
    }
    for (size_t i = 0; i < m_entries.size(); ++i) {
        Entry& entry = m_entries[i];
        entry.index = quint8(i);
        entry.slotBit = quint64(1) << entry.slot;
        entry.entryBit = quint64(1) << i;
        entry.rare = entry.others || entry.needs || entry.within >= 0;
    }
    m_namesUnique = true;
    for (size_t i = 0; i < m_entries.size(); ++i) {
        if (entryIndex(m_entries[i].field->m_readName) != int(i))
            m_namesUnique = false;
    }
}

void XmlLayout::indexRow(const XmlField& field, int& slot, qint8 within, quint64& level)
{
    const int own = slot++;
    if (within < 0) {
        level |= quint64(1) << own;
        if (field.m_required)
            m_required |= quint64(1) << own;
    }
    if (field.m_kind == XmlField::Group) {
        for (const XmlField& alternative : field.m_rows) {
            Entry entry{&alternative, own};
            entry.within = within;
            entry.kind = alternative.m_kind;
            entry.group = &field;
            m_entries.push_back(entry);
        }
        return;
    }
    Entry entry{&field, own};
    entry.within = within;
    entry.kind = field.m_kind;
    if (field.m_kind == XmlField::Wrapper || field.m_kind == XmlField::Characters) {
        int opened = 0;
        for (const Entry& other : m_entries)
            opened += other.open >= 0 ? 1 : 0;
        Q_ASSERT(opened < maxOpen);
        entry.open = qint8(opened);
    }
    m_entries.push_back(entry);
    quint64 unused = 0;
    for (const XmlField& row : field.m_rows)
        indexRow(row, slot, entry.open, unused);
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

inline const XmlLayout::Entry* XmlLayout::entryFor(QStringView name, size_t from) const
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

bool XmlLayout::read(XmlElementBase& owner, XmlText& version, QXmlStreamReader& reader,
                     const QString& elementName) const
{
    XmlElementReader in(owner, reader, elementName, m_wording);
    return begin(owner, version, in) && readChildren(owner, in);
}

bool XmlLayout::begin(XmlElementBase& owner, XmlText& version, XmlElementReader& in) const
{
    if (m_version == NoVersion) {
        if (m_positionTest && !in.atStartTag())
            return false;
    } else if (!in.begin(version)) {
        return false;
    }
    if (!m_attributes.empty() && !readAttributes(owner, in))
        return false;
    return m_version != CheckedVersion || in.checkVersion(version);
}

bool XmlLayout::readAttributes(XmlElementBase& owner, XmlElementReader& in) const
{
    const QXmlStreamAttributes attributes = in.reader().attributes();
    for (const XmlField& field : m_attributes) {
        const QStringView value = XmlElementReader::attributeIn(attributes, field.m_readName);
        switch (field.m_take(field, owner, value)) {
        case XmlField::Taken:
            break;
        case XmlField::Refused:
            in.fail(field.m_message);
            break;
        case XmlField::Missing:
            in.fail(field.m_missing);
            break;
        }
    }
    return !in.failed();
}

void XmlLayout::markRead(const Entry& entry, Progress& progress)
{
    progress.order |= entry.slotBit;
    progress.entries |= entry.entryBit;
    progress.last = entry.index;
}

inline bool XmlLayout::start(XmlElementBase& owner, XmlElementReader& in, QStringView name,
                             Progress& progress) const
{
    // A text holds no element.
    const Entry* entry = progress.text < 0 ? entryFor(name, progress.last) : nullptr;
    if (!entry || (progress.order & entry->refusers))
        return false;
    if (entry->rare &&
        ((progress.entries & entry->others) || (entry->needs && !(progress.order & entry->needs)) ||
         (entry->within >= 0 && !progress.open[entry->within])))
        return false;
    const XmlField& field = *entry->field;
    if (entry->kind != XmlField::Child || entry->group)
        return startOther(owner, in, *entry, progress);
    // The child reads under the table's copy of its name, equal to the tag.
    IXmlElement* child = field.m_read(field, owner, in.reader());
    if (field.m_afterRead)
        field.m_afterRead(field, owner, child);
    markRead(*entry, progress);
    return true;
}

bool XmlLayout::startOther(XmlElementBase& owner, XmlElementReader& in, const Entry& entry,
                           Progress& progress) const
{
    const XmlField& field = *entry.field;
    switch (entry.kind) {
    case XmlField::Wrapper:
        progress.open[entry.open] = field.m_repeated ? progress.open[entry.open] + 1 : 1;
        progress.last = entry.index;
        return true;
    case XmlField::Characters:
        progress.text = entry.index;
        progress.last = entry.index;
        return true;
    default:
        break;
    }
    if (entry.group) {
        for (const XmlField& other : entry.group->m_rows) {
            if (&other != &field && other.m_clear)
                other.m_clear(other, owner);
        }
    }
    IXmlElement* child = nullptr;
    if (entry.kind == XmlField::Child) {
        child = field.m_read(field, owner, in.reader());
    } else if (entry.kind == XmlField::Text) {
        const QString text = in.reader().readElementText();
        if (field.m_take(field, owner, text) != XmlField::Taken && !field.m_message.isNull())
            in.fail(field.m_message);
    }
    if (field.m_afterRead && (child || entry.kind == XmlField::Marker))
        field.m_afterRead(field, owner, child);
    markRead(entry, progress);
    return true;
}

bool XmlLayout::passEnd(XmlElementBase& owner, QStringView name, Progress& progress) const
{
    const Entry* entry = entryFor(name, progress.last);
    if (!entry)
        return false;
    switch (entry->kind) {
    case XmlField::Marker:
        return true;
    case XmlField::Wrapper: {
        quint32& open = progress.open[entry->open];
        if (!open || (progress.order & entry->rowsRequired) != entry->rowsRequired)
            return false;
        --open;
        markRead(*entry, progress);
        const XmlField& field = *entry->field;
        if (field.m_afterRead)
            field.m_afterRead(field, owner, nullptr);
        return true;
    }
    case XmlField::Characters:
        if (progress.text != entry->index)
            return false;
        progress.text = -1;
        if (!entry->field->m_countsWithText || (progress.held & entry->entryBit))
            markRead(*entry, progress);
        return true;
    default:
        return false;
    }
}

void XmlLayout::text(XmlElementBase& owner, XmlElementReader& in, QStringView text,
                     Progress& progress) const
{
    if (progress.text >= 0) {
        const XmlField& field = *m_entries[size_t(progress.text)].field;
        if (field.m_take(field, owner, text) == XmlField::Taken)
            progress.held |= m_entries[size_t(progress.text)].entryBit;
    } else if (m_onText) {
        m_onText(*this, owner, in, text);
    }
}

bool XmlLayout::mayEnd(const Progress& progress) const
{
    return (progress.order & m_required) == m_required &&
           (!m_complete || m_complete(XmlSeen(*this, progress.entries)));
}

struct XmlLayout::Children : XmlElementReader::Tokens
{
    const XmlLayout& layout;
    XmlElementBase& owner;
    XmlElementReader& in;
    Progress progress;

    bool start(QStringView name) { return layout.start(owner, in, name, progress); }
    bool passEnd(QStringView name) { return layout.passEnd(owner, name, progress); }
    bool mayEnd() { return layout.mayEnd(progress); }
};

struct XmlLayout::TextChildren : Children
{
    void text(QStringView text) { layout.text(owner, in, text, progress); }
};

bool XmlLayout::readChildren(XmlElementBase& owner, XmlElementReader& in) const
{
    // Character data is fetched only for a table that takes it.
    if (m_takesText) {
        TextChildren tokens{{{}, *this, owner, in, {}}};
        return in.loop(tokens);
    }
    Children tokens{{}, *this, owner, in, {}};
    return in.loop(tokens);
}

void XmlLayout::write(const XmlElementBase& owner, const XmlText& version, QXmlStreamWriter& writer,
                      const QString& elementName) const
{
    if (m_version == NoVersion)
        writer.writeStartElement(elementName);
    else
        XmlKit::writeStartElement(writer, elementName, version);
    for (const XmlField& attribute : m_attributes) {
        if (attribute.m_written)
            writer.writeAttribute(attribute.m_writeName, attribute.m_format(attribute, owner));
    }
    for (const XmlField& field : m_fields)
        field.write(owner, writer);
    writer.writeEndElement();
}

void XmlLayout::describe(const XmlElementBase& owner, const XmlText& version,
                         XmlWalker& walker) const
{
    if (m_version != NoVersion)
        walker.attribute(XmlKit::versionAttribute, XmlValue::text(version.toString()));
    for (const XmlField& attribute : m_attributes) {
        if (attribute.m_written)
            walker.attribute(attribute.m_writeName, attribute.valueOf(owner));
    }
    for (const XmlField& field : m_fields)
        field.describe(owner, walker);
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
            entry.field->m_clear(*entry.field, owner);
    }
}

} // namespace KelXml
