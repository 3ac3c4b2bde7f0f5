#pragma once

#include "runtime/control.h"

namespace drafthost {

/// A line from the program's input; empty when there is none, or the program has set no input.
std::optional<std::wstring> ReadUserLine(const std::wstring& prompt);

}  // namespace drafthost
