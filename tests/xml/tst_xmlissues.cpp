// The faults of an element tree as data (XmlIssue): the same messages as the
// report, and each where the element whose rule failed starts.

#include <XmlAoiType.h>
#include <XmlAreaPolyType.h>
#include <XmlCmdRoot.h>
#include <XmlDocumentReader.h>
#include <XmlFreqType.h>
#include <XmlIssues.h>
#include <XmlNumCoordType.h>
#include <XmlOrderDef.h>

#include <QDir>
#include <QFile>
#include <QHash>
#include <QXmlStreamReader>
#include <QtTest>

#include <utility>
#include <vector>

using namespace KelXml;

namespace {

struct Position
{
    qint64 line = 0;
    qint64 column = 0;
};

// Every element of the document by its path ("A/B[2]/C", the number from the
// second sibling of a name on), where a plain reader stands on its start tag.
QHash<QString, Position> startTags(const QByteArray& document)
{
    QHash<QString, Position> tags;
    QXmlStreamReader reader(document);
    std::vector<std::pair<QString, QHash<QString, int>>> open; // path, children by name
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::StartElement) {
            const QString name = reader.name().toString();
            QString path = name;
            if (!open.empty()) {
                const int number = ++open.back().second[name];
                path = open.back().first + QLatin1Char('/') + name;
                if (number > 1)
                    path += QStringLiteral("[%1]").arg(number);
            }
            tags.insert(path, {reader.lineNumber(), reader.columnNumber()});
            open.emplace_back(path, QHash<QString, int>());
        } else if (token == QXmlStreamReader::EndElement) {
            open.pop_back();
        }
    }
    return tags;
}

// The element at the path, or for one the document lacks, the nearest one
// around it that it holds.
Position startTagOf(const QHash<QString, Position>& tags, QString path)
{
    while (!path.isEmpty()) {
        const auto found = tags.constFind(path);
        if (found != tags.constEnd())
            return *found;
        path.truncate(qMax(0, int(path.lastIndexOf(QLatin1Char('/')))));
    }
    return {};
}

bool isFrame(const QString& line)
{
    return (line.startsWith(QLatin1String("+++ in ")) && line.endsWith(QLatin1String(" Begin:"))) ||
           (line.startsWith(QLatin1String("--- in ")) && line.endsWith(QLatin1String(" End")));
}

// The report's messages, each with the class of the block around it.
QList<std::pair<QString, QString>> reportLines(const QString& report)
{
    QList<std::pair<QString, QString>> lines;
    QStringList frames;
    for (const QString& line : report.split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("+++ in ")) && isFrame(line))
            frames.append(line.mid(7, line.size() - 7 - 7));
        else if (isFrame(line))
            frames.removeLast();
        else
            lines.append({line, frames.isEmpty() ? QString() : frames.last()});
    }
    return lines;
}

QByteArray sample(const QString& path)
{
    QFile file(QStringLiteral(KELXML_EXAMPLES "/") + path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

XmlReadResult readWithPositions(const QString& className, const QByteArray& document)
{
    XmlDocumentReader reader;
    reader.setRecordsPositions(true);
    return reader.read(className, document);
}

XmlElementBase& base(const XmlReadResult& result)
{
    return dynamic_cast<XmlElementBase&>(*result.root);
}

} // namespace

class TestXmlIssues : public QObject
{
    Q_OBJECT

private slots:
    void everyInvalidSample_data()
    {
        QTest::addColumn<QString>("path");
        const QDir examples(QStringLiteral(KELXML_EXAMPLES));
        for (const QString& dir : examples.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            for (const QString& file :
                 QDir(examples.filePath(dir)).entryList({QStringLiteral("invalid-*.xml")}))
                QTest::newRow(qPrintable(dir + QLatin1Char('/') + file))
                    << dir + QLatin1Char('/') + file;
        }
    }

    // The issues are the report's messages in its order, framed by the same
    // classes, and each stands where a plain reader finds its element.
    void everyInvalidSample()
    {
        QFETCH(QString, path);
        const QByteArray document = sample(path);
        QVERIFY(!document.isEmpty());
        const XmlReadResult result =
            readWithPositions(path.section(QLatin1Char('/'), 0, 0), document);
        QVERIFY2(!result.error, qPrintable(result.error.text()));
        const QList<XmlIssue> issues = XmlIssueSink::collect(base(result));
        const auto lines = reportLines(result.root->syntaxError());
        QVERIFY(!issues.isEmpty());
        QCOMPARE(issues.size(), lines.size());
        const QHash<QString, Position> tags = startTags(document);
        for (int i = 0; i < issues.size(); ++i) {
            const XmlIssue& issue = issues.at(i);
            QCOMPARE(issue.message, lines.at(i).first);
            QCOMPARE(issue.frameClass, lines.at(i).second);
            QVERIFY2(issue.path.startsWith(result.rootName), qPrintable(issue.path));
            QVERIFY2(tags.contains(issue.path.section(QLatin1Char('/'), 0, -2)) ||
                         !issue.path.contains(QLatin1Char('/')),
                     qPrintable(issue.path));
            const Position expected = startTagOf(tags, issue.path);
            QVERIFY2(expected.line > 0, qPrintable(issue.path));
            QCOMPARE(issue.line, expected.line);
            QCOMPARE(issue.column, expected.column);
        }
    }

    // A numbered vertex reports under the coordinate's frame but is raised
    // by its own class; vertices sorted after reading keep their number as read.
    void vertexInItsPlaceAsRead()
    {
        const QByteArray document = "<AreaPolygon version=\"1.0\">\n"
                                    "  <Vertex version=\"1.0\" number=\"2\">\n"
                                    "   <Longitude>1</Longitude><Latitude>1</Latitude></Vertex>\n"
                                    "  <Vertex version=\"1.0\" number=\"1\">\n"
                                    "   <Longitude>1</Longitude><Latitude>95</Latitude></Vertex>\n"
                                    "  <Vertex version=\"1.0\" number=\"0\">\n"
                                    "   <Longitude>0</Longitude><Latitude>0</Latitude></Vertex>\n"
                                    "</AreaPolygon>\n";
        const XmlReadResult result = readWithPositions(QStringLiteral("XmlAreaPolyType"), document);
        QVERIFY2(!result.error, qPrintable(result.error.text()));
        const QList<XmlIssue> issues = XmlIssueSink::collect(base(result));
        QVERIFY(!issues.isEmpty());
        const XmlIssue& latitude = issues.first();
        QCOMPARE(latitude.className, QStringLiteral("XmlNumCoordType"));
        QCOMPARE(latitude.frameClass, QStringLiteral("XmlCoordinateType"));
        // The second vertex of the document, held second after sorting too.
        QCOMPARE(latitude.path, QStringLiteral("AreaPolygon/Vertex[2]"));
        QCOMPARE(latitude.line, 4);
    }

    // Off by default: paths, no positions, and no place on any element.
    void noPositionsUnlessAsked()
    {
        const QByteArray document =
            sample(QStringLiteral("XmlCmdRoot/invalid-station-and-order.xml"));
        const XmlReadResult result = XmlDocumentReader().readCommand(document);
        QVERIFY(!result.error);
        QVERIFY(base(result).place().isNull());
        const QList<XmlIssue> issues = XmlIssueSink::collect(base(result), result.rootName);
        QCOMPARE(issues.size(), 2);
        QCOMPARE(issues.at(0).path, QStringLiteral("Command/ORDER_DEF"));
        QCOMPARE(issues.at(1).path,
                 QStringLiteral("Command/Create/Station/SignalPath/Device/Device/Degrees/Degrees"));
        for (const XmlIssue& issue : issues)
            QCOMPARE(issue.line, 0);
    }

    // A copy keeps the positions, the report leaves them alone, reset() and
    // a setter that replaces a child drop the replaced ones.
    void positionsFollowTheObjects()
    {
        const QByteArray document =
            sample(QStringLiteral("XmlCmdRoot/invalid-station-and-order.xml"));
        const XmlReadResult result = readWithPositions(QStringLiteral("command"), document);
        auto* root = result.rootAs<XmlCmdRoot>();
        QVERIFY(root);
        const QList<XmlIssue> read = XmlIssueSink::collect(*root);
        QCOMPARE(read.at(0).line, 4);

        root->syntaxError();
        XmlCmdRoot copy(*root);
        XmlCmdRoot assigned;
        assigned = copy;
        for (const XmlCmdRoot* tree : {root, &copy, &assigned}) {
            const QList<XmlIssue> again = XmlIssueSink::collect(*tree);
            QCOMPARE(again.size(), read.size());
            for (int i = 0; i < read.size(); ++i) {
                QCOMPARE(again.at(i).path, read.at(i).path);
                QCOMPARE(again.at(i).line, read.at(i).line);
                QCOMPARE(again.at(i).column, read.at(i).column);
            }
        }

        copy.setOrderDef(XmlOrderDef());
        const QList<XmlIssue> replaced = XmlIssueSink::collect(copy);
        QCOMPARE(replaced.at(0).path, QStringLiteral("Command/ORDER_DEF"));
        QCOMPARE(replaced.at(0).line, 3); // the root's start tag: the new child was never read
        QCOMPARE(replaced.last().line, read.last().line);

        copy.reset();
        QVERIFY(copy.place().isNull());
        QVERIFY(!root->place().isNull());
    }

    // A tree built by setters reports the names it is written with.
    void builtBySetters()
    {
        XmlAreaPolyType polygon;
        std::vector<XmlNumCoordType> vertices(3);
        QVector<XmlNumCoordType*> pointers;
        for (int number : {0, 1, 2}) {
            vertices[size_t(number)].setNumber(number);
            vertices[size_t(number)].setLatitude(number == 2 ? 95.0 : 1.0);
            vertices[size_t(number)].setLongitude(1.0);
            pointers.append(&vertices[size_t(number)]);
        }
        polygon.setVertices(pointers);
        XmlAoiType aoi;
        aoi.setAreaPoly(polygon);
        const QList<XmlIssue> issues = XmlIssueSink::collect(aoi, QStringLiteral("AOI"));
        QVERIFY(!issues.isEmpty());
        bool vertexFound = false;
        for (const XmlIssue& issue : issues) {
            QCOMPARE(issue.line, 0);
            QVERIFY2(issue.path.startsWith(QLatin1String("AOI")), qPrintable(issue.path));
            if (issue.message == QLatin1String("Latitude out of bounds")) {
                QCOMPARE(issue.path, QStringLiteral("AOI/AreaPolygon/Vertex[3]"));
                vertexFound = true;
            }
        }
        QVERIFY(vertexFound);
    }

    // A bare reader records positions while a recorder stands on it, and
    // gets its own entity resolver back.
    void recorderOnABareReader()
    {
        QXmlStreamReader reader(QByteArrayLiteral(
            "<Doc>\n  <Frequency version=\"2.0\" unit=\"MHz\">1</Frequency></Doc>"));
        reader.readNextStartElement();
        reader.readNextStartElement();
        struct Resolver : QXmlStreamEntityResolver
        {
        } resolver;
        reader.setEntityResolver(&resolver);
        XmlFreqType frequency;
        {
            XmlPositionRecorder recorder(reader);
            QCOMPARE(XmlPositionRecorder::of(reader), &recorder);
            frequency.processXml(reader, QStringLiteral("Frequency"));
        }
        QCOMPARE(reader.entityResolver(), &resolver);
        QCOMPARE(frequency.place().line, 2);
        QCOMPARE(frequency.place().column, 38);
        QCOMPARE(frequency.place().elementName, QStringLiteral("Frequency"));
        QCOMPARE(frequency.place().index, 1);
        // The version the reading refused shows in the report, placed.
        const QList<XmlIssue> issues = XmlIssueSink::collect(frequency, QStringLiteral("F"));
        QCOMPARE(issues.size(), 1);
        QCOMPARE(issues.first().path, QStringLiteral("Frequency"));
    }
};

QTEST_GUILESS_MAIN(TestXmlIssues)
#include "tst_xmlissues.moc"
