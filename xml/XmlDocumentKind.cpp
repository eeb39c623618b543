#include "XmlDocumentKind.h"

#include "XmlCmdRoot.h"
#include "XmlKelBtType.h"
#include "XmlRespRoot.h"

#include <type_traits>

namespace KelXml {

namespace {

// The map of a kind whose root class has a visitGeoFeatures overload: one of
// a document that holds its objects, or one of a response that names them.
template <class Root>
bool visitRoot(const IXmlElement& root, const XmlGeoLookup& beside, const XmlGeoVisitor& visit,
               QStringList* unresolved)
{
    const auto* document = dynamic_cast<const Root*>(&root);
    if (!document)
        return false;
    if constexpr (std::is_same<Root, XmlRespRoot>::value)
        visitGeoFeatures(*document, beside, visit, unresolved);
    else
        visitGeoFeatures(*document, visit);
    return true;
}

// A response carries its type, or its content names it; a scenario snapshot
// opens with its screenshot; a command message opens with a command.
bool isResponse(const XmlRootShape& root)
{
    return root.hasType || root.hasResponseContent;
}

bool isScenario(const XmlRootShape& root)
{
    return !isResponse(root) && root.firstChild == QLatin1String("ScreenshotPath");
}

bool isCommand(const XmlRootShape& root)
{
    static const char* const commands[] = {"ORDER_DEF", "PropagationModel", "Administrative",
                                           "Create",    "Delete",           "Calculate"};
    if (isResponse(root))
        return false;
    for (const char* command : commands) {
        if (root.firstChild == QLatin1String(command))
            return true;
    }
    return false;
}

} // namespace

const std::vector<XmlDocumentKind>& XmlDocumentKind::all()
{
    // One row per kind, each on one line: fuzz/CMakeLists.txt reads the rows
    // from this file to build a fuzz target for each. The order is the one in
    // which the tool names the kinds ("--as scenario or --as command"). The
    // last column tells a document of the kind by its root element, for the
    // tool's check and format without --as.
    // clang-format off
    static const std::vector<XmlDocumentKind> kinds = {
        // name       root class      root element  fuzz target      map                      by content
        {"scenario", "XmlKelBtType", "Scenario", "fuzz_scenario", &visitRoot<XmlKelBtType>, &isScenario},
        {"command", "XmlCmdRoot", "Command", "fuzz_command", &visitRoot<XmlCmdRoot>, &isCommand},
        {"response", "XmlRespRoot", "Response", "fuzz_response", &visitRoot<XmlRespRoot>, &isResponse},
    };
    // clang-format on
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

const XmlDocumentKind* XmlDocumentKind::recognise(const XmlRootShape& root)
{
    for (const XmlDocumentKind& kind : all()) {
        if (kind.recognises(root))
            return &kind;
    }
    return nullptr;
}

} // namespace KelXml
