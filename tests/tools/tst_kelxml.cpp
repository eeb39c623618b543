// The kelxml tool as a user runs it: its answers and exit codes. Every sample
// under examples/ is also checked by the "examples" test.

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
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

    // Writes the bytes to the file, replacing what it held.
    static bool writeFile(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        return file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
               file.write(bytes) == bytes.size();
    }

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
        QTest::newRow("no file") << QStringList{"check"} << "'check' needs a file.";
        QTest::newRow("unknown output") << QStringList{"check", "--output", "xml", "a.xml"}
                                        << "--output takes text, json or github, not 'xml'.";
        QTest::newRow("output of another command")
            << QStringList{"format", "--output", "json", "a.xml"}
            << "--output is an option of 'check' or 'diff' only.";
        QTest::newRow("diff's output")
            << QStringList{"diff", "--output", "github", "a.xml", "b.xml"}
            << "diff's --output takes text or json, not 'github'.";
        QTest::newRow("diff of one file")
            << QStringList{"diff", "a.xml"} << "'diff' takes exactly two files.";
        QTest::newRow("json of two files")
            << QStringList{"json", "a.xml", "b.xml"} << "'json' takes exactly one file.";
        QTest::newRow("unknown class")
            << QStringList{"check", "--as", "XmlNoSuchType", "a.xml"}
            << "unknown element class 'XmlNoSuchType' (see '" KELXML_TOOL_NAME " classes').";
        QTest::newRow("format two files")
            << QStringList{"format", "--as", "XmlFreqType", "a.xml", "b.xml"}
            << "'format' takes exactly one file.";
        QTest::newRow("zero limit")
            << QStringList{"check", "-a", "command", "--max-depth", "0", "a"}
            << "--max-depth needs a positive integer, not '0'.";
        QTest::newRow("negative limit")
            << QStringList{"check", "-a", "command", "--max-attributes=-3", "a"}
            << "--max-attributes needs a positive integer, not '-3'.";
        QTest::newRow("fractional limit")
            << QStringList{"format", "-a", "command", "--max-value-length", "1.5", "a"}
            << "--max-value-length needs a positive integer, not '1.5'.";
        QTest::newRow("limit beyond int")
            << QStringList{"check", "-a", "command", "--max-depth", "2147483648", "a"}
            << "--max-depth needs a positive integer, not '2147483648'.";
        QTest::newRow("word as limit")
            << QStringList{"check", "-a", "command", "--max-bytes", "lots", "a"}
            << "--max-bytes needs a positive integer, not 'lots'.";
        QTest::newRow("negative faults")
            << QStringList{"check", "-a", "command", "--faults=-1", "a"}
            << "--faults needs a number of faults or 'all', not '-1'.";
        QTest::newRow("word as faults")
            << QStringList{"check", "-a", "command", "--faults", "most", "a"}
            << "--faults needs a number of faults or 'all', not 'most'.";
        QTest::newRow("map of another class")
            << QStringList{"svg", "--as", "XmlAoiType", "a.xml"}
            << "'svg' needs --as scenario, --as command or --as response.";
        QTest::newRow("option of other commands")
            << QStringList{"check", "--scenario", "s.xml", "a.xml"}
            << "--scenario is an option of 'geojson', 'svg', 'kml' or 'worldfile' only.";
        QTest::newRow("worldfile without extent")
            << QStringList{"worldfile", "a.png"} << "'worldfile' needs --extent";
        QTest::newRow("extent of nothing")
            << QStringList{"worldfile", "a.png", "--extent", "10,50,9,51"}
            << "--extent '10,50,9,51' needs -180 <= W < E <= 180 and -90 <= S < N <= 90.";
        QTest::newRow("picture without kmz")
            << QStringList{"kml", "--picture", "a.png", "--extent", "1,2,3,4", "a.xml"}
            << "--picture needs -o FILE.kmz";
        QTest::newRow("kmz of geojson")
            << QStringList{"geojson", "-o", "a.kmz", "a.xml"} << "only 'kml' writes a KMZ.";
        QTest::newRow("map of two files") << QStringList{"geojson", "--as", "XmlCmdRoot", "a", "b"}
                                          << "'geojson' takes exactly one file.";
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
        QVERIFY(run.out.isEmpty());
    }

    // --help lists each command with its synopsis, the help beside it (below
    // a long synopsis), and names them all as the command argument.
    void helpListsTheCommands()
    {
        const Run run = kelxml({"--help"});
        QCOMPARE(run.status, 0);
        const QString commands =
            "Commands:\n"
            "  check [--as CLASS] FILE...\n"
            "                            Read the first element of each file as an object of\n"
            "                            CLASS and say whether it is valid; otherwise print\n"
            "                            the located read error or the validation report\n"
            "                            (its first 100 faults unless --faults says otherwise)\n"
            "                            and each fault where its element starts. Without\n"
            "                            --as, the root element says which document it is.\n"
            "                            --output json or github prints records for programs.\n"
            "  format [--as CLASS] FILE  Read the element and write it back to standard output\n"
            "                            in its canonical, indented form.\n"
            "  json [--as CLASS] FILE    Write the typed content of the element as JSON: one\n"
            "                            object per element (element, class, attributes,\n"
            "                            value and unit, children) in writing order. A view\n"
            "                            for programs; it is not read back.\n"
            "  diff [--as scenario|command|CLASS] A B\n"
            "                            Compare two documents of one kind object by object\n"
            "                            (matched by kind and name, or a command's reference):\n"
            "                            one line a difference. Exit 0 when none, 1 when some.\n"
            "                            --output json prints one record a difference.\n"
            "  classes                   List the element classes (and aliases) known.\n"
            "  geojson [--as scenario|command|response] FILE [--scenario FILE] [-o OUT]\n"
            "                            Write the areas, stations, direction finders,\n"
            "                            receivers, emitters and result records of a scenario\n"
            "                            snapshot, of the create commands of a command\n"
            "                            message, or of a response beside the document given\n"
            "                            with --scenario that holds what it names, as GeoJSON.\n"
            "  svg [--as scenario|command|response] FILE [--scenario FILE] [-o OUT]\n"
            "                            Write the same objects as an SVG map.\n"
            "  kml [--as scenario|command|response] FILE [--scenario FILE] [-o OUT]\n"
            "                            Write the same objects as KML; with -o OUT.kmz as a\n"
            "                            KMZ that holds the pictures placed with --picture\n"
            "                            IMG --extent ... as ground overlays.\n"
            "  worldfile IMG --extent area:NAME|result:NAME|W,S,E,N [--scenario FILE]\n"
            "                            Write the world file (.pgw, .jgw) and the .aux.xml\n"
            "                            (WGS 84) that place the picture on the extent: an\n"
            "                            area or result record of --scenario, or degrees.\n"
            "\n"
            "FILE '-' reads standard input.\n"
            "\n"
            "Files are read as untrusted input:";
        QVERIFY2(run.out.contains(commands), qPrintable(run.out));
        QVERIFY2(
            run.out.contains(
                "\n  command                      check, format, json, diff, classes, geojson,\n"
                "                               svg, kml or worldfile.\n"),
            qPrintable(run.out));
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
                     "    Illegal frequency.\n    Illegal unit.\n    --- in XmlFreqType End\n" +
                     invalid + ":1:28: XmlFreqType: Illegal frequency.\n" + invalid +
                     ":1:28: XmlFreqType: Illegal unit.\n");

        run = kelxml({"check", "--as", "XmlFreqType", missing, trailing, invalid});
        QCOMPARE(run.status, 2);
        QVERIFY2(run.out.startsWith(missing + ": error: cannot open: ") &&
                     run.out.contains(trailing + ":1:22: error: not well-formed XML: "),
                 qPrintable(run.out));
    }

    // A report is cut after the faults asked for, each shown inside all of its
    // blocks, and the rest are counted; "all" and the default show the whole.
    void reportIsCutAfterTheFaultsAsked_data()
    {
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QString>("report");
        QTest::addColumn<QStringList>("located"); // as many as the report shows
        const QStringList located{":1:23: XmlFreqThrPairType: Version \"2.0\" not supported",
                                  ":1:170: XmlFieldstrengthType: Illegal unit.",
                                  ":1:213: XmlFreqThrPairType: Version \"3.0\" not supported"};
        const QString whole = "    +++ in XmlFreqThrListType Begin:\n"
                              "    +++ in XmlFreqThrPairType Begin:\n"
                              "    Version \"2.0\" not supported\n"
                              "    --- in XmlFreqThrPairType End\n"
                              "    +++ in XmlFreqThrPairType Begin:\n"
                              "    +++ in XmlFieldstrengthType Begin:\n"
                              "    Illegal unit.\n"
                              "    --- in XmlFieldstrengthType End\n"
                              "    --- in XmlFreqThrPairType End\n"
                              "    +++ in XmlFreqThrPairType Begin:\n"
                              "    Version \"3.0\" not supported\n"
                              "    --- in XmlFreqThrPairType End\n"
                              "    --- in XmlFreqThrListType End\n";
        QTest::newRow("default") << QStringList() << whole << located;
        QTest::newRow("all") << QStringList{"--faults", "all"} << whole << located;
        QTest::newRow("as many as there are") << QStringList{"--faults", "3"} << whole << located;
        // The first nine lines hold two faults; the list's block is closed after them.
        const QStringList lines = whole.split('\n');
        QTest::newRow("two") << QStringList{"--faults", "2"}
                             << lines.mid(0, 9).join('\n') + "\n" + lines.at(12) +
                                    "\n    ... 1 more fault of 3 not shown (--faults all shows "
                                    "every one)\n"
                             << QStringList(located.mid(0, 2));
        QTest::newRow("none") << QStringList{"--faults", "0"}
                              << "    ... 3 more faults of 3 not shown (--faults all shows every "
                                 "one)\n"
                              << QStringList();
    }
    void reportIsCutAfterTheFaultsAsked()
    {
        QFETCH(QStringList, options);
        QFETCH(QString, report);
        QFETCH(QStringList, located);
        QTemporaryDir dir;
        QFile file(dir.filePath(QStringLiteral("pairs.xml")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<L><Pair version=\"2.0\"><Frequency unit=\"MHz\">5</Frequency>"
                   "<RxThreshold unit=\"dBm\">-5</RxThreshold></Pair>"
                   "<Pair><Frequency unit=\"MHz\">5</Frequency>"
                   "<RxThreshold unit=\"dBW\">-5</RxThreshold></Pair>"
                   "<Pair version=\"3.0\"><Frequency unit=\"MHz\">5</Frequency>"
                   "<RxThreshold unit=\"dBm\">-5</RxThreshold></Pair></L>");
        file.close();
        const Run run =
            kelxml(QStringList{"check", "--as", "XmlFreqThrListType", file.fileName()} + options);
        QCOMPARE(run.status, 1);
        QString expected = file.fileName() + ": invalid XmlFreqThrListType \"L\":\n" + report;
        for (const QString& line : located)
            expected += file.fileName() + line + QLatin1Char('\n');
        QCOMPARE(run.out, expected);
    }

    // A file beyond a limit is unreadable; the answer names the limit and the
    // option that raises it, and raising it lets the file through.
    void limits_data()
    {
        QTest::addColumn<QByteArray>("xml");
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QString>("error");
        QTest::addColumn<QStringList>("raised");
        const QByteArray command("<Command a=\"1\" b=\"2\">\n"
                                 "  <ORDER_DEF>\n"
                                 "    <ORDER_ID>KEL261123101500123</ORDER_ID>\n"
                                 "    <ORDER_SENDER>planning-client</ORDER_SENDER>\n"
                                 "  </ORDER_DEF>\n"
                                 "</Command>\n");
        const QString size = QString::number(command.size());
        const QString oneLess = QString::number(command.size() - 1);
        QTest::newRow("bytes") << command << QStringList{"--max-bytes", oneLess}
                               << ":1:1: error: the document is larger than " + oneLess +
                                      " bytes (limit maxBytes); raise it with --max-bytes"
                               << QStringList{"--max-bytes", size};
        QTest::newRow("attributes")
            << command << QStringList{"--max-attributes", "1"}
            << ":1:16: error: more than 1 attributes in one start tag (limit maxAttributes); "
               "raise it with --max-attributes"
            << QStringList{"--max-attributes=2"};
        QTest::newRow("depth") << command << QStringList{"--max-depth", "2"}
                               << ":3:5: error: elements nested deeper than 2 levels (limit "
                                  "maxDepth); raise it with --max-depth"
                               << QStringList{"--max-depth", "3"};
        QTest::newRow("value length")
            << command << QStringList{"--max-value-length", "17"}
            << ":3:15: error: a text, value, name or comment longer than 17 bytes (limit "
               "maxValueLength); raise it with --max-value-length"
            << QStringList{"--max-value-length", "18"};
        QTest::newRow("DTD") << QByteArray("<!DOCTYPE Command>\n<Command/>") << QStringList()
                             << ":1:1: error: a document type declaration is not accepted"
                             << QStringList();
        QTest::newRow("NUL") << QByteArray("<Command>\0</Command>", 20) << QStringList()
                             << ":1:10: error: a NUL byte is not accepted" << QStringList();
    }
    void limits()
    {
        QFETCH(QByteArray, xml);
        QFETCH(QStringList, options);
        QFETCH(QString, error);
        QFETCH(QStringList, raised);
        QTemporaryDir dir;
        QFile file(dir.filePath(QStringLiteral("message.xml")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(xml);
        file.close();

        const QStringList check{"check", "--as", "command", file.fileName()};
        Run run = kelxml(check + options);
        QCOMPARE(run.status, 2);
        QCOMPARE(run.out, file.fileName() + error + "\n");
        run = kelxml(QStringList{"format", "--as", "command", file.fileName()} + options);
        QCOMPARE(run.status, 2);
        QCOMPARE(run.err, file.fileName() + error + "\n");
        if (!raised.isEmpty()) {
            run = kelxml(check + raised);
            QCOMPARE(run.out, file.fileName() + ": valid XmlCmdRoot \"Command\"\n");
            QCOMPARE(run.status, 0);
        }
    }

    // The hostile inputs a server may meet are refused by the tool too, each
    // with its position and the limit or rule that refused it.
    void hostileFiles_data()
    {
        QTest::addColumn<QByteArray>("xml");
        QTest::addColumn<qint64>("size"); // a sparse file of this size instead
        QTest::addColumn<QString>("error");
        QByteArray attributes("<Command");
        for (int i = 0; i < 40000; ++i)
            attributes += " a" + QByteArray::number(i) + "=\"1\"";
        QTest::newRow("40000 attributes")
            << attributes + "/>" << qint64(0)
            << ":1:" + QString::number(attributes.indexOf("a32=") + 1) +
                   ": error: more than 32 attributes in one start tag (limit maxAttributes); raise "
                   "it with --max-attributes";
        QTest::newRow("1000000 nested")
            << QByteArray("<a>").repeated(1000000) << qint64(0)
            << ":1:193: error: elements nested deeper than 64 levels (limit maxDepth); raise it "
               "with --max-depth";
        QTest::newRow("entity") << "<!DOCTYPE d [<!ENTITY a \"" + QByteArray(4000, 'a') +
                                       "\">]>\n<d>" + QByteArray("&a;").repeated(50000) + "</d>"
                                << qint64(0)
                                << ":1:1: error: a document type declaration is not accepted";
        QTest::newRow("1 GiB") << QByteArray() << (qint64(1) << 30)
                               << ":1:1: error: the document is larger than 67108864 bytes (limit "
                                  "maxBytes); raise it with --max-bytes";
        QTest::newRow("invalid UTF-8") << QByteArray("<Command>\n\xC0\xAF</Command>") << qint64(0)
                                       << ":2:1: error: invalid UTF-8";
        QTest::newRow("truncated") << QByteArray("<Command>\n  <ORDER_DEF>") << qint64(0)
                                   << ":2:14: error: not well-formed XML: Premature end of "
                                      "document.";
    }
    void hostileFiles()
    {
        QFETCH(QByteArray, xml);
        QFETCH(qint64, size);
        QFETCH(QString, error);
        QTemporaryDir dir;
        QFile file(dir.filePath(QStringLiteral("message.xml")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(xml);
        if (size > 0)
            QVERIFY(file.resize(size)); // sparse: no room taken on disk
        file.close();
        const Run run = kelxml({"check", "--as", "command", file.fileName()});
        QCOMPARE(run.out, file.fileName() + error + "\n");
        QCOMPARE(run.status, 2);
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
    // Without --as every sample of the three documents gets the answer it gets
    // with it, and the answer says which kind was taken.
    void byContentAsWithAs_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("kind");
        const QList<QPair<QString, QString>> documents{
            {"XmlCmdRoot", "command"}, {"XmlRespRoot", "response"}, {"XmlKelBtType", "scenario"}};
        for (const auto& document : documents) {
            const QDir dir(QStringLiteral(KELXML_EXAMPLES "/") + document.first);
            for (const QString& name : dir.entryList({QStringLiteral("*.xml")}, QDir::Files))
                QTest::newRow(qPrintable(document.first + '/' + name))
                    << dir.filePath(name) << document.second;
        }
    }
    void byContentAsWithAs()
    {
        QFETCH(QString, file);
        QFETCH(QString, kind);
        const Run with = kelxml({"check", "--as", kind, file});
        const Run without = kelxml({"check", file});
        QCOMPARE(without.status, with.status);
        const QString taken = " (read as " + kind + ")";
        if (with.status != 2)
            QVERIFY2(without.out.contains(taken), qPrintable(without.out));
        QCOMPARE(QString(without.out).replace(taken, QString()), with.out);
        const Run json = kelxml({"check", "--output", "json", file});
        QCOMPARE(json.status, with.status);
        QVERIFY2(json.out.contains("\"kind\":\"" + kind + "\""), qPrintable(json.out));
    }

    // A root that shows no kind is refused and the answer asks for --as; the
    // other files are still answered.
    void rootWithoutKindNeedsAs()
    {
        QTemporaryDir dir;
        const QString empty = dir.filePath(QStringLiteral("empty.xml"));
        QFile out(empty);
        QVERIFY(out.open(QIODevice::WriteOnly));
        out.write("<Command></Command>");
        out.close();
        const QString valid = QStringLiteral(KELXML_EXAMPLES "/XmlCmdRoot/valid-create-aoi.xml");
        const Run run = kelxml({"check", empty, valid});
        QCOMPARE(run.status, 2);
        QVERIFY2(run.out.startsWith(empty + ": error: ") && run.out.contains("--as") &&
                     run.out.contains(valid + ": valid XmlCmdRoot"),
                 qPrintable(run.out));
        const Run json = kelxml({"check", "--output", "json", empty});
        QCOMPARE(json.status, 2);
        QVERIFY2(
            json.out.contains("\"verdict\":\"unreadable\",\"error\":{\"kind\":\"UnknownKind\""),
            qPrintable(json.out));
    }

    // "-" reads standard input, with --as or without.
    void standardInput_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("answer");
        QTest::newRow("as command") << QStringList{"check", "--as", "command", "-"}
                                    << "-: invalid XmlCmdRoot \"Command\":\n";
        QTest::newRow("by content") << QStringList{"check", "-"}
                                    << "-: invalid XmlCmdRoot \"Command\" (read as command):\n";
        QTest::newRow("format") << QStringList{"format", "-"} << "<?xml version=\"1.0\"";
    }
    void standardInput()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, answer);
        QFile sample(QStringLiteral(KELXML_EXAMPLES "/XmlCmdRoot/invalid-station-and-order.xml"));
        QVERIFY(sample.open(QIODevice::ReadOnly));
        QProcess process;
        process.start(QStringLiteral(KELXML_TOOL), arguments);
        process.write(sample.readAll());
        process.closeWriteChannel();
        QVERIFY(process.waitForFinished(20000));
        QCOMPARE(process.exitCode(), 1);
        const QString out = QString::fromUtf8(process.readAllStandardOutput());
        QVERIFY2(out.startsWith(answer), qPrintable(out));
        if (arguments.first() == QLatin1String("check"))
            QVERIFY2(out.contains("\n-:25:46: XmlDegreesType: Illegal decibel.\n"),
                     qPrintable(out));
    }

    // github: one annotation a fault, where the text output's located lines
    // put it; a file beyond a limit is one annotation at the fault.
    void githubAnnotations()
    {
        const QString file =
            QStringLiteral(KELXML_EXAMPLES "/XmlCmdRoot/invalid-station-and-order.xml");
        const Run text = kelxml({"check", file});
        const Run github = kelxml({"check", "--output", "github", file});
        QCOMPARE(github.status, text.status);
        const QStringList annotations = github.out.split('\n', Qt::SkipEmptyParts);
        QStringList located;
        for (const QString& line : text.out.split('\n')) {
            if (line.startsWith(file + ':') && line.at(file.size() + 1).isDigit())
                located.append(line.mid(file.size() + 1));
        }
        QCOMPARE(annotations.size(), located.size());
        for (int i = 0; i < annotations.size(); ++i) {
            const QStringList place = located.at(i).section(": ", 0, 0).split(':');
            const QString message = located.at(i).section(": ", 1);
            QCOMPARE(annotations.at(i), "::error file=" + QString(file).replace(':', "%3A") +
                                            ",line=" + place.at(0) + ",col=" + place.at(1) +
                                            "::" + message);
        }
        const Run refused = kelxml({"check", "--output", "github", "--max-depth", "2", file});
        QCOMPARE(refused.status, 2);
        QVERIFY2(refused.out.startsWith("::error file=") &&
                     refused.out.count(QLatin1String("::error")) == 1,
                 qPrintable(refused.out));
    }

    // diff of a sample against its own formatted form finds nothing, for every
    // sample whose formatted form reads back.
    void diffAgainstFormatted_data()
    {
        QTest::addColumn<QString>("className");
        QTest::addColumn<QString>("file");
        const QDir examples(QStringLiteral(KELXML_EXAMPLES));
        for (const QString& folder : examples.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            const QDir dir(examples.filePath(folder));
            for (const QString& file : dir.entryList({"*.xml"}, QDir::Files)) {
                if (folder != QLatin1String("maps") && !file.startsWith("unreadable"))
                    QTest::newRow(qPrintable(folder + '/' + file)) << folder << dir.filePath(file);
            }
        }
    }
    void diffAgainstFormatted()
    {
        QFETCH(QString, className);
        QFETCH(QString, file);
        QTemporaryDir dir;
        const QString formatted = dir.filePath("formatted.xml");
        QProcess format;
        format.setStandardOutputFile(formatted);
        format.start(QStringLiteral(KELXML_TOOL), {"format", "--as", className, file});
        QVERIFY(format.waitForFinished(20000));
        if (kelxml({"check", "--as", className, formatted}).status == 2)
            QSKIP("the formatted form does not read back");
        const Run diff = kelxml({"diff", "--as", className, file, formatted});
        QCOMPARE(diff.out, QString());
        QCOMPARE(diff.status, 0);
    }

    // One value changed in one object: one line naming the object, old and
    // new value as written, with the unit. Moving an object changes nothing.
    void diffByObject_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<QStringList>("lines");
        const QString harbour =
            QStringLiteral(KELXML_EXAMPLES "/XmlKelBtType/valid-harbour-network.xml");
        const QString calculations =
            QStringLiteral(KELXML_EXAMPLES "/XmlCmdRoot/valid-six-calculations.xml");
        QTest::newRow("threshold")
            << harbour << "<RxThreshold version=\"1.0\" unit=\"dBm\">-115<"
            << "<RxThreshold version=\"1.0\" unit=\"dBm\">-104<"
            << QStringList{"Receiver \"Receiver East\": RxParameter/RxThreshold: "
                           "-115.000000000000000 dBm -> -104.000000000000000 dBm"};
        QTest::newRow("name in the wrong order is another object")
            << harbour << "<Name>DF South</Name>"
            << "<Name>DF Sud</Name>"
            << QStringList{"DirectionFinder \"DF South\": removed",
                           "DirectionFinder \"DF Sud\": added"};
        QTest::newRow("vertex")
            << harbour << "<Latitude>53.546000<"
            << "<Latitude>53.547000<"
            << QStringList{"AreaOfInterest \"Harbour basin\": AreaPolygon/Vertex[3]: version=1.0 "
                           "number=2 Longitude=8.612000 Latitude=53.546000 -> version=1.0 "
                           "number=2 Longitude=8.612000 Latitude=53.547000 (6 -> 6 vertices)"};
        QTest::newRow("screenshot path")
            << harbour << "harbour-network.png"
            << "harbour.png"
            << QStringList{"ScreenshotPath: /srv/planning/snapshots/harbour-network.png -> "
                           "/srv/planning/snapshots/harbour.png"};
        QTest::newRow("attribute")
            << harbour << "<AntennaHeight version=\"1.0\" unit=\"m\">15<"
            << "<AntennaHeight version=\"2.0\" unit=\"m\">15<"
            << QStringList{
                   "Receiver \"Receiver East\": RxParameter/AntennaHeight/@version: 1.0 -> 2.0"};
        QTest::newRow("calculation by reference")
            << calculations << "<Reference>calc-2</Reference>"
            << "<Reference>calc-9</Reference>"
            << QStringList{"Calculate \"calc-2\": removed", "Calculate \"calc-9\": added"};
    }
    void diffByObject()
    {
        QFETCH(QString, file);
        QFETCH(QString, from);
        QFETCH(QString, to);
        QFETCH(QStringList, lines);
        QFile original(file);
        QVERIFY(original.open(QIODevice::ReadOnly));
        QString text = QString::fromUtf8(original.readAll());
        QCOMPARE(text.count(from), 1);
        text.replace(from, to);
        QTemporaryDir dir;
        const QString edited = dir.filePath("edited.xml");
        QVERIFY(writeFile(edited, text.toUtf8()));
        const Run diff = kelxml({"diff", file, edited});
        QCOMPARE(diff.out.split('\n', Qt::SkipEmptyParts), lines);
        QCOMPARE(diff.status, 1);
        QCOMPARE(diff.err, QString());
    }

    // The samples before and after an edit; reordered objects, a reordered
    // command and a duplicated name.
    void diffOfEditedScenario()
    {
        const QString before =
            QStringLiteral(KELXML_EXAMPLES "/XmlKelBtType/valid-harbour-network.xml");
        const QString after =
            QStringLiteral(KELXML_EXAMPLES "/XmlKelBtType/valid-harbour-network-edited.xml");
        const Run diff = kelxml({"diff", "--as", "scenario", before, after});
        QCOMPARE(diff.status, 1);
        QCOMPARE(diff.out,
                 "Receiver \"Receiver East\": Position/Longitude: 8.668000 -> 8.671000\n"
                 "Receiver \"Receiver East\": RxParameter/RxThreshold: -115.000000000000000 dBm "
                 "-> -112.000000000000000 dBm\n"
                 "DirectionFinder \"DF West\": removed\n");
        const Run json = kelxml({"diff", "--output", "json", before, after});
        QCOMPARE(json.status, 1);
        const QStringList records = json.out.split('\n', Qt::SkipEmptyParts);
        QCOMPARE(records.size(), 3);
        const QJsonObject first = QJsonDocument::fromJson(records.first().toUtf8()).object();
        QCOMPARE(first.value("object").toString(), "Receiver \"Receiver East\"");
        QCOMPARE(first.value("kind").toString(), "Receiver");
        QCOMPARE(first.value("name").toString(), "Receiver East");
        QCOMPARE(first.value("change").toString(), "changed");
        QCOMPARE(first.value("path").toString(), "Position/Longitude");
        QCOMPARE(first.value("old").toString(), "8.668000");
        QCOMPARE(first.value("new").toString(), "8.671000");
        const QJsonObject last = QJsonDocument::fromJson(records.last().toUtf8()).object();
        QCOMPARE(last.value("change").toString(), "removed");
        QVERIFY(last.value("path").isNull());

        // Calculations in another order: the same message.
        QFile file(QStringLiteral(KELXML_EXAMPLES "/XmlCmdRoot/valid-six-calculations.xml"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        const int firstCalculation = int(text.indexOf("  <Calculate>"));
        const int secondCalculation = int(text.indexOf("  <Calculate>", firstCalculation + 1));
        QString swapped = text;
        swapped.remove(firstCalculation, secondCalculation - firstCalculation);
        swapped.insert(int(swapped.indexOf("</Command>")),
                       text.mid(firstCalculation, secondCalculation - firstCalculation));
        QTemporaryDir dir;
        const QString moved = dir.filePath("moved.xml");
        QVERIFY(writeFile(moved, swapped.toUtf8()));
        const Run same = kelxml({"diff", "--as", "command", file.fileName(), moved});
        QCOMPARE(same.out, QString());
        QCOMPARE(same.status, 0);

        // A name given twice is reported, not paired.
        QString twice = swapped;
        twice.replace("<Reference>calc-3</Reference>", "<Reference>calc-1</Reference>");
        QVERIFY(writeFile(moved, twice.toUtf8()));
        const Run duplicate = kelxml({"diff", "--as", "command", file.fileName(), moved});
        QCOMPARE(duplicate.out, "Calculate \"calc-1\": duplicate: 1 in the first file, 2 in the "
                                "second; not compared\nCalculate \"calc-3\": removed\n");
        QCOMPARE(duplicate.status, 1);

        const Run unreadable = kelxml({"diff", file.fileName(), dir.filePath("missing.xml")});
        QCOMPARE(unreadable.status, 2);
        QVERIFY(unreadable.out.isEmpty());
    }

    // json: numbers with the written digits, a value JSON cannot hold as a
    // number as the written text, the unit beside the value.
    void jsonView()
    {
        QTemporaryDir dir;
        const QString file = dir.filePath("level.xml");
        QVERIFY(writeFile(file, "<RxThreshold version=\"1.0\" unit=\"dBm\">nan</RxThreshold>"));
        const Run nan = kelxml({"json", "--as", "XmlFieldstrengthType", file});
        QCOMPARE(nan.status, 0);
        QCOMPARE(nan.out, "{\"element\":\"RxThreshold\",\"class\":\"XmlFieldstrengthType\","
                          "\"attributes\":{\"version\":\"1.0\",\"unit\":\"dBm\"},\"value\":\"nan\","
                          "\"unit\":\"dBm\",\"children\":[]}\n");
        QVERIFY(writeFile(file, "<Frequency version=\"1.0\" unit=\"kHz\">1500</Frequency>"));
        const Run number = kelxml({"json", "--as", "XmlFreqType", file});
        QVERIFY2(number.out.contains("\"value\":1500.000000,\"unit\":\"kHz\""),
                 qPrintable(number.out));
    }
};

QTEST_GUILESS_MAIN(TestKelxmlTool)
#include "tst_kelxml.moc"
