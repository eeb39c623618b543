// The contract that every element class of the registry keeps: a default
// object writes and reads back, copies are deep and equal, reset() gives a
// default object, and no reading, however broken, leaves an object that
// crashes afterwards. Each class's own suite pins only its quirks.

#include "KelXmlTest.h"

#include <XmlElementRegistry.h>

#include <QDir>
#include <QFile>
#include <QtTest>

using namespace KelXml;

namespace {

// Classes whose default object is written in a form their own reader
// refuses: lists that must not be empty, and writers whose element names
// differ from their readers'.
const QStringList defaultsDoNotReadBack = {
    QStringLiteral("XmlDBMListType"),
    QStringLiteral("XmlDecibelListType"),
    QStringLiteral("XmlDegreesListType"),
    QStringLiteral("XmlFreqListType"),
    QStringLiteral("XmlFreqThrListType"),
    QStringLiteral("XmlMapListType"),
    QStringLiteral("XmlDeviceListType"),
    QStringLiteral("XmlDeviceType"),
    QStringLiteral("XmlSignalPathType"),
    QStringLiteral("XmlStationInterlinkType"),
    QStringLiteral("XmlCmdCreate"),
    QStringLiteral("XmlCmdDelete"),
    QStringLiteral("XmlCmdCalc"),
    QStringLiteral("XmlAreaPolyType"),
    QStringLiteral("XmlAoiType"),
    QStringLiteral("XmlDeploymentAreaType"),
    QStringLiteral("XmlDeviceCategoryType"),
    QStringLiteral("XmlPropModelEnumType"),
    QStringLiteral("XmlCmdAdmin"),
    QStringLiteral("XmlResultGridType"),
    QStringLiteral("XmlCepProbType"),
    QStringLiteral("XmlGridValuesType"),
    QStringLiteral("XmlGridResultType"),
    QStringLiteral("XmlResultObjectType"),
    QStringLiteral("XmlAutoRespType"),
    QStringLiteral("XmlInteractRespType"),
    QStringLiteral("XmlRespRoot"),
    QStringLiteral("XmlResInfo_BestSensor_Type"),
    QStringLiteral("XmlResInfo_Cep_Type"),
    QStringLiteral("XmlResInfo_DetectProb_Type"),
    QStringLiteral("XmlResInfo_DfCov_Type"),
    QStringLiteral("XmlResInfo_FindSites_Type"),
    QStringLiteral("XmlKelBtType"),
};

// Name selections that a default object leaves unmade, which reading makes,
// and the requests made of them.
const QStringList readingMakesValid = {
    QStringLiteral("XmlNameAllType"),    QStringLiteral("XmlNameAllMultiType"),
    QStringLiteral("XmlBestSensorType"), QStringLiteral("XmlDetectProbType"),
    QStringLiteral("XmlDfCovType"),      QStringLiteral("XmlCepType"),
    QStringLiteral("XmlFindSitesType")};

// The object written, less the time of its making, which a default response
// message takes from the clock.
QString written(const IXmlElement& element)
{
    QString text = KelXmlTest::write(element, QStringLiteral("E"));
    const int at = text.indexOf(QLatin1String(" timestamp=\""));
    if (at >= 0)
        text.remove(at, text.indexOf(QLatin1Char('"'), at + 12) + 1 - at);
    return text;
}

QString text(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// The samples of a class that read without error, by file name.
QMap<QString, QString> readableSamples(const QString& className)
{
    QMap<QString, QString> samples;
    const QDir dir(QStringLiteral(KELXML_EXAMPLES "/") + className);
    for (const QString& name : dir.entryList({QStringLiteral("*.xml")}, QDir::Files)) {
        if (!name.startsWith(QLatin1String("unreadable-")))
            samples.insert(name, text(dir.filePath(name)));
    }
    return samples;
}

// Everything a user may do with an object after reading it.
void exercise(IXmlElement& element, const QString& className)
{
    element.isValid();
    element.syntaxError();
    KelXmlTest::write(element, QStringLiteral("E"));
    const auto copy = XmlElementRegistry::copy(className, element);
    QVERIFY(copy);
    copy->syntaxError();
    element.reset();
    element.isValid();
    element.syntaxError();
    KelXmlTest::write(element, QStringLiteral("E"));
    KelXmlTest::write(*copy, QStringLiteral("E"));
}

} // namespace

class TestContract : public QObject
{
    Q_OBJECT

private slots:
    void everyClass_data()
    {
        QTest::addColumn<QString>("className");
        for (const QString& name : XmlElementRegistry::classNames())
            QTest::newRow(qPrintable(name)) << name;
    }

    void defaultWritesAndReadsBack_data() { everyClass_data(); }
    void defaultWritesAndReadsBack()
    {
        QFETCH(QString, className);
        const auto element = XmlElementRegistry::create(className);
        const QString written = KelXmlTest::write(*element, QStringLiteral("E"));
        QVERIFY(written.startsWith(QLatin1String("<E")));
        const auto again = XmlElementRegistry::create(className);
        const QString error = KelXmlTest::read(*again, written);
        if (defaultsDoNotReadBack.contains(className)) {
            QVERIFY2(!error.isEmpty(), "reads back: take the class off the list");
            return;
        }
        QCOMPARE(error, QString());
        QCOMPARE(KelXmlTest::write(*again, QStringLiteral("E")), written);
        QCOMPARE(again->isValid(), element->isValid() || readingMakesValid.contains(className));
    }

    // A copy writes and reports like its source, and keeps doing so when the
    // source is reset: nothing is shared.
    void copiesAreDeepAndEqual_data() { everyClass_data(); }
    void copiesAreDeepAndEqual()
    {
        QFETCH(QString, className);
        QMap<QString, QString> samples = readableSamples(className);
        samples.insert(QStringLiteral("default"), QString());
        for (auto sample = samples.cbegin(); sample != samples.cend(); ++sample) {
            const auto source = XmlElementRegistry::create(className);
            if (!sample.value().isEmpty())
                QCOMPARE(KelXmlTest::read(*source, sample.value()), QString());
            const QString report = source->syntaxError();
            const QString written = KelXmlTest::write(*source, QStringLiteral("E"));
            const auto copy = XmlElementRegistry::copy(className, *source);
            QVERIFY(copy);
            source->reset();
            QCOMPARE(KelXmlTest::write(*copy, QStringLiteral("E")), written);
            QCOMPARE(copy->syntaxError(), report);
        }
    }

    void resetGivesADefaultObject_data() { everyClass_data(); }
    void resetGivesADefaultObject()
    {
        QFETCH(QString, className);
        const auto pristine = XmlElementRegistry::create(className);
        const QString expected = written(*pristine);
        const QMap<QString, QString> samples = readableSamples(className);
        for (const QString& sample : samples) {
            const auto element = XmlElementRegistry::create(className);
            KelXmlTest::read(*element, sample);
            element->syntaxError();
            element->reset();
            QCOMPARE(written(*element), expected);
            QCOMPARE(element->isValid(), pristine->isValid());
            QCOMPARE(element->syntaxError(), pristine->syntaxError());
        }
    }

    // Every prefix of every sample, and a few stray inputs, leave an object
    // that can still be checked, reported, written, copied and reset.
    void brokenReadsAreSafe_data() { everyClass_data(); }
    void brokenReadsAreSafe()
    {
        QFETCH(QString, className);
        QStringList inputs = {QStringLiteral("<E>"), QStringLiteral("<E><E><E></E>"),
                              QStringLiteral("<E>text<!-- c --><?pi x?></E>"),
                              QStringLiteral("<E version=\"9\"><Name/></E>")};
        const QDir dir(QStringLiteral(KELXML_EXAMPLES "/") + className);
        for (const QString& name : dir.entryList({QStringLiteral("*.xml")}, QDir::Files)) {
            const QString sample = text(dir.filePath(name));
            for (int length = 1; length < sample.size(); length += 7)
                inputs.append(sample.left(length));
        }
        for (const QString& input : inputs) {
            const auto element = XmlElementRegistry::create(className);
            KelXmlTest::read(*element, input);
            exercise(*element, className);
            if (QTest::currentTestFailed())
                return;
        }
        // A reader that does not stand on a start tag.
        const auto element = XmlElementRegistry::create(className);
        QXmlStreamReader reader(QStringLiteral("<E>text</E>"));
        reader.readNext();
        reader.readNext();
        reader.readNext();
        element->processXml(reader, QStringLiteral("E"));
        exercise(*element, className);
    }
};

QTEST_GUILESS_MAIN(TestContract)
#include "tst_contract.moc"
