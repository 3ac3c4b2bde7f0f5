#include "host_run.h"

#include "support/child_process.h"
#include "support/utf8_text.h"

#include <windows.h>

#include <stdexcept>

namespace {

constexpr const wchar_t* misdeedVariable = L"DRAFTHOST_MISDEED";

}  // namespace

HostRun::HostRun(const std::wstring& options, const std::wstring& input) {
    ChildOptions child;
    child.input = ToUtf8(input);
    const ChildResult result =
        RunChild(L"\"" + ProgramFolder() + L"\\drafthost.exe\" --profile \"" + m_profile.Name() +
                     L"\" " + options,
                 child);
    if (result.timedOut) throw std::runtime_error("drafthost.exe hangs");
    m_code = static_cast<drafthost::ExitCode>(result.exitCode);
    m_output = FromUtf8(result.output);
    m_errors = FromUtf8(result.errors);
}

bool HostRun::HasLine(const std::wstring& line) const {
    return (L"\n" + m_output).find(L"\n" + line + L"\n") != std::wstring::npos;
}

std::wstring HostRun::Shown(const std::wstring& line) const {
    const std::wstring echo = L"Command: " + line + L"\n";
    const std::size_t found = m_output.find(echo);
    if (found == std::wstring::npos) return L"(the line wasn't read)";
    const std::size_t start = found + echo.size();
    const std::size_t end = m_output.find(L"Command: ", start);
    const std::wstring shown = m_output.substr(start, end - start);
    return shown.substr(0, shown.find_last_not_of(L'\n') + 1);
}

std::wstring ModulePath(const std::wstring& module) {
    return ProgramFolder() + L"\\" + module + L".arx";
}

std::wstring LoadOption(const std::wstring& module) {
    return L" --load \"" + ModulePath(module) + L"\" ";
}

Misdeed::Misdeed(const std::wstring& misdeed) {
    SetEnvironmentVariableW(misdeedVariable, misdeed.c_str());
}

Misdeed::~Misdeed() {
    SetEnvironmentVariableW(misdeedVariable, nullptr);
}
