// Feeds arbitrary bytes to the entry point as a scenario snapshot.

#include "FuzzDocument.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    return KelXmlFuzz::readDocument("XmlKelBtType", data, size);
}
