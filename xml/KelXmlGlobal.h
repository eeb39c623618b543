#pragma once

#include <QtGlobal>

// Symbol visibility of the shared library: the library is built with hidden
// visibility, and every public class is marked with KELXML_EXPORT.
#if defined(KELXML_LIBRARY)
#define KELXML_EXPORT Q_DECL_EXPORT
#else
#define KELXML_EXPORT Q_DECL_IMPORT
#endif
