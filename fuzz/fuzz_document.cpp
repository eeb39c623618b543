// Feeds arbitrary bytes to the entry point as a document of one kind: built
// once per row of the table of document kinds, KELXML_FUZZ_KIND naming the
// kind ("command").

#include "FuzzDocument.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    return KelXmlFuzz::readDocument(KELXML_FUZZ_KIND, data, size);
}
