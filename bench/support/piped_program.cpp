#include "support/piped_program.h"

#include <stdexcept>

PipedProgram::PipedProgram(const std::wstring& path, const std::wstring& arguments) {
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    HANDLE theirInput = nullptr;
    HANDLE theirOutput = nullptr;
    const bool piped = CreatePipe(&theirInput, &m_input, &inherited, 0) &&
                       CreatePipe(&m_output, &theirOutput, &inherited, 0);
    SetHandleInformation(m_input, HANDLE_FLAG_INHERIT, 0);
    SetHandleInformation(m_output, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = theirInput;
    startup.hStdOutput = theirOutput;
    startup.hStdError = theirOutput;
    std::wstring commandLine = L"\"" + path + L"\" " + arguments;
    const bool started =
        piped && CreateProcessW(path.c_str(), commandLine.data(), nullptr, nullptr, TRUE,
                                CREATE_NO_WINDOW, nullptr, nullptr, &startup, &m_process);
    CloseHandle(theirInput);
    CloseHandle(theirOutput);
    if (!started) {
        CloseHandle(m_input);
        CloseHandle(m_output);
        throw std::runtime_error("a program can't be started");
    }
}

PipedProgram::~PipedProgram() {
    CloseHandle(m_input);
    WaitForSingleObject(m_process.hProcess, INFINITE);
    CloseHandle(m_process.hThread);
    CloseHandle(m_process.hProcess);
    CloseHandle(m_output);
}

void PipedProgram::Write(const std::string& text) {
    DWORD count = 0;
    if (!WriteFile(m_input, text.data(), static_cast<DWORD>(text.size()), &count, nullptr)) {
        throw std::runtime_error("a program has gone");
    }
}

std::string PipedProgram::ReadUpTo(const std::string& text) {
    std::string written;
    char bytes[4096];
    DWORD count = 0;
    while (written.find(text) == std::string::npos &&
           ReadFile(m_output, bytes, sizeof bytes, &count, nullptr) && count > 0) {
        written.append(bytes, count);
    }
    return written;
}
