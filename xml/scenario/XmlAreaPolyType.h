#pragma once

#include "XmlElementBase.h"
#include "XmlNumCoordType.h"

#include <QVector>

namespace KelXml {

/// A polygon given by numbered vertices:
/// `<AreaPolygon version="1.0"><Vertex number="0"/><Vertex number="1"/>...</AreaPolygon>`.
///
/// The vertices are kept sorted by ascending number at every insertion;
/// vertices with equal numbers keep the order in which they came. Reading
/// refuses any version but "1.0" and needs at least three vertices before the
/// end tag; the check itself does not count them, it only wants every number
/// greater than the one before (the first greater than -1). Reading adds to the
/// vertices already held.
/// \ingroup scenario
class KELXML_EXPORT XmlAreaPolyType : public XmlElementBase
{
public:
    XmlAreaPolyType();
    XmlAreaPolyType(const XmlAreaPolyType& other);
    XmlAreaPolyType& operator=(const XmlAreaPolyType& other);
    ~XmlAreaPolyType() override;

    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

    /// The polygon's own vertices in order; they stay the polygon's.
    QVector<XmlNumCoordType*> vertices() const { return m_vertices; }
    /// Replaces the vertices with copies of the given ones, each in sorted
    /// position; the given objects stay the caller's.
    void setVertices(const QVector<XmlNumCoordType*>& vertices);

    QString version() const { return m_version; }
    void setVersion(const QString& version) { m_version = version; }

protected:
    void describe(XmlWalker& walker, const QString& elementName) const override;
    void checkContent(XmlChecks& checks) const override;

private:
    bool supportsVersion() const;
    /// Sorts the vertices from `first` on into those before it, each after
    /// the last one whose number is not greater: the order that taking them
    /// in one by one, searching from the back, gives, in O(n log n).
    void sortInFrom(int first);
    void deleteVertices();

    XmlText m_version;
    QVector<XmlNumCoordType*> m_vertices;
};

} // namespace KelXml
