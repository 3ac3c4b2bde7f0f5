#pragma once

#include <string>

/// What a child process left behind.
struct ChildResult {
    unsigned long exitCode = 0;  ///< all 32 bits
    bool timedOut = false;       ///< it had to be ended; `exitCode` is then meaningless
    std::string output;          ///< bytes of stdout
    std::string errors;          ///< bytes of stderr
};

struct ChildOptions {
    std::wstring directory;              ///< working folder; empty: the caller's
    std::string input;                   ///< bytes for stdin, which is closed behind them
    unsigned long milliseconds = 60000;  ///< the child is ended after this long
};

/// Runs `commandLine` to its end. Throws std::runtime_error when it can't be started.
ChildResult RunChild(const std::wstring& commandLine, const ChildOptions& options = {});

/// The test program's own command line with `arguments` behind it, for a child that runs one
/// function of this program.
std::wstring OwnCommandLine(const std::wstring& arguments);

/// The folder that holds the test programs, the module and drafthost; no backslash at the end.
std::wstring ProgramFolder();
