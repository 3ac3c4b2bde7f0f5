#pragma once

#include "app/dialog_attendant.h"
#include "runtime/exit_code.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace drafthost {

/// What the command line asks for.
struct Options {
    std::vector<std::wstring> modules;   ///< loaded in this order, ahead of the drawings
    std::vector<std::wstring> drawings;  ///< opened in this order; none: one new drawing
    std::vector<std::wstring> scripts;   ///< read one after the other in place of the input
    std::wstring profile = L"Default";   ///< whose settings are used
    std::wstring pictureFolder;          ///< where dialogs' pictures go; empty: none are taken
    std::optional<DialogAnswer> answer;  ///< for every dialog
    std::chrono::seconds dialogDeadline = std::chrono::seconds(20);  ///< to paint, or to end
    bool goesOnAtPrompt = false;  ///< behind the scripts comes the standard input
    bool isVerbose = false;       ///< notes on what the host does
    bool isStrict = false;        ///< offences of modules count in the exit code
    bool stopsOnError = false;    ///< the first line that fails ends the session
};

/// The outcome of reading a command line: options to run with, or a text to show and end with.
struct ParsedOptions {
    bool isToRun = false;
    Options options;
    std::wstring text;  ///< help or version; unless Success what is wrong, without an end of line
    ExitCode exitCode = ExitCode::Success;
};

/// `arguments` without the program's name.
ParsedOptions ParseOptions(const std::vector<std::wstring>& arguments);

}  // namespace drafthost
