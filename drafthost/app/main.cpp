// drafthost.exe: the stand-in host on the console.

#include "app/console.h"
#include "app/dialog_attendant.h"

#include <windows.h>

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <optional>

using drafthost::Console;
using drafthost::ExitCode;
using drafthost::Options;

namespace {

void WriteTo(DWORD standardHandle, const std::wstring& text) {
    const HANDLE handle = GetStdHandle(standardHandle);
    DWORD mode = 0;
    DWORD written = 0;
    // Results ignored: there is nowhere to complain.
    if (GetConsoleMode(handle, &mode)) {
        WriteConsoleW(handle, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    } else {
        const std::string bytes = drafthost::EncodeText(text);
        WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    }
}

/// Ctrl+C ends a running evaluation; at the prompt nothing runs, and it does nothing.
BOOL WINAPI OnControlEvent(DWORD event) {
    if (event != CTRL_C_EVENT) return FALSE;
    drafthost::InterruptEvaluation();
    return TRUE;
}

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
        WriteTo(STD_ERROR_HANDLE, L"drafthost: the script " + missing + L" can't be read.\n");
        return ExitCode::FileMissing;
    }
    const auto pictureFolder = MakePictureFolder(options.pictureFolder);
    if (!pictureFolder) {
        WriteTo(STD_ERROR_HANDLE,
                L"drafthost: the folder " + options.pictureFolder + L" can't be made.\n");
        return ExitCode::FileMissing;
    }
    if (!drafthost::StartHost({options.profile, options.isVerbose})) {
        WriteTo(STD_ERROR_HANDLE,
                L"drafthost: " + options.profile + L" is no name of a profile.\n");
        return ExitCode::UsageError;
    }
    SetConsoleCtrlHandler(OnControlEvent, TRUE);
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

}  // namespace

int wmain(int argc, wchar_t** argv) {
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    try {
        const auto parsed = drafthost::ParseOptions({argv + 1, argv + argc});
        if (parsed.isToRun) return static_cast<int>(RunSession(parsed.options));
        const bool isError = parsed.exitCode != ExitCode::Success;
        WriteTo(isError ? STD_ERROR_HANDLE : STD_OUTPUT_HANDLE, parsed.text);
        return static_cast<int>(parsed.exitCode);
    } catch (const std::exception& exception) {
        WriteTo(STD_ERROR_HANDLE,
                L"drafthost: internal error: " + drafthost::DecodeText(exception.what()) + L"\n");
        return static_cast<int>(ExitCode::InternalError);
    }
}
