// The table of document kinds: each row's root class is registered and
// answers to the kind's name, its samples carry the row's root element, the
// entry point reads each kind as its root class, a kind's map walks its own
// root only, and the build reads every row of the table.

#include <XmlCmdRoot.h>
#include <XmlDocumentKind.h>
#include <XmlDocumentReader.h>
#include <XmlElementRegistry.h>
#include <XmlKelBtType.h>
#include <XmlRespRoot.h>

#include <QDir>
#include <QFile>
#include <QtTest>

#include <typeinfo>

using namespace KelXml;

Q_DECLARE_METATYPE(const XmlDocumentKind*)

namespace {

QStringList validSamples(const XmlDocumentKind& kind)
{
    const QDir dir(QStringLiteral(KELXML_EXAMPLES "/") + QLatin1String(kind.rootClass));
    QStringList files;
    for (const QString& name : dir.entryList({QStringLiteral("valid-*.xml")}, QDir::Files))
        files.append(dir.filePath(name));
    return files;
}

QByteArray contents(const QString& file)
{
    QFile device(file);
    return device.open(QIODevice::ReadOnly) ? device.readAll() : QByteArray();
}

} // namespace

class tst_DocumentKinds : public QObject
{
    Q_OBJECT

private slots:
    void row_data()
    {
        QTest::addColumn<const XmlDocumentKind*>("kind");
        for (const XmlDocumentKind& kind : XmlDocumentKind::all())
            QTest::newRow(kind.name) << &kind;
    }

    // The registry knows the root class under the kind's name, lists the
    // name as its alias, and the kind is found by either.
    void row()
    {
        QFETCH(const XmlDocumentKind*, kind);
        const QString name = QLatin1String(kind->name);
        const QString rootClass = QLatin1String(kind->rootClass);
        QCOMPARE(XmlElementRegistry::resolve(name), rootClass);
        QCOMPARE(XmlDocumentKind::find(name), kind);
        QCOMPARE(XmlDocumentKind::find(rootClass), kind);
        const auto root = XmlElementRegistry::create(name);
        const auto byClass = XmlElementRegistry::create(rootClass);
        QVERIFY(root && byClass);
        const std::type_info& type = typeid(*root);
        QCOMPARE(type, typeid(*byClass));

        // Every valid sample of the kind has the row's root element and is
        // read by the kind's name as the root class.
        const QStringList samples = validSamples(*kind);
        QVERIFY(!samples.isEmpty());
        for (const QString& sample : samples) {
            const XmlReadResult result = XmlDocumentReader().read(name, contents(sample));
            QVERIFY2(!result.error, qPrintable(sample + ": " + result.error.text()));
            QCOMPARE(result.rootName, QLatin1String(kind->rootElement));
            const IXmlElement& read = *result.root;
            QCOMPARE(typeid(read), type);
        }
    }

    // A kind's map walks a root of its own class and refuses any other.
    void mapWalksItsOwnRootOnly_data() { row_data(); }
    void mapWalksItsOwnRootOnly()
    {
        QFETCH(const XmlDocumentKind*, kind);
        if (!kind->hasMap())
            QSKIP("a kind without a map");
        int visited = 0;
        const auto count = [&visited](const XmlGeoFeature&) { ++visited; };
        for (const QString& sample : validSamples(*kind)) {
            const XmlReadResult result =
                XmlDocumentReader().read(QLatin1String(kind->name), contents(sample));
            QVERIFY(kind->visitGeoFeatures(*result.root, XmlGeoLookup(), count, nullptr));
        }
        // A response names objects that another document holds: with none
        // beside it, its samples may give nothing to draw.
        if (QLatin1String(kind->name) != QLatin1String("response"))
            QVERIFY(visited > 0);
        visited = 0;
        for (const XmlDocumentKind& other : XmlDocumentKind::all()) {
            if (&other != kind)
                QVERIFY(
                    !kind->visitGeoFeatures(*XmlElementRegistry::create(QLatin1String(other.name)),
                                            XmlGeoLookup(), count, nullptr));
        }
        QVERIFY(!kind->visitGeoFeatures(*XmlElementRegistry::create("XmlAoiType"), XmlGeoLookup(),
                                        count, nullptr));
        QCOMPARE(visited, 0);
    }

    // Only the roots of the kinds have aliases; names that are not a kind's
    // (its root element, another class, nothing) find none.
    void onlyRootsHaveAliases()
    {
        for (const XmlElementRegistry::Entry& entry : XmlElementRegistry::entries()) {
            const XmlDocumentKind* kind = XmlDocumentKind::find(entry.className);
            QCOMPARE(entry.alias, kind ? QLatin1String(kind->name) : QString());
        }
        for (const char* name : {"", "Command", "XmlFreqType", "commands", "Scenario"})
            QVERIFY2(!XmlDocumentKind::find(QLatin1String(name)), name);
        QCOMPARE(XmlElementRegistry::resolve(QString()), QString());
    }

    // The entry point's reading functions read their kinds.
    void readingFunctions()
    {
        const XmlDocumentReader reader;
        const auto sample = [](const char* name) {
            return contents(validSamples(*XmlDocumentKind::find(QLatin1String(name))).first());
        };
        QVERIFY(reader.readCommand(sample("command")).rootAs<XmlCmdRoot>());
        QVERIFY(reader.readResponse(sample("response")).rootAs<XmlRespRoot>());
        QVERIFY(reader.readScenario(sample("scenario")).rootAs<XmlKelBtType>());
    }

    // The build reads the rows from the table's source to make a fuzz target
    // of each: it must find them all, as they are.
    void buildReadsEveryRow()
    {
        QStringList rows;
        for (const XmlDocumentKind& kind : XmlDocumentKind::all()) {
            rows.append(QStringLiteral("%1 %2 %3")
                            .arg(QLatin1String(kind.name), QLatin1String(kind.rootClass),
                                 QLatin1String(kind.fuzzTarget)));
        }
        QCOMPARE(rows.join(QLatin1Char(',')), QStringLiteral(KELXML_BUILD_KINDS));
    }
    // The root element tells the kind: a response by its type or content
    // wherever it stands, a snapshot by its first child, a command by its
    // first command; anything else is none.
    void byContent_data()
    {
        QTest::addColumn<QByteArray>("document");
        QTest::addColumn<QString>("kind"); // empty: none
        QTest::newRow("typed root") << QByteArray("<R type=\"ack\"/>") << "response";
        QTest::newRow("typed root, command first")
            << QByteArray("<R type=\"x\"><Create/></R>") << "response";
        QTest::newRow("automatic after order")
            << QByteArray("<R><ORDER_DEF/><Automatic/></R>") << "response";
        QTest::newRow("interactive after screenshot")
            << QByteArray("<R><ScreenshotPath/><Interactive/></R>") << "response";
        QTest::newRow("automatic inside a child is no response")
            << QByteArray("<R><Create><Automatic/></Create></R>") << "command";
        QTest::newRow("screenshot first") << QByteArray("<S><ScreenshotPath>a</ScreenshotPath>"
                                                        "<DisplayedObjects/></S>")
                                          << "scenario";
        QTest::newRow("screenshot second") << QByteArray("<S><X/><ScreenshotPath/></S>") << "";
        for (const char* command :
             {"ORDER_DEF", "Administrative", "Create", "Delete", "PropagationModel", "Calculate"})
            QTest::newRow(command) << QByteArray("<C><") + command + "/></C>"
                                   << "command";
        QTest::newRow("lower case command") << QByteArray("<C><create/></C>") << "";
        QTest::newRow("empty root") << QByteArray("<C/>") << "";
        QTest::newRow("text only") << QByteArray("<C>Create</C>") << "";
        QTest::newRow("other attribute") << QByteArray("<C Type=\"a\"/>") << "";
    }
    void byContent()
    {
        QFETCH(QByteArray, document);
        QFETCH(QString, kind);
        XmlReadError error;
        const XmlRootShape shape = XmlDocumentReader().readRootShape(document, &error);
        QVERIFY2(!error, qPrintable(error.text()));
        const XmlDocumentKind* found = XmlDocumentKind::recognise(shape);
        QCOMPARE(found ? QString::fromLatin1(found->name) : QString(), kind);
        int recognising = 0;
        for (const XmlDocumentKind& row : XmlDocumentKind::all())
            recognising += row.recognises(shape) ? 1 : 0;
        QVERIFY(recognising <= 1);
    }

    // Every sample of a kind is told by its content, the unreadable ones too
    // when their fault lies past the root's children; the limits hold.
    void samplesByContent()
    {
        for (const XmlDocumentKind& kind : XmlDocumentKind::all()) {
            const QDir dir(QStringLiteral(KELXML_EXAMPLES "/") + QLatin1String(kind.rootClass));
            for (const QString& name : dir.entryList({QStringLiteral("*.xml")}, QDir::Files)) {
                XmlReadError error;
                const XmlRootShape shape =
                    XmlDocumentReader().readRootShape(contents(dir.filePath(name)), &error);
                if (error)
                    continue;
                const XmlDocumentKind* found = XmlDocumentKind::recognise(shape);
                QVERIFY2(found == &kind, qPrintable(name));
            }
        }
        XmlReadLimits limits;
        limits.maxDepth = 2;
        XmlReadError error;
        XmlDocumentReader(limits).readRootShape(QByteArray("<C><Create><a/></Create></C>"), &error);
        QCOMPARE(error.kind, XmlReadError::DepthLimit);
        // A document broken before its kind shows is refused as reading refuses it.
        for (const char* broken :
             {"<C><Create>", "<!-- none -->", "", "<C>\n<!DOCTYPE x>", "<C a='1' a='2'/>"}) {
            XmlDocumentReader().readRootShape(QByteArray(broken), &error);
            const XmlReadError read = XmlDocumentReader().readCommand(QByteArray(broken)).error;
            QVERIFY2(error && error.kind == read.kind && error.line == read.line &&
                         error.column == read.column,
                     broken);
        }
    }
};

QTEST_GUILESS_MAIN(tst_DocumentKinds)
#include "tst_documentkinds.moc"
