#include "XmlDocumentKind.h"

#include "XmlCmdRoot.h"
#include "XmlKelBtType.h"

namespace KelXml {

namespace {

// The map of a kind whose root class has a visitGeoFeatures overload.
template <class Root>
bool visitRoot(const IXmlElement& root, const XmlGeoVisitor& visit)
{
    const auto* document = dynamic_cast<const Root*>(&root);
    if (document)
        visitGeoFeatures(*document, visit);
    return document != nullptr;
}

} // namespace

const std::vector<XmlDocumentKind>& XmlDocumentKind::all()
{
    // One row per kind, each on one line: fuzz/CMakeLists.txt reads the rows
    // from this file to build a fuzz target for each. The order is the one in
    // which the tool names the kinds ("--as scenario or --as command").
    static const std::vector<XmlDocumentKind> kinds = {
        // name       root class      root element  fuzz target      map
        {"scenario", "XmlKelBtType", "Scenario", "fuzz_scenario", &visitRoot<XmlKelBtType>},
        {"command", "XmlCmdRoot", "Command", "fuzz_command", &visitRoot<XmlCmdRoot>},
        {"response", "XmlRespRoot", "Response", "fuzz_response", nullptr},
    };
    return kinds;
}

const XmlDocumentKind* XmlDocumentKind::find(const QString& nameOrRootClass)
{
    if (nameOrRootClass.isEmpty())
        return nullptr;
    for (const XmlDocumentKind& kind : all()) {
        if (nameOrRootClass == QLatin1String(kind.name) ||
            nameOrRootClass == QLatin1String(kind.rootClass))
            return &kind;
    }
    return nullptr;
}

} // namespace KelXml
