#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// One request, as the command line asks for it.
struct FetchOptions {
    std::wstring url;
    std::optional<std::string> body;      ///< UTF-8; with one the method is POST
    std::optional<std::wstring> headers;  ///< lines parted by CR LF
    std::optional<uint32_t> timeout;      ///< milliseconds
};

struct CommandLine {
    FetchOptions options;
    /// Set when there is nothing to fetch: `output` and `errors` are to be printed then.
    std::optional<int> exitCode;
    std::string output;
    std::string errors;
};

/// Reads the arguments behind the program's name.
CommandLine ParseCommandLine(const std::vector<std::wstring>& arguments);
