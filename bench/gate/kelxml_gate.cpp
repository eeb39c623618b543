// Reads and checks a fixed command message once. The instruction-count gate
// runs this under callgrind and counts only what one function spends:
// kelxmlGateRead() (processXml over a byte array) or, with the argument
// "stream", kelxmlGateStream() (the document entry point reading the same
// bytes from a device: the scan, the blocks handed to Qt, the root).

#include "BenchDocuments.h"

#include <XmlDocumentReader.h>

#include <QBuffer>
#include <QXmlStreamReader>

#include <cstdio>
#include <cstring>

// Not inlined, so that callgrind can collect exactly these calls.
__attribute__((noinline)) bool kelxmlGateRead(const QByteArray& document)
{
    QXmlStreamReader reader(document);
    KelXmlBench::Model model(KelXmlBench::DocumentKind::Command);
    return model.read(reader) && model.isValid();
}

__attribute__((noinline)) bool kelxmlGateStream(QIODevice* device)
{
    const KelXml::XmlReadResult result = KelXml::XmlDocumentReader().readCommand(device);
    return result.error.isNull() && result.root->isValid();
}

int main(int argc, char* argv[])
{
    // The same 1.5 MB on every run: the budget is kept per input byte.
    QByteArray document = KelXmlBench::generate(KelXmlBench::DocumentKind::Command, 1500 * 1000);
    bool valid = false;
    if (argc > 1 && std::strcmp(argv[1], "stream") == 0) {
        QBuffer buffer(&document);
        buffer.open(QIODevice::ReadOnly);
        valid = kelxmlGateStream(&buffer);
    } else {
        valid = kelxmlGateRead(document);
    }
    std::printf("bytes=%lld\n", static_cast<long long>(document.size()));
    if (!valid) {
        std::printf("the document did not read as valid\n");
        return 1;
    }
    return 0;
}
