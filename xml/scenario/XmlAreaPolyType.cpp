#include "XmlAreaPolyType.h"

#include "XmlElementReader.h"
#include "XmlKit.h"
#include "XmlWalk.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace KelXml {

namespace {
// The name every message of the class carries.
const QString typeName = QStringLiteral("XmlAreaPolyType");

const QString vertexElement = QStringLiteral("Vertex");
const int minimumVertices = 3;

QVector<XmlNumCoordType*> copiesOf(const QVector<XmlNumCoordType*>& vertices)
{
    QVector<XmlNumCoordType*> copies;
    copies.reserve(vertices.size());
    for (const XmlNumCoordType* vertex : vertices) {
        if (vertex)
            copies.append(new XmlNumCoordType(*vertex));
    }
    return copies;
}

} // namespace

XmlAreaPolyType::XmlAreaPolyType()
    : XmlElementBase(PermanentName{&typeName})
    , m_version(XmlKit::defaultVersionText)
{}

XmlAreaPolyType::XmlAreaPolyType(const XmlAreaPolyType& other)
    : XmlElementBase(other)
    , m_version(other.m_version)
    , m_vertices(copiesOf(other.m_vertices))
{}

XmlAreaPolyType& XmlAreaPolyType::operator=(const XmlAreaPolyType& other)
{
    if (this == &other)
        return *this;
    XmlElementBase::operator=(other);
    m_version = other.m_version;
    QVector<XmlNumCoordType*> copies = copiesOf(other.m_vertices);
    deleteVertices();
    m_vertices = std::move(copies);
    return *this;
}

XmlAreaPolyType::~XmlAreaPolyType()
{
    deleteVertices();
}

void XmlAreaPolyType::processXml(QXmlStreamReader& reader, const QString& elementName)
{
    // A loop of its own: the vertices are a list that is sorted by number
    // once read, and the element may end only with enough of them.
    XmlElementReader in(*this, reader, elementName, XmlElementReader::NamedWording);
    if (!in.begin(m_version) || !in.checkVersion(m_version))
        return;
    struct Tokens : XmlElementReader::Tokens
    {
        XmlAreaPolyType& self;
        QXmlStreamReader& reader;

        // A vertex is kept even when its reading fails. Vertices are taken
        // in document order after those held, and sorted in once the reading
        // ends, however it ends.
        bool start(QStringView name)
        {
            if (!XmlKit::sameName(name, vertexElement))
                return false;
            auto vertex = std::make_unique<XmlNumCoordType>();
            self.m_vertices.append(vertex.get());
            vertex.release()->processXml(reader, vertexElement);
            return true;
        }
        bool mayEnd() { return self.m_vertices.size() >= minimumVertices; }
    } tokens{{}, *this, reader};
    const int held = int(m_vertices.size());
    in.loop(tokens);
    sortInFrom(held);
}

void XmlAreaPolyType::produceXml(QXmlStreamWriter& writer, const QString& elementName) const
{
    XmlKit::writeStartElement(writer, elementName, m_version);
    for (const XmlNumCoordType* vertex : m_vertices)
        vertex->produceXml(writer, vertexElement);
    writer.writeEndElement();
}

void XmlAreaPolyType::reset()
{
    deleteVertices();
    m_version = XmlKit::defaultVersionText;
    XmlElementBase::reset();
}

void XmlAreaPolyType::setVertices(const QVector<XmlNumCoordType*>& vertices)
{
    // Copied before the old vertices go: the list given may be our own.
    QVector<XmlNumCoordType*> copies = copiesOf(vertices);
    deleteVertices();
    m_vertices = std::move(copies);
    sortInFrom(0);
}

void XmlAreaPolyType::checkContent(XmlChecks& checks) const
{
    checks.version(supportsVersion(), m_version);
    // The walk stops at the first vertex out of order; later ones say nothing.
    int previous = -1;
    for (XmlNumCoordType* vertex : m_vertices) {
        checks.child(vertex, &vertexElement);
        if (!(vertex->number() > previous)) {
            checks.expect(false, QStringLiteral("Illegal numbering."));
            break;
        }
        previous = vertex->number();
    }
}

bool XmlAreaPolyType::supportsVersion() const
{
    return XmlKit::isSupportedVersion(m_version);
}

void XmlAreaPolyType::sortInFrom(int first)
{
    const int count = int(m_vertices.size());
    if (count - first < 2 && (first == 0 || first == count))
        return;
    const auto byNumber = [](const XmlNumCoordType* a, const XmlNumCoordType* b) {
        return a->number() < b->number();
    };
    // Stable: equal numbers keep the order in which they came.
    std::stable_sort(m_vertices.begin() + first, m_vertices.end(), byNumber);
    if (first == 0 || !byNumber(m_vertices.at(first), m_vertices.at(first - 1)))
        return;
    // Merged from the back, the largest first: each new vertex goes after the
    // last held one whose number is not greater, as inserting it alone from
    // the back would put it (also when a caller changed held numbers).
    QVector<XmlNumCoordType*> merged(count);
    int held = first - 1;
    int added = count - 1;
    for (int out = count - 1; out >= 0; --out) {
        if (added < first || (held >= 0 && byNumber(m_vertices.at(added), m_vertices.at(held))))
            merged[out] = m_vertices.at(held--);
        else
            merged[out] = m_vertices.at(added--);
    }
    m_vertices = std::move(merged);
}

void XmlAreaPolyType::deleteVertices()
{
    const QVector<XmlNumCoordType*> vertices = std::exchange(m_vertices, {});
    for (XmlNumCoordType* vertex : vertices)
        delete vertex;
}

void XmlAreaPolyType::describe(XmlWalker& walker, const QString&) const
{
    walker.attribute(XmlKit::versionAttribute, XmlValue::text(m_version));
    for (const XmlNumCoordType* vertex : m_vertices)
        walker.child(vertex, vertexElement);
}

} // namespace KelXml
