#include "runtime/invalid_parameter.h"

#include <stdlib.h>
#include <windows.h>

void RaiseInvalidParameter() {
#if defined(_MSC_VER)
    _invalid_parameter_noinfo_noreturn();
#else
    // The cross-compiler's C runtime keeps the handler but offers no public way to invoke it.
    if (const auto handler = _get_invalid_parameter_handler()) {
        handler(nullptr, nullptr, nullptr, 0, 0);
    }
    // The runtime's own default: an exception that no catch clause sees and that ends the process.
    constexpr DWORD statusInvalidParameter = 0xC0000417;  // STATUS_INVALID_CRUNTIME_PARAMETER
    RaiseException(statusInvalidParameter, EXCEPTION_NONCONTINUABLE, 0, nullptr);
    abort();
#endif
}
