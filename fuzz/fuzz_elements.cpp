// Feeds arbitrary bytes to the element classes: the first byte chooses a
// class, the rest is read as its element. Whatever the input, reading must
// end, and checking, reporting, writing, copying and resetting the object
// afterwards must be safe.

#include <XmlElementRegistry.h>

#include <QByteArray>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const QStringList classes = KelXml::XmlElementRegistry::classNames();
    if (size < 1)
        return 0;
    const QString className = classes.at(data[0] % classes.size());
    const QByteArray xml(reinterpret_cast<const char*>(data + 1), int(size - 1));

    auto element = KelXml::XmlElementRegistry::create(className);
    QXmlStreamReader reader(xml);
    while (!reader.atEnd() && reader.readNext() != QXmlStreamReader::StartElement) {
    }
    element->processXml(reader, reader.name().toString());

    element->isValid();
    element->syntaxError();
    QByteArray written;
    QXmlStreamWriter writer(&written);
    element->produceXml(writer, QStringLiteral("E"));

    // What was written reads back into a fresh object without harm.
    auto again = KelXml::XmlElementRegistry::create(className);
    QXmlStreamReader rereader(written);
    rereader.readNextStartElement();
    again->processXml(rereader, QStringLiteral("E"));
    again->syntaxError();

    element->reset();
    element->isValid();
    return 0;
}
