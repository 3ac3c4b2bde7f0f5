#pragma once

#include "runtime/control.h"

#include <string>

// What the control interface has of the command line, and the rest that only the runtime uses.

namespace drafthost {

/// As PrintLine in a verbose session, else nothing.
void PrintNote(const std::wstring& line);

void SetVerbose(bool verbose);

}  // namespace drafthost
