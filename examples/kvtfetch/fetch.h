#pragma once

#include "kvtfetch/command_line.h"

#include <string>

/// What a request leaves to print and to end with.
struct FetchResult {
    int exitCode = 0;
    std::string output;  ///< UTF-8
    std::string errors;  ///< UTF-8
};

/// Makes the request by the module's client.
FetchResult Fetch(const FetchOptions& options);
