// The generated documents are what the benchmarks and the gate measure:
// they must read cleanly, be valid, have the asked size, hold every kind of
// content, and be the same on every run.

#include "BenchDocuments.h"

#include <QtTest>

using namespace KelXmlBench;

Q_DECLARE_METATYPE(KelXmlBench::DocumentKind)

class tst_BenchDocuments : public QObject
{
    Q_OBJECT

private slots:
    void validAtEverySize_data();
    void validAtEverySize();
    void everyKindOfContent_data();
    void everyKindOfContent();
    void pairListOfTheReferenceSize();
    void writtenModelReadsBack_data();
    void writtenModelReadsBack();
    void kindNames();
};

void tst_BenchDocuments::validAtEverySize_data()
{
    QTest::addColumn<DocumentKind>("kind");
    QTest::addColumn<qint64>("bytes");
    for (DocumentKind kind : {DocumentKind::Command, DocumentKind::Snapshot,
                              DocumentKind::Responses, DocumentKind::PairList}) {
        for (qint64 bytes : {qint64(1), qint64(3000), qint64(250000), qint64(2000000)}) {
            const QByteArray tag = kindName(kind).toLatin1() + ' ' + QByteArray::number(bytes);
            QTest::newRow(tag.constData()) << kind << bytes;
        }
    }
}

void tst_BenchDocuments::validAtEverySize()
{
    QFETCH(DocumentKind, kind);
    QFETCH(qint64, bytes);
    const QByteArray document = generate(kind, bytes);
    QCOMPARE(verify(kind, document), QString());
    // Whole elements only: never short, and over by at most one large element.
    QVERIFY2(document.size() >= bytes, QByteArray::number(document.size()));
    QVERIFY2(document.size() <= bytes + bytes / 10 + 8000, QByteArray::number(document.size()));
    QVERIFY(document == generate(kind, bytes));
}

void tst_BenchDocuments::everyKindOfContent_data()
{
    QTest::addColumn<DocumentKind>("kind");
    QTest::addColumn<QStringList>("tags");
    QTest::newRow("command") << DocumentKind::Command
                             << QStringList{"<Administrative>",
                                            "<DeploymentArea ",
                                            "<AOI ",
                                            "<Emitter ",
                                            "<Receiver ",
                                            "<DF ",
                                            "<Path ",
                                            "<Create>\n    <Device ",
                                            "<Station>",
                                            "<Delete>",
                                            "<PropagationModel>",
                                            "<FindPossibleSites>",
                                            "<CEP>",
                                            "<DetectionProbability>",
                                            "<DFcoverage>",
                                            "<InterlinkPlanning>",
                                            "<BestSensorCov>"};
    QTest::newRow("snapshot") << DocumentKind::Snapshot
                              << QStringList{"<DeploymentArea ",   "<AreaOfInterest ",
                                             "number=\"999\"",     "<KnownEmitter ",
                                             "<Receiver ",         "<DirectionFinder ",
                                             "<StationInterlink ", "<Result_FindSites ",
                                             "<Result_CEP ",       "<Result_DetectProb ",
                                             "<Result_DfCoverage "};
    QTest::newRow("responses") << DocumentKind::Responses
                               << QStringList{"type=\"interactive\"", "<Automatic ",
                                              "<InterlinkResult>", "<ScreenshotFilename>",
                                              "<EstimatedTime>"};
}

void tst_BenchDocuments::everyKindOfContent()
{
    QFETCH(DocumentKind, kind);
    QFETCH(QStringList, tags);
    const QByteArray document = generate(kind, 20000000);
    for (const QString& tag : tags)
        QVERIFY2(document.contains(tag.toUtf8()), qPrintable(tag));
}

void tst_BenchDocuments::pairListOfTheReferenceSize()
{
    // 150,000 pairs laid out as the samples are come to about 23.5 MB.
    const QByteArray document = pairList(150000);
    QVERIFY2(document.size() > 23300000 && document.size() < 23700000,
             QByteArray::number(document.size()));
    QCOMPARE(document.count("<Pair "), 150000);
    QCOMPARE(verify(DocumentKind::PairList,
                    document.left(document.indexOf("<Pair ", 5000)) + "</RxThresholds>\n"),
             QString());
}

void tst_BenchDocuments::writtenModelReadsBack_data()
{
    QTest::addColumn<DocumentKind>("kind");
    QTest::newRow("responses") << DocumentKind::Responses;
    QTest::newRow("pairs") << DocumentKind::PairList;
}

// What Model::write gives reads back into a valid model that writes the
// same bytes again.
void tst_BenchDocuments::writtenModelReadsBack()
{
    QFETCH(DocumentKind, kind);
    auto write = [kind](const QByteArray& document) {
        QXmlStreamReader reader(document);
        Model model(kind);
        QByteArray out;
        if (!model.read(reader))
            return out;
        QXmlStreamWriter writer(&out);
        model.write(writer);
        return out;
    };
    const QByteArray once = write(generate(kind, 50000));
    QVERIFY(once.startsWith("<?xml"));
    QCOMPARE(verify(kind, once), QString());
    QCOMPARE(write(once), once);
}

void tst_BenchDocuments::kindNames()
{
    for (DocumentKind kind : {DocumentKind::Command, DocumentKind::Snapshot,
                              DocumentKind::Responses, DocumentKind::PairList}) {
        DocumentKind named = DocumentKind::Command;
        QVERIFY(kindFromName(kindName(kind), &named));
        QCOMPARE(named, kind);
    }
    DocumentKind unchanged = DocumentKind::Snapshot;
    QVERIFY(!kindFromName(QStringLiteral("Command"), &unchanged));
    QCOMPARE(unchanged, DocumentKind::Snapshot);
}

QTEST_APPLESS_MAIN(tst_BenchDocuments)
#include "tst_benchdocuments.moc"
