// The kelxml tool as a user runs it: its answers and exit codes.

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

    static QString example(const QString& path)
    {
        return QStringLiteral(KELXML_EXAMPLES "/") + path;
    }

private slots:
    void usageErrors_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("message");
        QTest::newRow("no command") << QStringList() << "no command given.";
        QTest::newRow("unknown command") << QStringList{"lint"} << "unknown command 'lint'.";
        QTest::newRow("no class") << QStringList{"check", "a.xml"} << "'check' needs --as CLASS";
        QTest::newRow("unknown class") << QStringList{"check", "--as", "XmlNoSuchType", "a.xml"}
                                       << "unknown element class 'XmlNoSuchType'";
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
        QVERIFY(run.err.contains(QLatin1String("kelxml --help")));
    }

    void helpAndClasses()
    {
        const Run help = kelxml({QStringLiteral("--help")});
        QCOMPARE(help.status, 0);
        QVERIFY(help.out.contains(QLatin1String("check --as CLASS FILE...")));
        const Run classes = kelxml({QStringLiteral("classes")});
        QCOMPARE(classes.status, 0);
        QVERIFY(classes.out.contains(QLatin1String("XmlFreqThrListType\t")));
    }

    // Each file is reported; the worst answer decides the exit status.
    void checkReportsEveryFile()
    {
        const QString valid = example(QStringLiteral("XmlFreqType/valid-khz.xml"));
        const QString invalid = example(QStringLiteral("XmlFreqType/invalid-unknown-unit.xml"));
        const QString missing = QStringLiteral("/nonexistent/frequency.xml");

        Run run = kelxml({"check", "--as", "XmlFreqType", valid, invalid});
        QCOMPARE(run.status, 1);
        QVERIFY(run.out.contains(valid + QStringLiteral(": valid XmlFreqType \"Frequency\"")));
        QVERIFY(run.out.contains(QLatin1String("    +++ in XmlFreqType Begin:\n"
                                               "    Illegal frequency.\n"
                                               "    Illegal unit.\n"
                                               "    --- in XmlFreqType End\n")));

        run = kelxml({"check", "--as", "XmlFreqType", missing, invalid, valid});
        QCOMPARE(run.status, 2);
        QVERIFY(run.out.startsWith(missing + QStringLiteral(": error: cannot open")));
        QVERIFY(run.out.contains(valid + QStringLiteral(": valid")));
    }

    void checkLocatesErrors_data()
    {
        QTest::addColumn<QString>("xml");
        QTest::addColumn<QString>("report");
        QTest::newRow("element error")
            << "<Frequency version=\"1.0\">1</Frequency>"
            << ": error: in XmlFreqType (line 1, column 25): Missing attribute: \"unit\".";
        QTest::newRow("not well-formed") << "<Frequency version=\"1.0\" unit=\"Hz\">1</Freq>"
                                         << ":1:43: error: not well-formed XML: ";
        QTest::newRow("trailing garbage")
            << "<Frequency version=\"1.0\" unit=\"Hz\">1</Frequency><x/>"
            << ": error: not well-formed XML: ";
    }
    void checkLocatesErrors()
    {
        QFETCH(QString, xml);
        QFETCH(QString, report);
        QTemporaryDir dir;
        const QString file = dir.filePath(QStringLiteral("in.xml"));
        QFile out(file);
        QVERIFY(out.open(QIODevice::WriteOnly));
        out.write(xml.toUtf8());
        out.close();

        const Run run = kelxml({"check", "--as", "XmlFreqType", file});
        QCOMPARE(run.status, 2);
        QVERIFY2(run.out.contains(report), qPrintable(run.out));
    }

    void formatWritesCanonicalForm()
    {
        const Run run = kelxml({"format", "--as", "XmlFreqType",
                                example(QStringLiteral("XmlFreqType/valid-khz.xml"))});
        QCOMPARE(run.status, 0);
        QCOMPARE(run.out, QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                         "<Frequency version=\"1.0\" unit=\"kHz\">2400.000000"
                                         "</Frequency>\n"));
        const Run unreadable =
            kelxml({"format", "--as", "XmlDBMListType",
                    example(QStringLiteral("XmlDBMListType/unreadable-empty.xml"))});
        QCOMPARE(unreadable.status, 2);
        QVERIFY(unreadable.out.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestKelxmlTool)
#include "tst_kelxml.moc"
