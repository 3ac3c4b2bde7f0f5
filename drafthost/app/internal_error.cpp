#include "app/internal_error.h"

#include "runtime/control.h"

#include <exception>

namespace drafthost {

ExitCode RunAndTellInternalErrors(const std::function<ExitCode()>& program) {
    try {
        return program();
    } catch (const std::exception& exception) {
        PrintError(L"internal error: " + DecodeText(exception.what()));
        return ExitCode::InternalError;
    }
}

}  // namespace drafthost
