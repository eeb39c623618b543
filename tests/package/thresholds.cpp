// Reads a list of receiver thresholds, checks it and prints it.
#include <KelXml/XmlFreqThrListType.h>

#include <QFile>
#include <QTextStream>
#include <QXmlStreamReader>

int main(int argc, char* argv[])
{
    QTextStream out(stdout);
    QFile file(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    if (!file.open(QIODevice::ReadOnly)) {
        out << "cannot open the file\n";
        return 2;
    }

    QXmlStreamReader reader(&file);
    reader.readNextStartElement(); // stand on the start tag of the element
    KelXml::XmlFreqThrListType thresholds;
    thresholds.processXml(reader, reader.name().toString());

    if (reader.hasError()) { // a structural fault, with class, line and column
        out << reader.errorString() << "\n";
        return 2;
    }
    if (!thresholds.isValid()) { // a fault of content, explained class by class
        out << thresholds.syntaxError() << "\n";
        return 1;
    }
    for (const KelXml::XmlFreqThrPairType* pair : thresholds.freqThrPairs()) {
        out << pair->frequency()->frequency_MHz()
            << " MHz: " << pair->fieldstrength()->fieldstrength() << " dBm\n";
    }
    return 0;
}
