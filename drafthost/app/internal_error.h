#pragma once

#include "runtime/exit_code.h"

#include <functional>

namespace drafthost {

/// Runs the program; an exception that leaves it is told on the standard error and becomes
/// `InternalError`.
ExitCode RunAndTellInternalErrors(const std::function<ExitCode()>& program);

}  // namespace drafthost
