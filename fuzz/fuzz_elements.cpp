// Feeds arbitrary bytes to the element classes: the first byte chooses a
// class, the rest is read as its element. Whatever the input, reading must
// end, and checking, reporting, writing, copying and resetting the object
// afterwards must be safe. And what a class writes, it reads back to the
// same text: writing the object read from a written object gives that
// written text again, except for the classes listed below. A tree equals
// its copy; trees that are equal write the same bytes; and a tree read from
// the written text with one value changed is unequal whenever it writes other
// bytes.

#include <XmlElementBase.h>
#include <XmlElementRegistry.h>

#include <QByteArray>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

// Classes whose written form reads back cleanly as something else, each with
// the reason. Empty so far: the asymmetries of the format (grid results, the
// interlink writing "Power" for "TxPower", the signal path's written form,
// lists that must not be empty) make the written form unreadable, and an
// unreadable form is not compared.
const QStringList writtenFormDiffers = {};

QString written(const KelXml::IXmlElement& element)
{
    QString text;
    QXmlStreamWriter writer(&text);
    element.produceXml(writer, QStringLiteral("E"));
    return text;
}

// Reads the first element of xml into element; true without a reader error.
template <class Text>
bool read(KelXml::IXmlElement& element, const Text& xml)
{
    QXmlStreamReader reader(xml);
    while (!reader.atEnd() && reader.readNext() != QXmlStreamReader::StartElement) {
    }
    element.processXml(reader, reader.name().toString());
    return !reader.hasError();
}

bool equal(const KelXml::IXmlElement& a, const KelXml::IXmlElement& b)
{
    return dynamic_cast<const KelXml::XmlElementBase&>(a) ==
           dynamic_cast<const KelXml::XmlElementBase&>(b);
}

// The written text with a digit added to the end of its n-th non-empty text
// (counted round); the text itself when it holds none.
QString withOneValueChanged(const QString& text, size_t n)
{
    QList<int> ends;
    for (int close = int(text.indexOf(QLatin1Char('<'), 1)); close > 0;
         close = int(text.indexOf(QLatin1Char('<'), close + 1))) {
        if (text.at(close - 1) != QLatin1Char('>'))
            ends.append(close);
    }
    if (ends.isEmpty())
        return text;
    QString changed = text;
    changed.insert(ends.at(int(n % size_t(ends.size()))), QLatin1Char('7'));
    return changed;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const QStringList classes = KelXml::XmlElementRegistry::classNames();
    if (size < 1)
        return 0;
    const QString className = classes.at(data[0] % classes.size());
    const QByteArray xml(reinterpret_cast<const char*>(data + 1), int(size - 1));

    auto element = KelXml::XmlElementRegistry::create(className);
    read(*element, xml);
    element->isValid();
    element->syntaxError();
    const QString first = written(*element);

    // What was written reads back into a fresh object without harm, and
    // when it reads cleanly, writes the same text again.
    auto again = KelXml::XmlElementRegistry::create(className);
    const bool clean = read(*again, first);
    again->syntaxError();
    if (clean && !writtenFormDiffers.contains(className) && written(*again) != first)
        std::abort();
    if (equal(*again, *element) && written(*again) != first)
        std::abort();

    // One value of the written text changed.
    if (clean) {
        const QString changedText = withOneValueChanged(first, size);
        auto changed = KelXml::XmlElementRegistry::create(className);
        if (read(*changed, changedText)) {
            // Other bytes: unequal (equal trees write the same bytes).
            if (written(*changed) != written(*again) && equal(*changed, *again))
                std::abort();
        }
    }

    auto copy = KelXml::XmlElementRegistry::copy(className, *element);
    if (!copy || !equal(*copy, *element))
        std::abort();
    element->reset();
    element->isValid();
    if (!copy || written(*copy) != first)
        std::abort();
    return 0;
}
