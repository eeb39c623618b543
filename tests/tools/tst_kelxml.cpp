// The kelxml tool as a user runs it: its answers and exit codes. Every sample
// under examples/ is also checked by the "examples" test.

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

class TestKelxmlTool : public QObject
{
    Q_OBJECT

private:
    struct Run
    {
        int status;
        QString out;
        QString err;
    };

    static Run kelxml(const QStringList& arguments)
    {
        QProcess process;
        process.start(QStringLiteral(KELXML_TOOL), arguments);
        process.waitForFinished(20000);
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

private slots:
    void usageErrors_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("message");
        QTest::newRow("no command") << QStringList() << "no command given.";
        QTest::newRow("unknown command") << QStringList{"lint"} << "unknown command 'lint'.";
        QTest::newRow("no class") << QStringList{"check", "a.xml"} << "'check' needs --as CLASS";
        QTest::newRow("unknown class")
            << QStringList{"check", "--as", "XmlNoSuchType", "a.xml"}
            << "unknown element class 'XmlNoSuchType' (see '" KELXML_TOOL_NAME " classes').";
        QTest::newRow("format two files")
            << QStringList{"format", "--as", "XmlFreqType", "a.xml", "b.xml"}
            << "'format' takes exactly one file.";
    }
    void usageErrors()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, message);
        const Run run = kelxml(arguments);
        QCOMPARE(run.status, 64);
        QVERIFY2(run.err.contains(message), qPrintable(run.err));
        QVERIFY(run.err.startsWith(QLatin1String(KELXML_TOOL_NAME ": ")));
        QVERIFY(run.err.contains(QLatin1String("Try '" KELXML_TOOL_NAME " --help'")));
    }

    // The Qt 6 build is kelxml6 and names itself so; the version is the project's.
    void versionNamesTheTool()
    {
        const Run run = kelxml({"--version"});
        QCOMPARE(run.status, 0);
        QCOMPARE(run.out, QStringLiteral(KELXML_TOOL_NAME " " KELXML_VERSION "\n"));
    }

    // Every file is answered for; the worst answer decides the exit status.
    void checkAnswersEveryFile()
    {
        QTemporaryDir dir;
        const auto file = [&](const char* name, const char* xml) {
            QFile out(dir.filePath(QLatin1String(name)));
            out.open(QIODevice::WriteOnly);
            out.write(xml);
            return out.fileName();
        };
        const QString valid = file("valid.xml", "<F version=\"1.0\" unit=\"kHz\">5</F>");
        const QString invalid = file("invalid.xml", "<F version=\"1.0\" unit=\"THz\">5</F>");
        const QString trailing = file("trailing.xml", "<F unit=\"Hz\">1</F><F/>");
        const QString missing = dir.filePath(QStringLiteral("missing.xml"));

        Run run = kelxml({"check", "--as", "XmlFreqType", valid, invalid});
        QCOMPARE(run.status, 1);
        QCOMPARE(run.out,
                 valid + ": valid XmlFreqType \"F\"\n" + invalid +
                     ": invalid XmlFreqType \"F\":\n    +++ in XmlFreqType Begin:\n"
                     "    Illegal frequency.\n    Illegal unit.\n    --- in XmlFreqType End\n");

        run = kelxml({"check", "--as", "XmlFreqType", missing, trailing, invalid});
        QCOMPARE(run.status, 2);
        QVERIFY2(run.out.startsWith(missing + ": error: cannot open: ") &&
                     run.out.contains(trailing + ":1:22: error: not well-formed XML: "),
                 qPrintable(run.out));
    }

    void formatWritesCanonicalForm()
    {
        const QString sample = QStringLiteral(KELXML_EXAMPLES "/XmlFreqType/valid-khz.xml");
        const Run run = kelxml({"format", "--as", "XmlFreqType", sample});
        QCOMPARE(run.status, 0);
        QCOMPARE(run.out, QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                         "<Frequency version=\"1.0\" unit=\"kHz\">2400.000000"
                                         "</Frequency>\n"));
    }
};

QTEST_GUILESS_MAIN(TestKelxmlTool)
#include "tst_kelxml.moc"
