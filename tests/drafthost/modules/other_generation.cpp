// A module of another library generation, told by an ordinary function.

#include "modules/fixture_exports.h"

#include <cstdlib>

FIXTURE_EXPORT unsigned acrxGetApiVersion(unsigned) {
    return 16u << 16;
}

// Never to be called.
AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode, void*) {
    std::abort();
}
