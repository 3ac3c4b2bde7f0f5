// A library that has an entry point and lacks acrxGetApiVersion.

#include "modules/fixture_exports.h"

AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode, void*) {
    return AcRx::kRetOK;
}
