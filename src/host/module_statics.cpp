// The module's statics that need building. They come after all others, in this order, and go in the
// reverse one, so that the document data leaves the host while everything else still stands.

#include "host/document_data.h"
#include "install/install_record.h"

#if defined(_MSC_VER)
// Behind the section in which the compiler puts ordinary initialisers. Prepared, never built by us.
#pragma init_seg(".CRT$XCV")
#endif
// The GNU linker's start code runs initialisers from the last object file to the first: this file
// is named first where the module is linked.

std::wstring InstallLocation;
std::wstring InstallVersion;
AcApDataManager<CDocData> DocumentData;
