#pragma once

#include "XmlElementBase.h"

namespace KelXml {

class XmlLayout;

/// The base of an element made of child elements. Its class states the
/// children once, in a table (an XmlLayout, built in the class's source), and
/// this base reads, writes, checks and resets them from that table.
///
/// The version field is held here for every composite; the classes that carry
/// a version attribute derive from XmlVersionedComposite, which publishes it.
/// \ingroup framework
class KELXML_EXPORT XmlComposite : public XmlElementBase
{
public:
    void processXml(QXmlStreamReader& reader, const QString& elementName) override;
    void produceXml(QXmlStreamWriter& writer, const QString& elementName) const override;
    void reset() override;

protected:
    explicit XmlComposite(const XmlLayout& layout);

    /// processXml() for a class that adds a step of its own: true when the
    /// reading ended at the element's own end tag.
    bool readElement(QXmlStreamReader& reader, const QString& elementName);

    /// The version, then every child in table order.
    void checkContent(XmlChecks& checks) const override;
    /// The two halves of checkContent(), for a class that states rules of its
    /// own between them.
    void checkVersion(XmlChecks& checks) const;
    void checkChildren(XmlChecks& checks) const;
    bool supportsVersion() const;
    /// The name of the row that holds the child.
    const QString* writtenNameOf(const XmlElementBase& child) const override;
    /// The version, then the table's attributes and children.
    void describe(XmlWalker& walker, const QString& elementName) const override;

    XmlText m_version;

private:
    friend class XmlLayout;

    // The table this composite was made with (see XmlLayout's identity).
    const XmlLayout& layout() const;
};

/// A composite with a version attribute ("1.0", the only supported one).
/// \ingroup framework
class KELXML_EXPORT XmlVersionedComposite : public XmlComposite
{
public:
    /// The version attribute; only "1.0" is supported.
    QString version() const { return m_version; }
    void setVersion(const QString& version) { m_version = version; }

protected:
    using XmlComposite::XmlComposite;
};

} // namespace KelXml
