#pragma once

#include "http/http_interface_error.h"

#include <string>

/// What the program ends with when its command line is wrong. Else it ends with the client's code.
constexpr int exitUsage = 64;

/// What ending with this code means; empty for a code that the program never gives.
std::string MeaningOfExitCode(int exitCode);

/// The exit codes with their meanings, a line for each, as `--help` shows them.
std::string ExitCodeList();
