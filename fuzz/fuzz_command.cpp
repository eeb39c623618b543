// Feeds arbitrary bytes to the entry point as a command message.

#include "FuzzDocument.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    return KelXmlFuzz::readDocument("XmlCmdRoot", data, size);
}
