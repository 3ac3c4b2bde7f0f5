#include "e2e/installation.h"

#include "support/utf8_text.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

namespace {

constexpr wchar_t application[] =
    L"(princ (strcat \"\\n[application in \" (getvar \"DWGNAME\") \" from \" (GetKVTPath) \"]\"))"
    L"(princ)\n";

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

void Installation::EnableLog() {
    WriteFileBytes(ConfigPath(), "<?xml version=\"1.0\"?><Config><EnableLog/></Config>");
}

InstallationRun Installation::Run(const std::vector<std::wstring>& drawings,
                                  const std::wstring& lines, const std::wstring& directory) {
    std::wstring arguments = L"--load " + Quoted(ModulePath());
    for (const std::wstring& drawing : drawings)
        arguments += L" --open " + Quoted(drawing);
    return RunHost(arguments, lines, directory);
}

InstallationRun Installation::RunHost(const std::wstring& arguments, const std::wstring& lines,
                                      const std::wstring& directory) {
    ChildOptions options;
    options.directory = directory;
    options.input = ToUtf8(lines);
    const ChildResult child =
        RunChild(Quoted(ProgramFolder() + L"\\drafthost.exe") + L" --strict --profile " +
                     Quoted(m_profile.Name()) + L" " + arguments,
                 options);
    InstallationRun run;
    run.exitCode = child.timedOut ? ~0ul : child.exitCode;
    run.console = FromUtf8(child.output);
    run.console.erase(std::remove(run.console.begin(), run.console.end(), L'\r'),
                      run.console.end());
    run.errors = child.errors;
    return run;
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

std::wstring LispLiteral(std::wstring text) {
    for (size_t at = 0; (at = text.find(L'\\', at)) != std::wstring::npos; at += 2)
        text.insert(at, 1, L'\\');
    return Quoted(text);
}
