// A module that needs a library which is where nobody looks.

#include "modules/fixture_exports.h"

extern "C" __declspec(dllimport) void AbsentFunction();

AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode, void*) {
    AbsentFunction();
    return AcRx::kRetOK;
}
