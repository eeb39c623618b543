#pragma once

#include "XmlGeoFeatures.h"

#include <QString>

#include <vector>

namespace KelXml {

class IXmlElement;

/// What the root element of a document shows of its kind: the name of the
/// root itself is the caller's choice, but its attributes and children are
/// not (XmlDocumentReader::readRootShape()).
/// \ingroup framework
struct KELXML_EXPORT XmlRootShape
{
    /// The root carries a "type" attribute.
    bool hasType = false;
    /// The name of its first child element; empty when it has none.
    QString firstChild;
    /// Whether one of its children is named "Automatic" or "Interactive".
    bool hasResponseContent = false;
};

/// One kind of whole document that the client and the server exchange: a
/// scenario snapshot, a command message or a response message.
///
/// The kinds are one table (XmlDocumentKind::all(), a row each in
/// `XmlDocumentKind.cpp`). The table gives the registry the short name of each
/// root class ("command" for XmlCmdRoot, so that
/// `XmlDocumentReader().read("command", message)` and `kelxml check --as command`
/// work), the tool its map commands, and the build one fuzz target a row. A
/// new kind of document is one row there, its root class being registered as
/// every class is.
/// \ingroup framework
struct KELXML_EXPORT XmlDocumentKind
{
    /// The kind's short name, which the registry takes as its root class's
    /// alias: "command".
    const char* name;
    /// The registry class of the root element: "XmlCmdRoot".
    const char* rootClass;
    /// The name the root element carries in the documents the services
    /// exchange: "Command". The reader takes a root of any name; this is the
    /// name that tells the kind of a document from its first tag.
    const char* rootElement;
    /// The libFuzzer target that feeds arbitrary bytes to the entry point as
    /// a document of this kind: "fuzz_command" (fuzz/CMakeLists.txt builds
    /// one a row).
    const char* fuzzTarget;
    /// Calls visit once per geographic object of a root of this kind, as
    /// visitGeoFeatures() does, and returns true; false, visiting nothing,
    /// for an element of another class. Null when the kind has no map. A kind
    /// whose documents name objects that another document holds (a
    /// response) looks them up in beside and appends the names it cannot
    /// resolve to unresolved (when given); the others hold their objects and
    /// pass both by.
    bool (*visitGeoFeatures)(const IXmlElement& root, const XmlGeoLookup& beside,
                             const XmlGeoVisitor& visit, QStringList* unresolved);

    /// Whether a root of this shape is a document of this kind. The rows
    /// exclude each other: at most one recognises a shape.
    bool (*recognises)(const XmlRootShape& root);
    /// Whether the tool draws documents of this kind (geojson, svg).
    bool hasMap() const { return visitGeoFeatures != nullptr; }

    /// Every kind, in the order the tool names them.
    static const std::vector<XmlDocumentKind>& all();
    /// The kind of that name or root class; null when there is none.
    static const XmlDocumentKind* find(const QString& nameOrRootClass);
    /// The kind whose row recognises the root; null when none does (an
    /// empty root, or one that looks like no document).
    static const XmlDocumentKind* recognise(const XmlRootShape& root);
};

} // namespace KelXml
