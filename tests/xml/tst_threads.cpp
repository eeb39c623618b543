// What may run on several threads at once: separate trees on separate
// threads, one XmlDocumentReader shared by all, and copies handed from one
// thread to another. Eight threads read, check, copy and write every sample;
// each answer must be the one a single thread gives. Built with
// -fsanitize=thread (./build.sh tsan), the same test shows any data race.

#include <XmlDocumentReader.h>
#include <XmlElementRegistry.h>

#include <QDir>
#include <QFile>
#include <QXmlStreamWriter>
#include <QtTest>

#include <atomic>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

using namespace KelXml;

namespace {

struct Sample
{
    QString className;
    QByteArray bytes;
};

// What a thread makes of a sample: the read error, the verdict, the report
// and the written text.
struct Answer
{
    QString error;
    bool valid = false;
    QString report;
    QByteArray written;

    bool operator==(const Answer& other) const
    {
        return error == other.error && valid == other.valid && report == other.report &&
               written == other.written;
    }
};

QByteArray written(const IXmlElement& element, const QString& name)
{
    QByteArray text;
    QXmlStreamWriter writer(&text);
    element.produceXml(writer, name);
    return text;
}

Answer answer(const XmlDocumentReader& reader, const Sample& sample,
              std::unique_ptr<IXmlElement>* kept = nullptr, QString* rootName = nullptr)
{
    XmlReadResult result = reader.read(sample.className, sample.bytes);
    Answer a;
    a.error = result.error.text();
    if (!result.root)
        return a;
    a.valid = result.root->isValid();
    a.report = result.root->syntaxError();
    a.written = written(*result.root, result.rootName);
    if (kept) {
        *kept = XmlElementRegistry::copy(sample.className, *result.root);
        *rootName = result.rootName;
    }
    return a;
}

// A copy made on one thread, checked and written on another.
struct Handed
{
    int sample;
    QString rootName;
    std::unique_ptr<IXmlElement> copy;
};

} // namespace

class TestThreads : public QObject
{
    Q_OBJECT

private slots:
    void samplesOnEightThreads()
    {
        std::vector<Sample> samples;
        const QDir examples(QStringLiteral(KELXML_EXAMPLES));
        for (const QString& dir : examples.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            if (XmlElementRegistry::resolve(dir).isEmpty())
                continue;
            for (const QString& name : QDir(examples.filePath(dir)).entryList({"*.xml"})) {
                QFile file(examples.filePath(dir + '/' + name));
                QVERIFY(file.open(QIODevice::ReadOnly));
                samples.push_back({dir, file.readAll()});
            }
        }
        QVERIFY(samples.size() > 100);

        const XmlDocumentReader reader; // one reader shared by every thread
        std::vector<Answer> expected;
        for (const Sample& sample : samples)
            expected.push_back(answer(reader, sample));

        std::mutex handedLock;
        std::deque<Handed> handed;
        std::atomic<int> wrong{0};
        std::atomic<int> checkedCopies{0};
        const auto work = [&](int thread) {
            for (int round = 0; round < 3; ++round) {
                for (size_t i = 0; i < samples.size(); ++i) {
                    // Each thread starts elsewhere, so that all samples run at once.
                    const int at = int((i + size_t(thread) * 17) % samples.size());
                    Handed mine{at, QString(), nullptr};
                    if (!(answer(reader, samples[at], &mine.copy, &mine.rootName) ==
                          expected[at]))
                        ++wrong;
                    Handed theirs{-1, QString(), nullptr};
                    {
                        const std::lock_guard<std::mutex> lock(handedLock);
                        if (mine.copy)
                            handed.push_back(std::move(mine));
                        if (handed.size() > 8) {
                            theirs = std::move(handed.front());
                            handed.pop_front();
                        }
                    }
                    if (!theirs.copy)
                        continue;
                    const Answer& want = expected[theirs.sample];
                    if (theirs.copy->isValid() != want.valid ||
                        theirs.copy->syntaxError() != want.report ||
                        written(*theirs.copy, theirs.rootName) != want.written)
                        ++wrong;
                    ++checkedCopies;
                }
            }
        };
        std::vector<std::thread> threads;
        for (int thread = 0; thread < 8; ++thread)
            threads.emplace_back(work, thread);
        for (std::thread& thread : threads)
            thread.join();
        QCOMPARE(wrong.load(), 0);
        QVERIFY(checkedCopies.load() > 0);
    }
};

QTEST_GUILESS_MAIN(TestThreads)
#include "tst_threads.moc"
