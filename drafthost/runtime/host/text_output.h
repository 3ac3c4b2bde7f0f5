#pragma once

#include "runtime/control.h"

#include <string>

// What the control interface has of the command line, and the rest that only the runtime uses.

namespace drafthost {

/// As PrintLine in a verbose session, else nothing.
void PrintNote(const std::wstring& line);

/// Gives what went wrong, if anything did, to the caller who wants it, else to the command line.
void TellProblem(const std::wstring& line, std::wstring* wanted);

void SetVerbose(bool verbose);

}  // namespace drafthost
