// Reads and checks a fixed command message once. The instruction-count gate
// runs this under callgrind and counts only what kelxmlGateRead() spends.

#include "BenchDocuments.h"

#include <QXmlStreamReader>

#include <cstdio>

// Not inlined, so that callgrind can collect exactly this call.
__attribute__((noinline)) bool kelxmlGateRead(const QByteArray& document)
{
    QXmlStreamReader reader(document);
    KelXmlBench::Model model(KelXmlBench::DocumentKind::Command);
    return model.read(reader) && model.isValid();
}

int main()
{
    // The same 1.5 MB on every run: the budget is kept per input byte.
    const QByteArray document =
        KelXmlBench::generate(KelXmlBench::DocumentKind::Command, 1500 * 1000);
    const bool valid = kelxmlGateRead(document);
    std::printf("bytes=%lld\n", static_cast<long long>(document.size()));
    if (!valid) {
        std::printf("the document did not read as valid\n");
        return 1;
    }
    return 0;
}
