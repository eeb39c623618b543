// The SVG map stays readable: on every sample map and on a snapshot of a
// few hundred objects spread over the globe, no two tick labels overlap, no
// tick lies beyond the globe, no two names overlap, none stands under the
// legend or beyond the frame, and most objects keep their name. The boxes are
// computed here from the SVG's own attributes (position, anchor, class) with
// the map font's advance widths; the layout's own parts are checked beside.

#include "KelXmlTest.h"
#include "SvgLayout.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QtTest>

using SvgLayout::Rect;

namespace {

QByteArray runSvg(const QString& alias, const QString& file, int& status)
{
    QProcess process;
    process.start(QStringLiteral(KELXML_TOOL), {"svg", "--as", alias, file});
    process.waitForFinished(60000);
    status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    return process.readAllStandardOutput();
}

// A text of the map with the box it takes on the page.
struct Text
{
    QString content;
    QString classes;
    Rect box;
};

struct Map
{
    Rect frame;
    Rect legend;
    QVector<Text> texts;
    QString leftOutRow; // the legend's "names left out (N)", if any
};

double attribute(const QXmlStreamReader& reader, const char* name)
{
    return reader.attributes().value(QLatin1String(name)).toDouble();
}

Rect rectOf(const QXmlStreamReader& reader)
{
    const double x = attribute(reader, "x");
    const double y = attribute(reader, "y");
    return {x, y, x + attribute(reader, "width"), y + attribute(reader, "height")};
}

// The box of a text as a browser sets it: the style sheet's sizes (axis 11,
// title 16, the rest 12), the names' outline of 1.5 on every side.
Rect boxOf(const QString& content, const QString& classes, double x, double y,
           const QString& anchor)
{
    const double size = classes.contains("axis") ? 11.0 : classes.contains("title") ? 16.0 : 12.0;
    const double halo = classes.startsWith("label") ? 1.5 : 0.0;
    double width = 0.0;
    for (const QChar character : content)
        width += SvgLayout::advance(character) * size / 2048.0;
    const double left = anchor == "middle" ? x - width / 2 : anchor == "end" ? x - width : x;
    return {left - halo, y - 1901.0 / 2048.0 * size - halo, left + width + halo,
            y + 483.0 / 2048.0 * size + halo};
}

Map parse(const QByteArray& svg)
{
    Map map;
    QXmlStreamReader reader(svg);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QString classes = reader.attributes().value("class").toString();
        if (reader.name() == QLatin1String("rect") && classes == "frame")
            map.frame = rectOf(reader);
        else if (reader.name() == QLatin1String("rect") && classes == "legend")
            map.legend = rectOf(reader);
        else if (reader.name() == QLatin1String("text") &&
                 !reader.attributes().hasAttribute("transform")) {
            const double x = attribute(reader, "x");
            const double y = attribute(reader, "y");
            const QString anchor = reader.attributes().value("text-anchor").toString();
            const QString content = reader.readElementText();
            if (content.startsWith("names left out"))
                map.leftOutRow = content;
            map.texts.append({content, classes, boxOf(content, classes, x, y, anchor)});
        }
    }
    if (reader.hasError())
        qWarning("%s", qPrintable(reader.errorString()));
    return map;
}

// The first pair of boxes that overlap, as text; empty when none does.
QString overlap(const QVector<Text>& texts)
{
    for (int i = 0; i < texts.size(); ++i) {
        for (int j = i + 1; j < texts.size(); ++j) {
            if (texts[i].box.intersects(texts[j].box))
                return QString("\"%1\" overlaps \"%2\"").arg(texts[i].content, texts[j].content);
        }
    }
    return QString();
}

const QRegularExpression tickPattern(QStringLiteral("^(?:0|(\\d+(?:\\.\\d+)?))°([EWNS]?)$"));

// A deterministic scatter: the same snapshot on every run and with both Qt
// majors.
class Scatter
{
public:
    double next(double low, double high)
    {
        m_state = m_state * 6364136223846793005ULL + 1442695040888963407ULL;
        return low + (high - low) * double(m_state >> 11) / double(1ULL << 53);
    }

private:
    unsigned long long m_state = 23;
};

QString coordinate(const QString& element, double longitude, double latitude, int number = -1)
{
    const QString numbered = number < 0 ? QString() : QString(" number=\"%1\"").arg(number);
    return QString("<%1 version=\"1.0\"%2><Longitude>%3</Longitude><Latitude>%4</Latitude></%1>")
        .arg(element, numbered, QString::number(longitude, 'f', 6),
             QString::number(latitude, 'f', 6));
}

QString quantity(const QString& element, const QString& unit, const QString& number)
{
    return QString("<%1 version=\"1.0\" unit=\"%2\">%3</%1>").arg(element, unit, number);
}

// A snapshot of `count` objects over the whole globe, two of them at its
// corners: a tenth deployment areas and areas of interest, the rest known
// emitters, receivers and direction finders in equal parts, grouped by kind
// in the order the snapshot takes them.
QByteArray globeScenario(int count)
{
    Scatter scatter;
    const int areas = count / 20;
    const int placed = (count - 2 * areas) / 3;
    const int finders = count - 2 * areas - 2 * placed;
    const QString rx = "<RxParameter version=\"1.0\">" + quantity("AntennaHeight", "m", "15") +
                       quantity("RxThreshold", "dBm", "-115") + "</RxParameter>";
    const QString tx = "<TxParameter version=\"1.0\">" + quantity("Frequency", "MHz", "156.8") +
                       quantity("TxPower", "W", "25") + quantity("AntennaHeight", "m", "12") +
                       quantity("Bandwidth", "kHz", "16") + "</TxParameter>";
    QString objects;
    for (int i = 0; i < areas; ++i) {
        const double west = scatter.next(-175, 165);
        const double north = scatter.next(-60, 75);
        objects += "<DeploymentArea version=\"1.0\"><Name>Site " + QString::number(i) +
                   "</Name><AreaRect version=\"1.0\">" + coordinate("UpperLeft", west, north) +
                   coordinate("LowerRight", west + 8, north - 6) + "</AreaRect>" +
                   quantity("AntennaHeight", "m", "10") + quantity("RxThreshold", "dBm", "-110") +
                   quantity("Frequency", "MHz", "433.92") + quantity("TxPower", "W", "5") +
                   "</DeploymentArea>";
    }
    for (int i = 0; i < areas; ++i) {
        const double longitude = scatter.next(-170, 170);
        const double latitude = scatter.next(-70, 70);
        objects += "<AreaOfInterest version=\"1.0\"><Name>Zone " + QString::number(i) +
                   "</Name><AreaPolygon version=\"1.0\">" +
                   coordinate("Vertex", longitude - 4, latitude - 3, 0) +
                   coordinate("Vertex", longitude + 4, latitude - 3, 1) +
                   coordinate("Vertex", longitude, latitude + 4, 2) + "</AreaPolygon>" + tx +
                   quantity("RxThreshold", "dBm", "-107") + "</AreaOfInterest>";
    }
    const struct
    {
        QString element;
        QString prefix;
        QString parameters;
        int count;
    } kinds[] = {{"KnownEmitter", "Tx", tx, placed},
                 {"Receiver", "Rx", rx, placed},
                 {"DirectionFinder", "DF", rx + quantity("DFprecision", "°", "2"), finders}};
    int corner = 0; // the first two mark the globe's corners, so that the map spans it all
    for (const auto& kind : kinds) {
        for (int i = 0; i < kind.count; ++i, ++corner) {
            const double longitude = corner < 2 ? 359.8 * corner - 179.9 : scatter.next(-180, 180);
            const double latitude = corner < 2 ? 179.0 * corner - 89.5 : scatter.next(-85, 85);
            objects += "<" + kind.element + " version=\"1.0\"><Name>" + kind.prefix + " " +
                       QString::number(i) + "</Name>" +
                       coordinate("Position", longitude, latitude) + kind.parameters + "</" +
                       kind.element + ">";
        }
    }
    return ("<Scenario version=\"1.0\"><ScreenshotPath>globe.png</ScreenshotPath>"
            "<DisplayedObjects>" +
            objects + "</DisplayedObjects></Scenario>")
        .toUtf8();
}

} // namespace

class TestKelxmlSvg : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    QString save(const QString& name, const QByteArray& content)
    {
        QFile file(m_dir.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            return QString();
        return file.fileName();
    }

private slots:
    void readable_data()
    {
        QTest::addColumn<QString>("alias");
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("objects"); // of a generated snapshot; 0 for a sample
        QTest::addColumn<bool>("mostNamed");
        for (const QString& className :
             {QStringLiteral("XmlKelBtType"), QStringLiteral("XmlCmdRoot")}) {
            const QDir folder(QStringLiteral(KELXML_EXAMPLES) + "/" + className);
            const QString alias = className == "XmlCmdRoot" ? "command" : "scenario";
            for (const QString& name : folder.entryList({"*.xml"}, QDir::Files)) {
                QTest::newRow(qPrintable(className + "/" + name))
                    << alias << folder.filePath(name) << 0 << false;
            }
        }
        // Half the objects keep their names among 300, not among 2000.
        for (const int count : {300, 2000}) {
            QTest::newRow(qPrintable(QString("globe of %1").arg(count)))
                << "scenario" << save(QString("globe-%1.xml").arg(count), globeScenario(count))
                << count << (count == 300);
        }
    }

    // Each readable document's map; unreadable samples write none.
    void readable()
    {
        QFETCH(QString, alias);
        QFETCH(QString, file);
        QFETCH(int, objects);
        QFETCH(bool, mostNamed);
        int status = 0;
        const QByteArray svg = runSvg(alias, file, status);
        if (status == 2)
            QSKIP("unreadable: no map");
        QCOMPARE(status, 0);
        const Map map = parse(svg);
        QVERIFY(map.frame.width() > 0 && map.legend.width() > 0);

        QVector<Text> ticks;
        QVector<Text> names;
        for (const Text& text : map.texts) {
            if (text.classes == "axis" && tickPattern.match(text.content).hasMatch())
                ticks.append(text);
            else if (text.classes.startsWith("label"))
                names.append(text);
        }
        QVERIFY(ticks.size() >= 4);
        QString fault = overlap(ticks);
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
        for (const Text& tick : ticks) {
            const QRegularExpressionMatch match = tickPattern.match(tick.content);
            const bool east = match.captured(2) == "E" || match.captured(2) == "W";
            QVERIFY2(match.captured(1).toDouble() <= (east ? 180.0 : 90.0),
                     qPrintable(tick.content));
            QVERIFY2(!tick.box.intersects(map.legend), qPrintable(tick.content));
        }

        fault = overlap(names);
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
        for (const Text& name : names) {
            QVERIFY2(map.frame.contains(name.box), qPrintable(name.content + " leaves the frame"));
            QVERIFY2(!name.box.intersects(map.legend), qPrintable(name.content));
        }
        if (mostNamed) {
            QVERIFY2(names.size() * 2 >= objects,
                     qPrintable(QString("%1 of %2 named").arg(names.size()).arg(objects)));
        }
        if (objects > 0)
            QCOMPARE(map.leftOutRow, QString("names left out (%1)").arg(objects - names.size()));
    }

    // A sample whose every name fits keeps them all and has no row for them.
    void smallMapKeepsEveryName()
    {
        int status = 0;
        const Map map = parse(
            runSvg("scenario", QStringLiteral(KELXML_EXAMPLES "/XmlKelBtType/valid-every-kind.xml"),
                   status));
        QCOMPARE(status, 0);
        QStringList names;
        for (const Text& text : map.texts) {
            if (text.classes.startsWith("label"))
                names.append(text.content);
        }
        QCOMPARE(names, QStringList({"Ridge", "Harbour", "Beacon 7", "Receiver East", "DF North"}));
        QVERIFY(map.leftOutRow.isEmpty());
    }

    void advanceWidths_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("units");
        // Digits share one width; the degree sign, 'W' and 'i' each their own.
        QTest::newRow("tick") << QString("8.5°E") << 1303 + 651 + 1303 + 1024 + 1294;
        QTest::newRow("narrow and wide") << QString("iW") << 569 + 2025;
        // Oblique guillemets are wider than upright ones: the wider counts.
        QTest::newRow("guillemet") << QString("«") << 1264;
        QTest::newRow("Latin-1") << QString("Ø") << 1612;
        QTest::newRow("beyond Latin-1") << QString("Ж") << 2048;
        QTest::newRow("surrogate pair") << QString::fromUtf8("\xF0\x9F\x93\xA1") << 2048;
    }

    void advanceWidths()
    {
        QFETCH(QString, text);
        QFETCH(int, units);
        QCOMPARE(SvgLayout::textWidth(text, 2048.0), double(units));
    }

    void ticks_data()
    {
        QTest::addColumn<double>("low");
        QTest::addColumn<double>("high");
        QTest::addColumn<double>("pixels");
        QTest::addColumn<bool>("horizontal");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("narrow longitudes")
            << 7.8 << 11.9 << 300.0 << true << QStringList({"8°E", "9°E", "10°E", "11°E"});
        // 25° steps leave 44 pixels for labels up to 37.4 wide and a gap of 6.
        QTest::newRow("whole globe")
            << -216.0 << 216.0 << 760.0 << true
            << QStringList({"175°W", "150°W", "125°W", "100°W", "75°W", "50°W", "25°W", "0°",
                            "25°E", "50°E", "75°E", "100°E", "125°E", "150°E", "175°E"});
        QTest::newRow("ends of the globe included")
            << -181.0 << 181.0 << 905.0 << true
            << QStringList({"180°W", "160°W", "140°W", "120°W", "100°W", "80°W", "60°W", "40°W",
                            "20°W", "0°", "20°E", "40°E", "60°E", "80°E", "100°E", "120°E", "140°E",
                            "160°E", "180°E"});
        QTest::newRow("latitudes beyond the pole")
            << -20.0 << 100.0 << 560.0 << false
            << QStringList({"20°S", "10°S", "0°", "10°N", "20°N", "30°N", "40°N", "50°N", "60°N",
                            "70°N", "80°N", "90°N"});
        // At 45 pixels a step of 0.05° leaves too little room for labels
        // 43.9 wide side by side, but enough for stacked ones.
        QTest::newRow("wide labels side by side")
            << 53.5 << 53.7 << 180.0 << true << QStringList({"53.5°E", "53.6°E", "53.7°E"});
        QTest::newRow("wide labels stacked")
            << 53.5 << 53.7 << 180.0 << false
            << QStringList({"53.50°N", "53.55°N", "53.60°N", "53.65°N", "53.70°N"});
        QTest::newRow("beyond the globe") << 200.0 << 260.0 << 500.0 << true << QStringList();
    }

    // The finest round step whose labels keep apart, never a tick beyond the
    // globe.
    void ticks()
    {
        QFETCH(double, low);
        QFETCH(double, high);
        QFETCH(double, pixels);
        QFETCH(bool, horizontal);
        QFETCH(QStringList, expected);
        const SvgLayout::Axis axis{low,
                                   high,
                                   horizontal ? 180.0 : 90.0,
                                   pixels / (high - low),
                                   horizontal,
                                   11.0,
                                   QLatin1Char(horizontal ? 'E' : 'N'),
                                   QLatin1Char(horizontal ? 'W' : 'S')};
        QStringList labels;
        for (const SvgLayout::Tick& tick : SvgLayout::ticks(axis))
            labels.append(tick.label);
        QCOMPARE(labels, expected);
    }

    // Overlapping a placed name, a marker or the frame's edge refuses a place;
    // the first free one is taken, and a box clear by more than a cell is free.
    void placer()
    {
        SvgLayout::LabelPlacer placer({0, 0, 100, 100});
        const auto place = [](double left, double top, double right, double bottom) {
            return SvgLayout::Placement{left, bottom, SvgLayout::Anchor::Start,
                                        Rect{left, top, right, bottom}};
        };
        placer.addMarker({40, 40, 60, 60});
        QCOMPARE(placer.place({place(50, 50, 70, 70), place(10, 10, 30, 20)}), 1);
        QCOMPARE(placer.place({place(20, 15, 40, 25)}), -1);
        QCOMPARE(placer.place({place(-1, 70, 20, 80), place(90, 70, 101, 80)}), -1);
        QCOMPARE(placer.place({place(80, 70, 100, 80)}), 0);
        QCOMPARE(placer.place({place(62.5, 40, 78, 60)}), 0);
        QCOMPARE(placer.place({place(10, 22.5, 30, 30)}), 0);
    }

    // Every label is tried close to its object and clear of markers before
    // any goes further out, and only then over a marker: the first label's
    // far place would take the second's only place.
    void placeAllInRounds()
    {
        SvgLayout::LabelPlacer placer({0, 0, 200, 100});
        placer.addMarker({10, 10, 30, 30});
        const auto place = [](double left, double top, bool far) {
            return SvgLayout::Placement{left, top + 10, SvgLayout::Anchor::Start,
                                        Rect{left, top, left + 40, top + 10}, far};
        };
        const QVector<QVector<SvgLayout::Placement>> labels = {
            {place(15, 15, false), place(100, 50, true)},
            {place(110, 55, false)},
            {place(150, 80, true), place(5, 12, false)},
        };
        const auto chosen = placer.placeAll(labels.size(), [&](int i) { return labels[i]; });
        QCOMPARE(int(chosen.size()), 3);
        QVERIFY(chosen[0] && chosen[1] && chosen[2]);
        QCOMPARE(chosen[0]->x, 15.0); // over the marker, its far place being taken
        QCOMPARE(chosen[1]->x, 110.0);
        QCOMPARE(chosen[2]->x, 150.0); // far, as its close place covers the marker
        // With no place left for it, a label is left out.
        SvgLayout::LabelPlacer full({0, 0, 50, 20});
        const auto crowded = full.placeAll(
            2, [&](int) { return QVector<SvgLayout::Placement>{place(5, 5, false)}; });
        QVERIFY(crowded[0] && !crowded[1]);
    }

    // The placer's work grows with the objects, not with their pairs: the
    // cells looked at per object stay within a constant, and eight times the
    // objects cost at most about eight times the cells.
    void placerIsLinear()
    {
        const auto probes = [](int count) {
            Scatter scatter;
            SvgLayout::LabelPlacer placer({90, 56, 850, 616});
            QVector<QVector<SvgLayout::Placement>> candidates;
            for (int i = 0; i < count; ++i) {
                const double x = scatter.next(90, 850);
                const double y = scatter.next(56, 616);
                placer.addMarker({x - 9, y - 9, x + 9, y + 9});
                candidates.append(SvgLayout::markerPlacements(QString("Receiver %1").arg(i), 12.0,
                                                              1.5, x, y, 9.0));
            }
            placer.placeAll(count, [&](int i) { return candidates[i]; });
            return placer.probes();
        };
        const long long few = probes(500);
        const long long many = probes(4000);
        // Three rounds of 36 places, each at most 70 by 18 cells of a
        // "Receiver 3999" at 12 pixels with its outline.
        QVERIFY2(many <= 4000LL * 3 * 36 * 70 * 18, qPrintable(QString::number(many)));
        QVERIFY2(many <= 10 * few, qPrintable(QString("%1 against %2").arg(many).arg(few)));
    }
};

QTEST_GUILESS_MAIN(TestKelxmlSvg)
#include "tst_kelxml_svg.moc"
