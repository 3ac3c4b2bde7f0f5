#include "e2e/installation.h"

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

namespace {

constexpr wchar_t application[] =
    L"(princ (strcat \"\\n[application in \" (getvar \"DWGNAME\") \" from \" (GetKVTPath) \"]\"))"
    L"(princ)\n";

std::string ToUtf8(const std::wstring& text) {
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.c_str(), static_cast<int>(text.size()),
                                         nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.c_str(), static_cast<int>(text.size()), bytes.data(), size,
                        nullptr, nullptr);
    return bytes;
}

/// A profile for this process's installations alone.
std::wstring ProfileName() {
    return L"e2e-" + std::to_wstring(GetCurrentProcessId());
}

std::wstring ProfileKey() {
    return L"Software\\Drafthost\\Profiles\\" + ProfileName();
}

std::wstring Quoted(const std::wstring& text) {
    return L"\"" + text + L"\"";
}

}  // namespace

Installation::Installation(const std::wstring& folderName) : m_folder(folderName) {
    WriteFileBytes(LispPath(), ToUtf8(application));
    WriteFileBytes(FirstDrawing(), "drawing");
    WriteFileBytes(SecondDrawing(), "drawing");
    std::filesystem::create_directories(m_folder / L"module");
    std::filesystem::copy_file(ProgramFolder() + L"\\KVTCAD.arx", ModulePath());
    m_registry.SetLocation(Location());
    m_registry.SetVersion(L"2026.1");
}

Installation::~Installation() {
    // Result ignored: an installation that never ran has no profile.
    RegDeleteTreeW(HKEY_CURRENT_USER, ProfileKey().c_str());
}

void Installation::EnableLog() {
    WriteFileBytes(ConfigPath(), "<?xml version=\"1.0\"?><Config><EnableLog/></Config>");
}

HostRun Installation::Run(const std::vector<std::wstring>& drawings, const std::wstring& lines,
                          const std::wstring& directory) {
    std::wstring arguments = L"--load " + Quoted(ModulePath());
    for (const std::wstring& drawing : drawings)
        arguments += L" --open " + Quoted(drawing);
    return RunHost(arguments, lines, directory);
}

HostRun Installation::RunHost(const std::wstring& arguments, const std::wstring& lines,
                              const std::wstring& directory) {
    ChildOptions options;
    options.directory = directory;
    options.input = ToUtf8(lines);
    const ChildResult child =
        RunChild(Quoted(ProgramFolder() + L"\\drafthost.exe") + L" --strict --profile " +
                     ProfileName() + L" " + arguments,
                 options);
    HostRun run;
    run.exitCode = child.timedOut ? ~0ul : child.exitCode;
    run.console = FromUtf8(child.output);
    run.console.erase(std::remove(run.console.begin(), run.console.end(), L'\r'),
                      run.console.end());
    run.errors = child.errors;
    return run;
}

std::wstring Installation::Setting(const std::wstring& name) {
    wchar_t value[4096] = {};
    DWORD size = sizeof value;
    const LSTATUS status =
        RegGetValueW(HKEY_CURRENT_USER, (ProfileKey() + L"\\Environment").c_str(), name.c_str(),
                     RRF_RT_REG_SZ, nullptr, value, &size);
    return status == ERROR_SUCCESS ? value : std::wstring();
}

std::vector<std::string> Installation::LogMessages() const {
    std::vector<std::string> messages;
    std::istringstream lines(ReadFileBytes(LogPath()));
    for (std::string line; std::getline(lines, line);) {
        const size_t prefixEnd = line.find("] ");
        if (line.compare(0, 1, "[") != 0 || prefixEnd == std::string::npos) continue;
        messages.push_back(line.substr(prefixEnd + 2, line.size() - prefixEnd - 3));
    }
    return messages;
}

std::wstring FromUtf8(const std::string& bytes) {
    const int size =
        MultiByteToWideChar(CP_UTF8, 0, bytes.data(), static_cast<int>(bytes.size()), nullptr, 0);
    std::wstring text(static_cast<size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, bytes.data(), static_cast<int>(bytes.size()), text.data(),
                        size);
    return text;
}

std::wstring LispLiteral(std::wstring text) {
    for (size_t at = 0; (at = text.find(L'\\', at)) != std::wstring::npos; at += 2)
        text.insert(at, 1, L'\\');
    return Quoted(text);
}

size_t Occurrences(const std::wstring& text, const std::wstring& part) {
    size_t count = 0;
    for (size_t at = text.find(part); at != std::wstring::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}
