// kelxml_shapes: the worst-case documents of the complexity test.
//
//   kelxml_shapes list [GROUP]          one line per shape: name, class, N, tools, about
//   kelxml_shapes write SHAPE UNITS FILE
//   kelxml_shapes run SHAPE UNITS       the library's whole round on the document
//   kelxml_shapes seeds DIR             fuzz seeds of 100 KB to 1 MB, DIR/<target>/
//
// "run" reads the document through XmlDocumentReader and checks, reports,
// copies, assigns, writes, resets and destroys what it read, all inside
// kelxmlShapeRun(), which callgrind counts on its own.

#include "ShapeDocuments.h"

#include <XmlAreaPolyType.h>
#include <XmlCmdRoot.h>
#include <XmlDBMListType.h>
#include <XmlDecibelListType.h>
#include <XmlDegreesListType.h>
#include <XmlDeviceListType.h>
#include <XmlDocumentKind.h>
#include <XmlDocumentReader.h>
#include <XmlElementRegistry.h>
#include <XmlFreqListType.h>
#include <XmlFreqThrListType.h>
#include <XmlKelBtType.h>
#include <XmlMapListType.h>
#include <XmlNameAllMultiType.h>
#include <XmlRespRoot.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QXmlStreamWriter>

#include <cstdio>
#include <functional>

using namespace KelXml;
using KelXmlShapes::Shape;

namespace {

template <class T>
bool assignAs(IXmlElement& target, const IXmlElement& source)
{
    auto* to = dynamic_cast<T*>(&target);
    const auto* from = dynamic_cast<const T*>(&source);
    if (!to || !from)
        return false;
    *to = *from;
    return true;
}

// Copy assignment of the classes the shapes are read as.
bool assign(IXmlElement& target, const IXmlElement& source)
{
    return assignAs<XmlCmdRoot>(target, source) || assignAs<XmlRespRoot>(target, source) ||
           assignAs<XmlKelBtType>(target, source) || assignAs<XmlFreqThrListType>(target, source) ||
           assignAs<XmlDBMListType>(target, source) || assignAs<XmlFreqListType>(target, source) ||
           assignAs<XmlDecibelListType>(target, source) ||
           assignAs<XmlDegreesListType>(target, source) ||
           assignAs<XmlMapListType>(target, source) ||
           assignAs<XmlDeviceListType>(target, source) ||
           assignAs<XmlNameAllMultiType>(target, source) ||
           assignAs<XmlAreaPolyType>(target, source);
}

struct Round
{
    bool read = false;
    bool valid = false;
    qint64 reportChars = 0;
    qint64 writtenBytes = 0;
    QString problem;
};

} // namespace

// Not inlined, so that callgrind can count exactly this call.
__attribute__((noinline)) Round kelxmlShapeRun(const QString& className, const QByteArray& document)
{
    Round round;
    XmlReadResult result = XmlDocumentReader().read(className, document);
    if (!result.root) {
        round.problem = result.error.text();
        return round;
    }
    round.read = !result.error;
    IXmlElement& root = *result.root;
    round.valid = root.isValid();
    round.reportChars = root.syntaxError().size();
    const std::unique_ptr<IXmlElement> copy = XmlElementRegistry::copy(className, root);
    const std::unique_ptr<IXmlElement> assigned = XmlElementRegistry::create(className);
    if (!copy || !assigned || !assign(*assigned, root)) {
        round.problem = QStringLiteral("cannot copy or assign a %1").arg(className);
        return round;
    }
    QByteArray written;
    QXmlStreamWriter writer(&written);
    writer.writeStartDocument();
    assigned->produceXml(writer, result.rootName);
    writer.writeEndDocument();
    round.writtenBytes = written.size();
    root.reset();
    return round;
}

namespace {

int usage()
{
    std::fprintf(stderr, "usage: kelxml_shapes list [GROUP] | write SHAPE UNITS FILE | "
                         "run SHAPE UNITS | seeds DIR\n");
    return 64;
}

const Shape* shapeOrComplain(const QString& name)
{
    const Shape* shape = KelXmlShapes::find(name);
    if (!shape)
        std::fprintf(stderr, "kelxml_shapes: no shape '%s'\n", qPrintable(name));
    return shape;
}

bool save(const QString& file, const QByteArray& bytes)
{
    QFile out(file);
    return out.open(QIODevice::WriteOnly) && out.write(bytes) == bytes.size();
}

int list(const QString& group)
{
    for (const Shape& shape : KelXmlShapes::shapes()) {
        if (group.isEmpty() || shape.group == group) {
            std::printf("%s %s %d %s %s\n", qPrintable(shape.name), qPrintable(shape.className),
                        shape.units,
                        qPrintable(shape.tools.isEmpty() ? QStringLiteral("-")
                                                         : shape.tools.join(QLatin1Char(','))),
                        qPrintable(shape.about));
        }
    }
    return 0;
}

int write(const QString& name, int units, const QString& file)
{
    const Shape* shape = shapeOrComplain(name);
    if (!shape)
        return 64;
    const QByteArray document = shape->generate(units);
    if (!save(file, document)) {
        std::fprintf(stderr, "kelxml_shapes: cannot write %s\n", qPrintable(file));
        return 1;
    }
    std::printf("bytes=%lld elements=%d\n", static_cast<long long>(document.size()),
                KelXmlShapes::elementCount(document));
    return 0;
}

int run(const QString& name, int units)
{
    const Shape* shape = shapeOrComplain(name);
    if (!shape)
        return 64;
    const QByteArray document = shape->generate(units);
    const Round round = kelxmlShapeRun(shape->className, document);
    std::printf("bytes=%lld elements=%d read=%s valid=%s report=%lld written=%lld\n",
                static_cast<long long>(document.size()), KelXmlShapes::elementCount(document),
                round.read ? "yes" : "no", round.valid ? "yes" : "no",
                static_cast<long long>(round.reportChars),
                static_cast<long long>(round.writtenBytes));
    if (!round.problem.isEmpty()) {
        std::fprintf(stderr, "kelxml_shapes: %s\n", qPrintable(round.problem));
        return 1;
    }
    return 0;
}

// Documents of about 100 KB and 1 MB (under libFuzzer's 1 MiB) of every
// kind, named after their shape and size, in one folder per fuzz target:
// command, response, scenario, and elements for the lists.
int seeds(const QString& directory)
{
    if (!QDir().mkpath(directory))
        return 1;
    const char* const chosen[] = {"command-polygon-descending",
                                  "command-many",
                                  "command-deep",
                                  "command-invalid",
                                  "response-devices",
                                  "response-invalid-names",
                                  "scenario-objects",
                                  "scenario-invalid",
                                  "scenario-polygon-shuffled",
                                  "pairs-invalid",
                                  "map-list",
                                  "device-list",
                                  "name-list"};
    const qint64 sizes[] = {120 * 1000, 1000 * 1000};
    for (const char* name : chosen) {
        const Shape* shape = shapeOrComplain(QLatin1String(name));
        if (!shape)
            return 1;
        for (qint64 wanted : sizes) {
            // Scaled from the size a first guess gives, twice, for the fixed part.
            int units = 100;
            QByteArray document = shape->generate(units);
            for (int step = 0; step < 2; ++step) {
                units = int(std::max<qint64>(1, units * wanted / document.size()));
                document = shape->generate(units);
            }
            // One folder per fuzz target, named as scripts/fuzz.sh looks for
            // it; the element target takes a first byte that chooses the class.
            const XmlDocumentKind* kind = XmlDocumentKind::find(shape->className);
            const QString target =
                kind ? QLatin1String(kind->fuzzTarget) : QStringLiteral("fuzz_elements");
            if (!kind) {
                const int index = int(XmlElementRegistry::classNames().indexOf(shape->className));
                document.prepend(char(index));
            }
            const QString folder =
                directory + QLatin1Char('/') + target.section(QLatin1Char('_'), 1);
            const QString file = QStringLiteral("%1/%2-%3k.xml")
                                     .arg(folder, shape->name)
                                     .arg(document.size() / 1000);
            if (!QDir().mkpath(folder) || !save(file, document))
                return 1;
            std::printf("%s %lld bytes\n", qPrintable(file),
                        static_cast<long long>(document.size()));
        }
    }
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = app.arguments().mid(1);
    if (arguments.isEmpty())
        return usage();
    const QString command = arguments.first();
    bool ok = true;
    if (command == QLatin1String("list") && arguments.size() <= 2)
        return list(arguments.value(1));
    if (command == QLatin1String("write") && arguments.size() == 4) {
        const int units = arguments[2].toInt(&ok);
        return ok ? write(arguments[1], units, arguments[3]) : usage();
    }
    if (command == QLatin1String("run") && arguments.size() == 3) {
        const int units = arguments[2].toInt(&ok);
        return ok ? run(arguments[1], units) : usage();
    }
    if (command == QLatin1String("seeds") && arguments.size() == 2)
        return seeds(arguments[1]);
    return usage();
}
