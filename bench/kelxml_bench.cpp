// Speed and memory of reading, checking and writing the three documents,
// each measured against the bare QXmlStreamReader / QXmlStreamWriter pass
// over the same bytes in the same process, so that the ratios compare across
// machines. Prints Google Benchmark's report, then one summary table.
//
//   kelxml_bench [--no-memory] [--no-process] [--process-only] [--benchmark_filter=REGEX]
//                [other benchmark flags]
//   kelxml_bench --memory KIND FILE     (internal: one memory measurement)
//
// Then the whole-process rows: the tool as a user runs it against a bare
// Qt process on the same files (--no-process leaves them out, --process-only
// runs nothing else).
//
// KELXML_BENCH_REPETITIONS sets the repetitions (default 9); the table
// compares the fastest repetition of each pass. Times are the thread's CPU
// time.

#include "BenchDocuments.h"

#include <benchmark/benchmark.h>

#include <QFile>
#include <QSet>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <malloc.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <vector>

using namespace KelXmlBench;

namespace {

// The thread's CPU time: other programs on a shared machine slow the wall
// clock of a run but hardly its CPU time, so the ratios stay put.
struct Clock
{
    static double now()
    {
        timespec t;
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
        return double(t.tv_sec) + double(t.tv_nsec) * 1e-9;
    }
};

// The document with "+02:00" after every date-time of a response
// (timestamps and estimated times, which the generator writes as local times).
QByteArray withOffsets(const QByteArray& document)
{
    QByteArray result;
    result.reserve(document.size() + document.size() / 50);
    int from = 0;
    for (;;) {
        const int stamp = document.indexOf("timestamp=\"", from);
        const int estimated = document.indexOf("<EstimatedTime>", from);
        int at = stamp < 0 ? estimated : estimated < 0 ? stamp : std::min(stamp, estimated);
        if (at < 0)
            break;
        at += (at == stamp ? 11 : 15) + 19; // past "yyyy-MM-ddTHH:mm:ss"
        result.append(document.constData() + from, at - from);
        result.append("+02:00");
        from = at;
    }
    result.append(document.constData() + from, document.size() - from);
    return result;
}

// One document of the run, generated when a benchmark first needs it.
struct Case
{
    std::string id;    // in the benchmark names: "command-10MB"
    std::string label; // in the table: "command 10 MB"
    DocumentKind kind;
    qint64 requested;
    bool sweep;   // a row of the cost-per-MB sweep
    bool table;   // a row of the main table
    bool targets; // the row is held to the targets (the others are shown for comparison)
    QByteArray bytes;
    // Responses only: every date-time carries its offset from UTC, and the
    // row is held to its own target (reading such a date-time needs no
    // conversion to local time).
    bool offsets = false;

    const QByteArray& document()
    {
        if (bytes.isEmpty()) {
            bytes = kind == DocumentKind::PairList ? pairList(int(requested))
                                                   : generate(kind, requested);
            if (offsets)
                bytes = withOffsets(bytes);
            const QString fault = verify(kind, bytes);
            if (!fault.isEmpty()) {
                std::fprintf(stderr, "generated %s is not valid:\n%s\n", id.c_str(),
                             qPrintable(fault));
                std::exit(3);
            }
        }
        return bytes;
    }
};

// The bare tokenizer: every token of the document, nothing done with it.
qint64 bareRead(const QByteArray& bytes)
{
    QXmlStreamReader reader(bytes);
    qint64 tokens = 0;
    while (!reader.atEnd()) {
        reader.readNext();
        ++tokens;
    }
    return tokens;
}

// Reading and checking as an application does; the model is handed back so
// that its destruction stays out of the measured time.
std::unique_ptr<Model> libraryRead(const Case& c, bool* valid)
{
    std::unique_ptr<Model> model(new Model(c.kind));
    QXmlStreamReader reader(c.bytes);
    *valid = model->read(reader) && model->isValid();
    return model;
}

// A step of a written document, for the bare writer to replay.
struct Token
{
    enum Kind
    {
        StartDocument,
        EndDocument,
        Start, // name and attributes
        End,
        Characters, // text
        TextElement // name and text: an element holding only text, no attributes
    } kind;
    QString name;
    QString text;
    std::vector<std::pair<QString, QString>> attributes;
};

// The tokens of a document. Equal strings share one copy, as a lean writer
// keeps its names and repeated values, so the replay reads little memory.
std::vector<Token> tokenize(const QByteArray& bytes)
{
    std::vector<Token> tokens;
    QSet<QString> pool;
    const auto shared = [&pool](QStringView text) { return *pool.insert(text.toString()); };
    QXmlStreamReader reader(bytes);
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartDocument:
            tokens.push_back({Token::StartDocument, {}, {}, {}});
            break;
        case QXmlStreamReader::EndDocument:
            tokens.push_back({Token::EndDocument, {}, {}, {}});
            break;
        case QXmlStreamReader::StartElement:
            tokens.push_back({Token::Start, shared(reader.name()), {}, {}});
            for (const QXmlStreamAttribute& attribute : reader.attributes())
                tokens.back().attributes.emplace_back(shared(attribute.name()),
                                                      shared(attribute.value()));
            break;
        case QXmlStreamReader::Characters:
            tokens.push_back({Token::Characters, {}, shared(reader.text()), {}});
            break;
        case QXmlStreamReader::EndElement: {
            // Start, text, end without attributes: one writeTextElement().
            const size_t n = tokens.size();
            if (n >= 2 && tokens[n - 1].kind == Token::Characters &&
                tokens[n - 2].kind == Token::Start && tokens[n - 2].attributes.empty()) {
                tokens[n - 2].kind = Token::TextElement;
                tokens[n - 2].text = std::move(tokens[n - 1].text);
                tokens.pop_back();
            } else {
                tokens.push_back({Token::End, {}, {}, {}});
            }
            break;
        }
        default:
            break;
        }
    }
    return tokens;
}

// The bare writer: the same elements, attributes and texts, nothing else,
// with the writer's shortest call for each.
QByteArray bareWrite(const std::vector<Token>& tokens)
{
    QByteArray out;
    QXmlStreamWriter writer(&out);
    for (const Token& token : tokens) {
        switch (token.kind) {
        case Token::StartDocument:
            writer.writeStartDocument();
            break;
        case Token::EndDocument:
            writer.writeEndDocument();
            break;
        case Token::Start:
            writer.writeStartElement(token.name);
            for (const auto& attribute : token.attributes)
                writer.writeAttribute(attribute.first, attribute.second);
            break;
        case Token::End:
            writer.writeEndElement();
            break;
        case Token::Characters:
            writer.writeCharacters(token.text);
            break;
        case Token::TextElement:
            writer.writeTextElement(token.name, token.text);
            break;
        }
    }
    return out;
}

QByteArray libraryWrite(const Model& model)
{
    QByteArray out;
    QXmlStreamWriter writer(&out);
    model.write(writer);
    return out;
}

// The times of a benchmark's iterations, as counters: the mean per
// iteration of the library ("ms") and of the bare pass ("bare_ms"), and
// their ratio within the repetition ("ratio"). The table takes the speed
// from the fastest repetition (other programs on a shared machine only ever
// add time) and the ratio as the median of the repetitions: each compares
// two passes timed side by side, so a busy spell weighs on both of them.
struct Times
{
    double bare = 0;
    double library = 0;

    void add(double bareSeconds, double librarySeconds)
    {
        bare += bareSeconds;
        library += librarySeconds;
    }
    void report(benchmark::State& state) const
    {
        const double n = double(state.iterations());
        state.counters["ms"] = 1000 * library / n;
        state.counters["bare_ms"] = 1000 * bare / n;
        state.counters["ratio"] = library > 0 ? bare / library : 0;
    }
};

// Each iteration times the bare loop and the library on the same bytes,
// alternating which goes first; the reported time is the library's.
void benchRead(benchmark::State& state, Case* c)
{
    const QByteArray& bytes = c->document();
    Times times;
    bool allValid = true;
    static bool bareFirst = true; // alternates across repetitions too
    for (auto _ : state) {
        std::unique_ptr<Model> model;
        double t0, t1, t2, t3;
        bool valid = false;
        if (bareFirst) {
            t0 = Clock::now();
            benchmark::DoNotOptimize(bareRead(bytes));
            t1 = t2 = Clock::now();
            model = libraryRead(*c, &valid);
            t3 = Clock::now();
        } else {
            t2 = Clock::now();
            model = libraryRead(*c, &valid);
            t3 = t0 = Clock::now();
            benchmark::DoNotOptimize(bareRead(bytes));
            t1 = Clock::now();
        }
        bareFirst = !bareFirst;
        allValid = allValid && valid;
        times.add(t1 - t0, t3 - t2);
        state.SetIterationTime(t3 - t2);
        model.reset(); // destruction is not measured
    }
    if (!allValid)
        state.SkipWithError("the library did not read the document as valid");
    state.SetBytesProcessed(state.iterations() * bytes.size());
    times.report(state);
}

// isValid() and syntaxError() on a valid document already read.
void benchCheck(benchmark::State& state, Case* c)
{
    c->document();
    bool valid = false;
    std::unique_ptr<Model> model = libraryRead(*c, &valid);
    Times times;
    for (auto _ : state) {
        const double t0 = Clock::now();
        benchmark::DoNotOptimize(model->isValid());
        benchmark::DoNotOptimize(model->syntaxError());
        const double elapsed = Clock::now() - t0;
        times.add(0, elapsed);
        state.SetIterationTime(elapsed);
    }
    times.report(state);
}

// The library writes the model it read; the bare writer replays the tokens
// of the library's own output, so both write exactly the same bytes.
void benchWrite(benchmark::State& state, Case* c)
{
    c->document();
    bool valid = false;
    std::unique_ptr<Model> model = libraryRead(*c, &valid);
    const QByteArray written = libraryWrite(*model);
    const std::vector<Token> tokens = tokenize(written);
    if (bareWrite(tokens) != written) {
        state.SkipWithError("the bare writer does not reproduce the library's output");
        return;
    }
    Times times;
    static bool bareFirst = true; // alternates across repetitions too
    for (auto _ : state) {
        double t0, t1, t2, t3;
        if (bareFirst) {
            t0 = Clock::now();
            benchmark::DoNotOptimize(bareWrite(tokens));
            t1 = t2 = Clock::now();
            benchmark::DoNotOptimize(libraryWrite(*model));
            t3 = Clock::now();
        } else {
            t2 = Clock::now();
            benchmark::DoNotOptimize(libraryWrite(*model));
            t3 = t0 = Clock::now();
            benchmark::DoNotOptimize(bareWrite(tokens));
            t1 = Clock::now();
        }
        bareFirst = !bareFirst;
        times.add(t1 - t0, t3 - t2);
        state.SetIterationTime(t3 - t2);
    }
    state.SetBytesProcessed(state.iterations() * written.size());
    times.report(state);
    state.counters["out_MB"] = written.size() / 1e6;
}

// ---- a polygon's vertices in ascending and in descending order ----

// A command message creating one area of interest whose polygon has
// `vertices` vertices, numbered in ascending or in descending order, laid out
// as the samples are; the vertices lie on a circle in the order of their
// numbers.
QByteArray polygonCommand(int vertices, bool descending)
{
    QByteArray t = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Command>\n  <ORDER_DEF>\n"
                   "    <ORDER_ID>KEL240514093000123</ORDER_ID>\n"
                   "    <ORDER_SENDER>planning-client</ORDER_SENDER>\n  </ORDER_DEF>\n"
                   "  <Create>\n    <AOI version=\"1.0\">\n      <Name>Harbour</Name>\n"
                   "      <AreaPolygon version=\"1.0\">\n";
    for (int i = 0; i < vertices; ++i) {
        const int number = descending ? vertices - 1 - i : i;
        const double angle = 2 * 3.14159265358979323846 * number / vertices;
        t += "        <Vertex version=\"1.0\" number=\"" + QByteArray::number(number) +
             "\">\n          <Longitude>" +
             QByteArray::number(8.6 + 0.05 * std::cos(angle), 'f', 6) +
             "</Longitude>\n          <Latitude>" +
             QByteArray::number(53.5 + 0.05 * std::sin(angle), 'f', 6) +
             "</Latitude>\n        </Vertex>\n";
    }
    t += "      </AreaPolygon>\n      <TxParameter version=\"1.0\">\n"
         "        <Frequency version=\"1.0\" unit=\"MHz\">156.8</Frequency>\n"
         "        <TxPower version=\"1.0\" unit=\"W\">25</TxPower>\n"
         "        <AntennaHeight version=\"1.0\" unit=\"m\">12</AntennaHeight>\n"
         "        <Bandwidth version=\"1.0\" unit=\"kHz\">16</Bandwidth>\n"
         "      </TxParameter>\n    </AOI>\n    <Reference>create-aoi</Reference>\n"
         "  </Create>\n</Command>\n";
    return t;
}

const int polygonVertices = 40000;

// Reading and checking the polygon's command message with its vertices
// ascending and with them descending, timed side by side in every iteration
// (alternating which goes first): "ms" is the descending one's time, "ratio"
// the descending time over the ascending time.
void benchPolygonOrder(benchmark::State& state)
{
    static const QByteArray ascending = polygonCommand(polygonVertices, false);
    static const QByteArray descending = polygonCommand(polygonVertices, true);
    const auto read = [](const QByteArray& bytes) {
        Model model(DocumentKind::Command);
        QXmlStreamReader reader(bytes);
        const double t0 = Clock::now();
        const bool valid = model.read(reader) && model.isValid();
        return valid ? Clock::now() - t0 : -1.0;
    };
    double up = 0;
    double down = 0;
    bool allValid = true;
    static bool ascendingFirst = true; // alternates across repetitions too
    for (auto _ : state) {
        double a, d;
        if (ascendingFirst) {
            a = read(ascending);
            d = read(descending);
        } else {
            d = read(descending);
            a = read(ascending);
        }
        ascendingFirst = !ascendingFirst;
        allValid = allValid && a >= 0 && d >= 0;
        up += a;
        down += d;
        state.SetIterationTime(d);
    }
    if (!allValid) {
        state.SkipWithError("the polygon's command message did not read as valid");
        return;
    }
    const double n = double(state.iterations());
    state.counters["ms"] = 1000 * down / n;
    state.counters["ascending_ms"] = 1000 * up / n;
    state.counters["ratio"] = up > 0 ? down / up : 0;
    state.counters["MB"] = descending.size() / 1e6;
}

// ---- memory, measured in a child process of its own ----

// A "Vm...:" line of /proc/self/status, in bytes; -1 when missing.
qint64 statusBytes(const char* key)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray all = status.readAll();
    const int at = all.indexOf(key);
    if (at < 0)
        return -1;
    const int end = all.indexOf('\n', at);
    QByteArray value = all.mid(at + int(std::strlen(key)), end - at - int(std::strlen(key)));
    value = value.trimmed();
    value.chop(3); // " kB"
    return value.trimmed().toLongLong() * 1024;
}

qint64 heapBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return qint64(info.uordblks + info.hblkhd);
}

// Reads FILE as KIND from the file and prints "model peak valid free": the
// heap bytes the model holds once the reader is gone, the growth of the
// resident set's high-water mark while reading, and the milliseconds that
// destroying the model takes.
int memoryChild(const char* kindName, const char* path)
{
    DocumentKind kind;
    if (!kindFromName(QString::fromLatin1(kindName), &kind))
        return 64;
    mallopt(M_MXFAST, 0); // as the tool frees its model (tools/kelxml.cpp)
    // Warm up: the code and the library's constants are paged in.
    verify(kind, kind == DocumentKind::PairList ? pairList(100) : generate(kind, 20000));
    malloc_trim(0);
    {
        QFile reset(QStringLiteral("/proc/self/clear_refs"));
        if (reset.open(QIODevice::WriteOnly))
            reset.write("5"); // the high-water mark starts again from here
    }
    const qint64 rss = statusBytes("VmRSS:");
    const qint64 heap = heapBytes();
    std::unique_ptr<Model> model(new Model(kind));
    bool valid = false;
    {
        QFile file(QString::fromLocal8Bit(path));
        if (!file.open(QIODevice::ReadOnly))
            return 2;
        QXmlStreamReader reader(&file);
        valid = model->read(reader) && model->isValid();
    }
    const qint64 modelBytes = heapBytes() - heap;
    const qint64 peak = statusBytes("VmHWM:") - rss;
    timespec before, after;
    clock_gettime(CLOCK_MONOTONIC, &before);
    model.reset();
    clock_gettime(CLOCK_MONOTONIC, &after);
    const double freeMs =
        double(after.tv_sec - before.tv_sec) * 1e3 + double(after.tv_nsec - before.tv_nsec) * 1e-6;
    std::printf("%lld %lld %d %.3f\n", static_cast<long long>(modelBytes),
                static_cast<long long>(peak), valid ? 1 : 0, freeMs);
    return 0;
}

struct Memory
{
    double model = -1;  // bytes
    double peak = -1;   // bytes
    double freeMs = -1; // destroying the model
};

// The document written to a file of the folder; empty when it cannot be.
QString writeDocument(Case& c, const QString& folder)
{
    const QString path = folder + QLatin1Char('/') + QString::fromStdString(c.id) + ".xml";
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(c.document()) != c.bytes.size())
        return QString();
    return path;
}

Memory measureMemory(const Case& c, const QString& path)
{
    Memory memory;
    char self[4096] = {};
    if (readlink("/proc/self/exe", self, sizeof self - 1) <= 0)
        return memory;
    const std::string command = std::string("'") + self + "' --memory " +
                                kindName(c.kind).toStdString() + " '" + path.toStdString() + "'";
    if (FILE* child = popen(command.c_str(), "r")) {
        long long model = 0, peak = 0;
        int valid = 0;
        double freeMs = 0;
        if (std::fscanf(child, "%lld %lld %d %lf", &model, &peak, &valid, &freeMs) == 4 && valid) {
            memory.model = double(model);
            memory.peak = double(peak);
            memory.freeMs = freeMs;
        }
        pclose(child);
    }
    return memory;
}

// ---- the summary ----

// Keeps the "min" aggregate of every benchmark (or its only run) by name.
class SummaryReporter : public benchmark::ConsoleReporter
{
public:
    SummaryReporter()
        : ConsoleReporter(OO_Tabular) // plain text, also in a log
    {}

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.error_occurred)
                continue;
            const std::string& name = run.run_name.function_name;
            if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "min")
                m_min[name] = run.counters;
            else if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median")
                m_median[name] = run.counters;
            else if (run.run_type == Run::RT_Iteration && !m_min.count(name))
                m_single[name] = run.counters;
        }
        ConsoleReporter::ReportRuns(runs);
    }

    // The counter of a benchmark, the smallest of its repetitions or their
    // median; negative when it did not run.
    double value(const std::string& name, const char* counter, bool median = false) const
    {
        for (const auto* results : {median ? &m_median : &m_min, &m_single}) {
            const auto found = results->find(name);
            if (found != results->end()) {
                const auto c = found->second.find(counter);
                if (c != found->second.end())
                    return c->second.value;
            }
        }
        return -1;
    }

private:
    std::map<std::string, benchmark::UserCounters> m_min;
    std::map<std::string, benchmark::UserCounters> m_median;
    std::map<std::string, benchmark::UserCounters> m_single;
};

// printf without the trailing blanks of the last column.
void printLine(const char* format, ...) __attribute__((format(printf, 1, 2)));
void printLine(const char* format, ...)
{
    char text[512];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    std::string line(text);
    while (!line.empty() && (line.back() == ' ' || line.back() == '\n'))
        line.pop_back();
    std::printf("%s\n", line.c_str());
}

QString sizeText(qint64 bytes)
{
    if (bytes < 1000000)
        return QString::number(bytes / 1000.0, 'f', 1) + " KB";
    return QString::number(bytes / 1e6, 'f', 1) + " MB";
}

// "0.62 MISS" against a lower bound.
// No verdict when the bound is NaN: a row shown for comparison only.
QString atLeast(double value, double bound)
{
    if (value < 0)
        return QStringLiteral("-");
    if (std::isnan(bound))
        return QString::number(value, 'f', 2);
    return QString::number(value, 'f', 2) + (value >= bound ? " PASS" : " MISS");
}

QString atMost(double value, double bound, int decimals = 2, const char* suffix = "")
{
    if (value < 0)
        return QStringLiteral("-");
    if (std::isnan(bound))
        return QString::number(value, 'f', decimals) + suffix;
    return QString::number(value, 'f', decimals) + suffix + (value <= bound ? " PASS" : " MISS");
}

void printTable(std::vector<Case>& cases, const SummaryReporter& results, bool memory)
{
    const bool qt6 = QT_VERSION >= QT_VERSION_CHECK(6, 0, 0);
    const double readBound = qt6 ? 0.7 : 0.8;
    QTemporaryDir folder;
    std::printf("\nKelXml with Qt %s: MB/s of the fastest runs; ratio = bare pass time / library "
                "time, the two timed side by side, median of the runs (1.00 = as fast as Qt's own "
                "reader or writer)\n"
                "targets: read/bare of the 3 KB command message >= 0.77, of the others >= %.2f\n\n",
                qVersion(), readBound);
    const char* const line = "%-17s %8s | %7s %-11s | %-10s | %7s %-11s | %-11s %-10s %-13s";
    printLine(line, "document", "size", "read", "read/bare", "check/read", "write", "write/bare",
              "model/input", "peak/input", "peak-model");
    printLine(line, "", "", "MB/s", qt6 ? ">=0.70" : ">=0.80", "<=5%", "MB/s", ">=0.90", "<=1.5",
              "", "<=5 MB");
    for (Case& c : cases) {
        if (!c.table)
            continue;
        const double readMs = results.value("read/" + c.id, "ms");
        if (readMs < 0)
            continue;
        const double ratio = results.value("read/" + c.id, "ratio", true);
        const double checkMs = results.value("check/" + c.id, "ms");
        const double writeMs = results.value("write/" + c.id, "ms");
        const double writeRatio = results.value("write/" + c.id, "ratio", true);
        const double outMb = results.value("write/" + c.id, "out_MB");
        Memory m;
        if (memory && folder.isValid()) {
            const QString path = writeDocument(c, folder.path());
            if (!path.isEmpty()) {
                m = measureMemory(c, path);
                QFile::remove(path);
            }
        }
        const double size = double(c.bytes.size());
        // A 3 KB message must take at most 1.3 times the bare loop.
        const double none = std::numeric_limits<double>::quiet_NaN();
        const double bound = c.offsets                                                ? 0.75
                             : !c.targets                                             ? none
                             : c.requested < 10000 && c.kind == DocumentKind::Command ? 1 / 1.3
                                                                                      : readBound;
        const double checkBound = c.targets ? 5 : none;
        const double writeBound = c.targets ? 0.9 : none;
        const double modelBound = c.targets ? 1.5 : none;
        const bool measured = m.model >= 0 && m.peak >= 0;
        const double overPeak = (m.peak - m.model) / 1e6;
        printLine(
            line, c.label.c_str(), qPrintable(sizeText(c.bytes.size())),
            qPrintable(QString::number(size / 1e3 / readMs, 'f', 1)),
            qPrintable(atLeast(ratio, bound)),
            qPrintable(checkMs < 0 ? QStringLiteral("-")
                                   : atMost(100 * checkMs / readMs, checkBound, 1, "%")),
            qPrintable(writeMs < 0 ? QStringLiteral("-")
                                   : QString::number(outMb * 1e3 / writeMs, 'f', 1)),
            qPrintable(atLeast(writeRatio, writeBound)),
            qPrintable(measured ? atMost(m.model / size, modelBound) : QStringLiteral("-")),
            qPrintable(measured ? QString::number(m.peak / size, 'f', 2) : QStringLiteral("-")),
            qPrintable(!measured   ? QStringLiteral("-")
                       : c.targets ? QString::number(overPeak, 'f', 1) +
                                         (overPeak <= 5 ? " MB PASS" : " MB MISS")
                                   : QString::number(overPeak, 'f', 1) + " MB"));
    }
    std::printf("\nread = processXml + isValid (the model's destruction not counted); "
                "check = isValid + syntaxError\non a valid document; write MB/s counts the "
                "bytes written. model = heap bytes the model holds (mallinfo2);\npeak = growth "
                "of the resident set's high-water mark (VmHWM) while reading from a file;\nboth "
                "measured in a child process, the peak should stay within the model plus a few "
                "MB.\nThe targets hold for the command messages, the snapshot and the pair list; "
                "the responses are shown for comparison,\nwith read/bare >= 0.75 for those whose "
                "date-times carry their offset from UTC (\"+02:00\"): the others\nare local "
                "times, which Qt has the C library convert and check (TZ %s).\n",
                qEnvironmentVariableIsSet("TZ") ? "set" : "unset");

    struct Row
    {
        const Case* c;
        double msPerMb;
        double perBare; // library time / bare time, median of the repetitions
    };
    std::vector<Row> sweep;
    for (const Case& c : cases) {
        const double ms = results.value("read/" + c.id, "ms");
        const double ratio = results.value("read/" + c.id, "ratio", true);
        if (c.sweep && ms > 0)
            sweep.push_back({&c, ms / (c.bytes.size() / 1e6), ratio > 0 ? 1 / ratio : 0});
    }
    if (sweep.size() < 2)
        return;
    double low = sweep.front().msPerMb;
    double high = low;
    for (const Row& row : sweep) {
        low = qMin(low, row.msPerMb);
        high = qMax(high, row.msPerMb);
    }
    // The bare pass at the same moment shows how much of a spread is the
    // machine's or Qt's own: the library's share of the time per size.
    std::printf("\nCost of reading and checking per MB of command message (flat within 20%%)\n");
    for (const Row& row : sweep)
        std::printf("  %-10s %8.2f ms/MB  %5.2f x the cheapest   %5.2f x the bare pass\n",
                    qPrintable(sizeText(row.c->bytes.size())), row.msPerMb, row.msPerMb / low,
                    row.perBare);
    std::printf("  spread %.2f: %s\n", high / low, high / low <= 1.2 ? "PASS" : "MISS");
    double fewest = sweep.front().perBare;
    double most = fewest;
    for (const Row& row : sweep) {
        fewest = qMin(fewest, row.perBare);
        most = qMax(most, row.perBare);
    }
    if (fewest > 0)
        std::printf("  library / bare pass from %.2f to %.2f: spread %.2f\n", fewest, most,
                    most / fewest);
}

// The polygon read with its vertices descending against ascending.
void printPolygonOrder(const SummaryReporter& results)
{
    const std::string name = "polygon/descending-vs-ascending";
    const double descending = results.value(name, "ms");
    const double ascending = results.value(name, "ascending_ms");
    const double ratio = results.value(name, "ratio", true);
    if (descending < 0 || ascending < 0 || ratio < 0)
        return;
    std::printf("\nA polygon of %d vertices (a %.1f MB command message), read and checked\n"
                "  vertices ascending %8.2f ms   descending %8.2f ms (the fastest runs)\n"
                "  descending / ascending %.2f (median of the runs, each timing both): %s\n",
                polygonVertices, results.value(name, "MB"), ascending, descending, ratio,
                ratio <= 1.2 ? "PASS (<= 1.20)" : "MISS (<= 1.20)");
}

// ---- the whole process, as a user measures it ----

// What one run of a program cost, as kelxml_measure reports it.
struct Cost
{
    double wallMs = 0;
    double userMs = 0;
    double systemMs = 0;
    double faults = 0; // minor and major page faults
    double peakMiB = 0;
    int status = -1;
};

// Runs the program under kelxml_measure; false when it could not be run.
bool measureProcess(const std::vector<std::string>& command, Cost* cost)
{
    std::string line = "'" KELXML_BENCH_MEASURE "'";
    for (const std::string& argument : command)
        line += " '" + argument + "'";
    FILE* child = popen(line.c_str(), "r");
    if (!child)
        return false;
    long long wall = 0, user = 0, system = 0, minor = 0, major = 0, peak = 0;
    int status = -1;
    const bool read = std::fscanf(child, "%lld %lld %lld %lld %lld %lld %d", &wall, &user, &system,
                                  &minor, &major, &peak, &status) == 7;
    pclose(child);
    if (!read)
        return false;
    cost->wallMs = wall / 1e3;
    cost->userMs = user / 1e3;
    cost->systemMs = system / 1e3;
    cost->faults = double(minor + major);
    cost->peakMiB = peak / 1024.0;
    cost->status = status;
    return true;
}

double median(std::vector<double> values)
{
    if (values.empty())
        return -1;
    std::sort(values.begin(), values.end());
    const size_t n = values.size();
    return n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

// A document of the whole-process rows and the class the tool reads it as.
struct ProcessCase
{
    Case document;
    const char* as;
    bool targets; // held to the speed target (all rows are held to the memory target)
};

// The tool (kelxml check) and the bare process (QFile + readNext()) run on
// the same file in turn, alternating which goes first; each row gives the
// medians of the runs, the speed as the median of the pairs' ratios.
void printProcessRows(std::vector<ProcessCase>& cases, int repetitions)
{
    const bool qt6 = QT_VERSION >= QT_VERSION_CHECK(6, 0, 0);
    const double speedBound = qt6 ? 0.75 : 0.8;
    const double overBound = 8; // MiB over the bare process's peak plus the model
    QTemporaryDir folder;
    if (!folder.isValid())
        return;
    std::printf("\nThe whole process with Qt %s: " KELXML_BENCH_TOOL_NAME
                " check --as CLASS FILE against a bare process that reads the same\nfile "
                "with QFile + QXmlStreamReader::readNext() and nothing else; wall time, median "
                "of %d paired runs\n(speed = bare wall time / " KELXML_BENCH_TOOL_NAME
                " wall time, the median of the pairs' ratios)\n"
                "targets: speed >= %.2f on the three documents; peak RSS at most the model "
                "plus %.0f MiB above the bare process's\n\n",
                qVersion(), repetitions, speedBound, overBound);
    const char* const line = "%-17s %8s | %7s %6s %-10s | %-13s | %-15s | %-13s | %6s %-12s | %s";
    printLine(line, "document", "size", "kelxml", "bare", "speed", "system ms", "page faults",
              "peak RSS MiB", "model", "peak-bare", "free model");
    printLine(line, "", "", "ms", "ms", qt6 ? ">=0.75" : ">=0.80", "kelxml  bare", "kelxml    bare",
              "kelxml  bare", "MiB", "-model<=8", "ms");
    for (ProcessCase& pc : cases) {
        Case& c = pc.document;
        const QString path = writeDocument(c, folder.path());
        if (path.isEmpty())
            continue;
        const Memory m = measureMemory(c, path);
        const std::vector<std::string> tool = {KELXML_BENCH_TOOL, "check", "--as", pc.as,
                                               path.toStdString()};
        const std::vector<std::string> bare = {KELXML_BENCH_BARE, path.toStdString()};
        std::vector<Cost> toolCosts, bareCosts;
        std::vector<double> ratios;
        bool ok = true;
        Cost warm;
        ok = measureProcess(bare, &warm) && measureProcess(tool, &warm); // the file is cached
        for (int r = 0; ok && r < repetitions; ++r) {
            Cost t, b;
            if (r % 2 == 0)
                ok = measureProcess(bare, &b) && measureProcess(tool, &t);
            else
                ok = measureProcess(tool, &t) && measureProcess(bare, &b);
            ok = ok && t.status == 0 && b.status == 0;
            toolCosts.push_back(t);
            bareCosts.push_back(b);
            ratios.push_back(t.wallMs > 0 ? b.wallMs / t.wallMs : 0);
        }
        QFile::remove(path);
        if (!ok) {
            printLine("%-17s %8s | the tool or the bare process failed (exit %d, %d)",
                      c.label.c_str(), qPrintable(sizeText(c.bytes.size())),
                      toolCosts.empty() ? -1 : toolCosts.back().status,
                      bareCosts.empty() ? -1 : bareCosts.back().status);
            continue;
        }
        const auto med = [](const std::vector<Cost>& costs, double Cost::*field) {
            std::vector<double> values;
            for (const Cost& cost : costs)
                values.push_back(cost.*field);
            return median(values);
        };
        const double speed = median(ratios);
        const double toolPeak = med(toolCosts, &Cost::peakMiB);
        const double barePeak = med(bareCosts, &Cost::peakMiB);
        const double modelMiB = m.model >= 0 ? m.model / (1024.0 * 1024.0) : -1;
        const double over = toolPeak - barePeak - modelMiB;
        const double none = std::numeric_limits<double>::quiet_NaN();
        printLine(
            line, c.label.c_str(), qPrintable(sizeText(c.bytes.size())),
            qPrintable(QString::number(med(toolCosts, &Cost::wallMs), 'f', 1)),
            qPrintable(QString::number(med(bareCosts, &Cost::wallMs), 'f', 1)),
            qPrintable(atLeast(speed, pc.targets ? speedBound : none)),
            qPrintable(QStringLiteral("%1 %2")
                           .arg(med(toolCosts, &Cost::systemMs), 6, 'f', 1)
                           .arg(med(bareCosts, &Cost::systemMs), 5, 'f', 1)),
            qPrintable(QStringLiteral("%1 %2")
                           .arg(med(toolCosts, &Cost::faults), 7, 'f', 0)
                           .arg(med(bareCosts, &Cost::faults), 7, 'f', 0)),
            qPrintable(QStringLiteral("%1 %2").arg(toolPeak, 6, 'f', 1).arg(barePeak, 5, 'f', 1)),
            qPrintable(modelMiB >= 0 ? QString::number(modelMiB, 'f', 1) : QStringLiteral("-")),
            qPrintable(modelMiB >= 0 ? atMost(over, overBound, 1) : QStringLiteral("-")),
            qPrintable(m.freeMs >= 0 ? QString::number(m.freeMs, 'f', 1) : QStringLiteral("-")));
    }
    std::printf("\nsystem ms and page faults show what the memory costs in the kernel; peak RSS "
                "is the whole process's\n(ru_maxrss); model = heap bytes the model holds "
                "(mallinfo2); free model = destroying it, as the tool does before it\nexits "
                "(part of its wall time; glibc without fast bins, M_MXFAST 0, as the tool "
                "sets it).\n");
}

// kelxml diff of a snapshot against a copy with one value changed (the last
// digit of its first longitude), beside reading both: check of the two files
// for the time, and for the memory the check's peak plus a second model (check
// frees each model before reading the next file, diff holds both).
void printDiffRow(Case& c, int repetitions)
{
    QTemporaryDir folder;
    const QString path = folder.isValid() ? writeDocument(c, folder.path()) : QString();
    if (path.isEmpty())
        return;
    QByteArray changed = c.document();
    const int at = int(changed.indexOf("</Longitude>"));
    if (at <= 0)
        return;
    changed[at - 1] = changed[at - 1] == '9' ? '0' : char(changed[at - 1] + 1);
    const QString changedPath = folder.path() + QStringLiteral("/changed.xml");
    QFile file(changedPath);
    if (!file.open(QIODevice::WriteOnly) || file.write(changed) != changed.size())
        return;
    file.close();
    const Memory m = measureMemory(c, path);
    const std::vector<std::string> diff = {
        KELXML_BENCH_TOOL,        "diff", "--as", "scenario", path.toStdString(),
        changedPath.toStdString()};
    const std::vector<std::string> both = {
        KELXML_BENCH_TOOL,        "check", "--as", "scenario", path.toStdString(),
        changedPath.toStdString()};
    std::vector<double> diffMs, bothMs, diffPeak, bothPeak;
    Cost warm;
    bool ok = measureProcess(diff, &warm) && measureProcess(both, &warm);
    for (int r = 0; ok && r < repetitions; ++r) {
        Cost d, b;
        ok = measureProcess(diff, &d) && measureProcess(both, &b) && d.status == 1 && b.status == 0;
        diffMs.push_back(d.wallMs);
        bothMs.push_back(b.wallMs);
        diffPeak.push_back(d.peakMiB);
        bothPeak.push_back(b.peakMiB);
    }
    std::printf("\n" KELXML_BENCH_TOOL_NAME " diff --as scenario of a %s snapshot against a copy "
                "with one value changed, beside\n" KELXML_BENCH_TOOL_NAME
                " check of both files (median of %d runs); reading both holds the check's peak "
                "plus a second model\ntarget: peak RSS at most 3 times that of reading both\n",
                qPrintable(sizeText(c.bytes.size())), repetitions);
    if (!ok) {
        std::printf("  the diff or the check failed\n");
        return;
    }
    const double modelMiB = m.model >= 0 ? m.model / (1024.0 * 1024.0) : 0;
    const double reading = median(bothPeak) + modelMiB;
    printLine("  diff %8.1f ms   check of both %8.1f ms   (%.2f times)", median(diffMs),
              median(bothMs), median(diffMs) / median(bothMs));
    printLine("  diff peak RSS %7.1f MiB   reading both %7.1f MiB   %s", median(diffPeak), reading,
              qPrintable(atMost(median(diffPeak) / reading, 3, 2, " times")));
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 4 && std::strcmp(argv[1], "--memory") == 0)
        return memoryChild(argv[2], argv[3]);

    bool memory = true;
    bool processes = true;
    bool processesOnly = false;
    bool interleavingGiven = false;
    std::vector<char*> arguments;
    for (int i = 0; i < argc; ++i) {
        if (std::strcmp(argv[i], "--no-memory") == 0)
            memory = false;
        else if (std::strcmp(argv[i], "--no-process") == 0)
            processes = false;
        else if (std::strcmp(argv[i], "--process-only") == 0)
            processesOnly = true;
        else
            arguments.push_back(argv[i]);
        const char* const interleavingFlag = "--benchmark_enable_random_interleaving";
        if (std::strncmp(argv[i], interleavingFlag, std::strlen(interleavingFlag)) == 0)
            interleavingGiven = true;
    }
    // The repetitions of all benchmarks run in a random order, so that a busy
    // spell of a shared machine spreads over every document instead of
    // falling on the sizes that happen to run then (the cost-per-MB sweep
    // compares times taken at different moments).
    static char interleaving[] = "--benchmark_enable_random_interleaving=true";
    if (!interleavingGiven)
        arguments.insert(arguments.begin() + 1, interleaving);
    int count = int(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 64;

    int repetitions = qEnvironmentVariableIntValue("KELXML_BENCH_REPETITIONS");
    if (repetitions <= 0)
        repetitions = 9;

    const qint64 kB = 1000;
    const qint64 MB = 1000 * kB;
    std::vector<Case> cases = {
        {"command-3KB", "command 3 KB", DocumentKind::Command, 3 * kB, true, true, true, {}},
        {"command-100KB",
         "command 100 KB",
         DocumentKind::Command,
         100 * kB,
         true,
         false,
         false,
         {}},
        {"command-1MB", "command 1 MB", DocumentKind::Command, MB, true, false, false, {}},
        {"command-10MB", "command 10 MB", DocumentKind::Command, 10 * MB, true, true, true, {}},
        {"snapshot-20MB", "snapshot 20 MB", DocumentKind::Snapshot, 20 * MB, false, true, true, {}},
        {"pairs-150000", "pair list 150000", DocumentKind::PairList, 150000, false, true, true, {}},
        {"responses-10MB",
         "responses 10 MB",
         DocumentKind::Responses,
         10 * MB,
         false,
         true,
         false,
         {}},
        {"responses-offsets-10MB",
         "responses +02:00",
         DocumentKind::Responses,
         10 * MB,
         false,
         true,
         false,
         {},
         true},
        {"command-100MB",
         "command 100 MB",
         DocumentKind::Command,
         100 * MB,
         true,
         false,
         false,
         {}},
    };

    for (Case& c : cases) {
        // Small documents run for a while per repetition, large ones once.
        const qint64 bytes = c.kind == DocumentKind::PairList ? c.requested * 157 : c.requested;
        const auto configure = [&](benchmark::internal::Benchmark* b) {
            b->UseManualTime()->Unit(benchmark::kMillisecond)->ReportAggregatesOnly(true);
            b->ComputeStatistics("min", [](const std::vector<double>& v) {
                return *std::min_element(v.begin(), v.end());
            });
            // As many repetitions for the largest document as for the others:
            // the sweep takes the fastest of each size.
            b->Repetitions(repetitions);
            if (bytes >= MB)
                b->Iterations(qMax<qint64>(1, 10 * MB / bytes));
            else
                b->MinTime(0.5);
        };
        configure(benchmark::RegisterBenchmark(("read/" + c.id).c_str(), benchRead, &c));
        if (c.table) {
            configure(benchmark::RegisterBenchmark(("check/" + c.id).c_str(), benchCheck, &c));
            configure(benchmark::RegisterBenchmark(("write/" + c.id).c_str(), benchWrite, &c));
        }
    }

    benchmark::RegisterBenchmark("polygon/descending-vs-ascending", benchPolygonOrder)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond)
        ->ReportAggregatesOnly(true)
        ->ComputeStatistics(
            "min",
            [](const std::vector<double>& v) { return *std::min_element(v.begin(), v.end()); })
        ->Repetitions(repetitions)
        ->Iterations(1);

    if (!processesOnly) {
        SummaryReporter reporter;
        benchmark::RunSpecifiedBenchmarks(&reporter);
        printTable(cases, reporter, memory);
        printPolygonOrder(reporter);
    }
    if (processes || processesOnly) {
        // The three documents of the targets, and a snapshot just under the
        // default size limit, whose peak shows that no copy of the document is held.
        const qint64 MiB = 1024 * 1024;
        std::vector<ProcessCase> processCases = {
            {{"pairs-150000",
              "pair list 150000",
              DocumentKind::PairList,
              150000,
              false,
              false,
              true,
              {}},
             "XmlFreqThrListType",
             true},
            {{"snapshot-20MB",
              "snapshot 20 MB",
              DocumentKind::Snapshot,
              20 * MB,
              false,
              false,
              true,
              {}},
             "scenario",
             true},
            {{"command-10MB",
              "command 10 MB",
              DocumentKind::Command,
              10 * MB,
              false,
              false,
              true,
              {}},
             "command",
             true},
            {{"snapshot-64MiB",
              "snapshot 64 MiB",
              DocumentKind::Snapshot,
              64 * MiB - 256 * 1024,
              false,
              false,
              false,
              {}},
             "scenario",
             false},
        };
        printProcessRows(processCases, repetitions);
        Case diffCase = {"snapshot-20MB-diff",
                         "snapshot 20 MB",
                         DocumentKind::Snapshot,
                         20 * MB,
                         false,
                         false,
                         false,
                         {}};
        printDiffRow(diffCase, repetitions);
    }
    benchmark::Shutdown();
    return 0;
}
