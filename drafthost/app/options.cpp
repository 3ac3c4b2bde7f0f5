#include "app/options.h"

#include "runtime/control.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace drafthost {

namespace {

constexpr const char* footer =
    R"(Modules are loaded first, then the drawings are opened. Without --open there is one new drawing.
Without --script, lines come from the standard input; its end is the same as QUIT.

A dialog that was opened by a line from a script, a pipe or a file is answered with OK; one that was
opened by a line typed at the console waits for the person there. --answer answers all of them.

At the prompt: LISP expressions, commands of modules, and the host's own; HELP lists them.

Exit codes:
   0  the session ended by QUIT or the end of the input
   1  an error of drafthost's own
  10  wrong usage of the command line
  11  a module, drawing or script named there is missing or can't be opened; also a second
      drawing beside a module that works with one only
  12  a module named there can't be loaded: no library, an export missing, another generation
  13  a module named there refused to start
  14  a module crashed, or ended the process
  15  with --strict: a module broke the host's rules
  16  with --stop-on-error: a line failed
  17  a dialog never painted, didn't end when answered, or its picture can't be saved)";

/// Option values as the parser holds them, in UTF-8.
struct NarrowOptions {
    std::vector<std::string> modules;
    std::vector<std::string> drawings;
    std::vector<std::string> scripts;
    std::string profile;
    std::string pictureFolder;
    std::string answer;
    unsigned dialogDeadline = 20;
};

std::vector<std::wstring> Widened(const std::vector<std::string>& texts) {
    std::vector<std::wstring> wide;
    wide.reserve(texts.size());
    for (const std::string& text : texts)
        wide.push_back(DecodeText(text));
    return wide;
}

/// The parser takes the arguments in reverse order.
std::vector<std::string> Reversed(const std::vector<std::wstring>& arguments) {
    std::vector<std::string> narrow;
    narrow.reserve(arguments.size());
    for (const std::wstring& argument : arguments)
        narrow.push_back(EncodeText(argument));
    std::reverse(narrow.begin(), narrow.end());
    return narrow;
}

void Declare(CLI::App& parser, NarrowOptions& narrow, Options& options) {
    parser.set_version_flag("--version", std::string("drafthost ") + DRAFTHOST_VERSION,
                            "Show the version and end");
    parser.add_option("--load", narrow.modules, "Load this module; may be repeated")
        ->type_name("FILE")
        ->allow_extra_args(false);
    parser.add_option("--open", narrow.drawings, "Open this drawing; may be repeated")
        ->type_name("FILE")
        ->allow_extra_args(false);
    parser.add_option("--script", narrow.scripts, "Take the input from this file; may be repeated")
        ->type_name("FILE")
        ->allow_extra_args(false);
    parser.add_option("--profile", narrow.profile, "Keep the settings under this name [Default]")
        ->type_name("NAME");
    parser
        .add_option("--capture", narrow.pictureFolder,
                    "Save a picture of each dialog in this folder, which is made if it isn't there")
        ->type_name("DIR");
    parser
        .add_option("--answer", narrow.answer, "End each dialog as by its OK button or close box")
        ->check(CLI::IsMember({"ok", "close"}))
        ->type_name("ok|close");
    parser
        .add_option("--dialog-deadline", narrow.dialogDeadline,
                    "What a dialog has to paint in, and to end after its answer [20]")
        ->check(CLI::Range(1, 3600))
        ->type_name("SECONDS");
    parser.add_flag("--prompt", options.goesOnAtPrompt, "Go on at the prompt behind the scripts");
    parser.add_flag("--stop-on-error", options.stopsOnError, "End at the first line that fails");
    parser.add_flag("--strict", options.isStrict, "Give offences of modules an exit code");
    parser.add_flag("--verbose", options.isVerbose, "Tell what the host does");
    parser.footer(footer);
}

}  // namespace

ParsedOptions ParseOptions(const std::vector<std::wstring>& arguments) {
    ParsedOptions parsed;
    NarrowOptions narrow;
    CLI::App parser("A stand-in drafting host: runs modules and LISP without the real one.",
                    "drafthost");
    Declare(parser, narrow, parsed.options);
    try {
        parser.parse(Reversed(arguments));
    } catch (const CLI::CallForHelp&) {
        parsed.text = DecodeText(parser.help());
        return parsed;
    } catch (const CLI::CallForVersion& version) {
        parsed.text = DecodeText(version.what()) + L"\n";
        return parsed;
    } catch (const CLI::ParseError& error) {
        parsed.text = DecodeText(error.what()) + L"\nRun drafthost --help for the options.";
        parsed.exitCode = ExitCode::UsageError;
        return parsed;
    }
    parsed.isToRun = true;
    parsed.options.modules = Widened(narrow.modules);
    parsed.options.drawings = Widened(narrow.drawings);
    parsed.options.scripts = Widened(narrow.scripts);
    if (!narrow.profile.empty()) parsed.options.profile = DecodeText(narrow.profile);
    parsed.options.pictureFolder = DecodeText(narrow.pictureFolder);
    if (!narrow.answer.empty()) {
        parsed.options.answer = narrow.answer == "ok" ? DialogAnswer::Ok : DialogAnswer::Close;
    }
    parsed.options.dialogDeadline = std::chrono::seconds(narrow.dialogDeadline);
    return parsed;
}

}  // namespace drafthost
