// drafthost.exe: the stand-in host on the console.

#include "app/console.h"
#include "app/dialog_attendant.h"
#include "app/internal_error.h"
#include "app/interruption.h"

#include <windows.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

using drafthost::Console;
using drafthost::ExitCode;
using drafthost::Options;

namespace {

/// Adds the sources that the options name; gives the script that can't be read, or empty.
std::wstring AddSources(Console& console, const Options& options) {
    for (const std::wstring& script : options.scripts) {
        auto source = drafthost::OpenScript(script);
        if (source == nullptr) return script;
        console.AddSource(std::move(source));
    }
    if (options.scripts.empty() || options.goesOnAtPrompt) {
        console.AddSource(std::make_unique<drafthost::StandardInput>());
    }
    return {};
}

/// The full path of the folder for the pictures, made if it isn't there; nothing when that fails.
std::optional<std::wstring> MakePictureFolder(const std::wstring& folder) {
    if (folder.empty()) return folder;
    std::error_code error;
    std::filesystem::path path = std::filesystem::absolute(folder, error);
    if (!error) std::filesystem::create_directories(path, error);
    if (error) return {};
    return path.make_preferred().wstring();
}

ExitCode RunSession(const Options& options) {
    Console console(options);
    const std::wstring missing = AddSources(console, options);
    if (!missing.empty()) {
        drafthost::PrintError(L"the script " + missing + L" can't be read.");
        return ExitCode::FileMissing;
    }
    const auto pictureFolder = MakePictureFolder(options.pictureFolder);
    if (!pictureFolder) {
        drafthost::PrintError(L"the folder " + options.pictureFolder + L" can't be made.");
        return ExitCode::FileMissing;
    }
    if (!drafthost::StartHost({options.profile, options.isVerbose})) {
        drafthost::PrintError(options.profile + L" is no name of a profile.");
        return ExitCode::UsageError;
    }
    SetConsoleCtrlHandler(drafthost::OnControlEvent, TRUE);
    const drafthost::DialogAttendant attendant({*pictureFolder, options.answer,
                                                [&] { return console.IsLineTyped(); },
                                                options.dialogDeadline});
    ExitCode code = console.Begin();
    if (code == ExitCode::Success) code = console.Run();
    drafthost::ShutDownHost();
    if (code == ExitCode::Success && attendant.HasFailed()) code = ExitCode::DialogFailed;
    const bool hasOffended = options.isStrict && drafthost::OffenceCount() > 0;
    return code == ExitCode::Success && hasOffended ? ExitCode::ModuleOffended : code;
}

ExitCode RunProgram(const std::vector<std::wstring>& arguments) {
    const auto parsed = drafthost::ParseOptions(arguments);
    if (parsed.isToRun) return RunSession(parsed.options);
    if (parsed.exitCode == ExitCode::Success) {
        drafthost::Print(parsed.text);
    } else {
        drafthost::PrintError(parsed.text);
    }
    return parsed.exitCode;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    return static_cast<int>(drafthost::RunAndTellInternalErrors([&] {
        return RunProgram({argv + 1, argv + argc});
    }));
}
