#include "support/child_process.h"

#include <windows.h>

#include <stdexcept>
#include <thread>

namespace {

class Pipe {
  public:
    explicit Pipe(bool childReads) {
        SECURITY_ATTRIBUTES inheritable = {sizeof inheritable, nullptr, TRUE};
        if (!CreatePipe(&m_read, &m_write, &inheritable, 0)) throw std::runtime_error("CreatePipe");
        SetHandleInformation(childReads ? m_write : m_read, HANDLE_FLAG_INHERIT, 0);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    ~Pipe() {
        CloseRead();
        CloseWrite();
    }

    HANDLE Read() const { return m_read; }
    HANDLE Write() const { return m_write; }
    void CloseRead() { Close(m_read); }
    void CloseWrite() { Close(m_write); }

    std::string ReadAll() const {
        std::string bytes;
        char buffer[4096];
        DWORD count = 0;
        while (ReadFile(m_read, buffer, sizeof buffer, &count, nullptr) && count > 0) {
            bytes.append(buffer, count);
        }
        return bytes;
    }

  private:
    static void Close(HANDLE& handle) {
        if (handle != nullptr) CloseHandle(handle);
        handle = nullptr;
    }

    HANDLE m_read = nullptr;
    HANDLE m_write = nullptr;
};

/// The error of the start, 0 if there is none. The platform gives an internal error, seen once
/// under load, when it loses a process on its way to its first instruction: nothing of it has run,
/// so it is started again, twice at most.
DWORD Start(const std::wstring& commandLine, const std::wstring& directory, STARTUPINFOW& startup,
            PROCESS_INFORMATION& process) {
    DWORD error = ERROR_INTERNAL_ERROR;
    for (int attempt = 0; attempt < 3 && error == ERROR_INTERNAL_ERROR; ++attempt) {
        std::wstring line = commandLine;
        const BOOL started =
            CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                           directory.empty() ? nullptr : directory.c_str(), &startup, &process);
        error = started ? 0 : GetLastError();
    }
    return error;
}

}  // namespace

ChildResult RunChild(const std::wstring& commandLine, const ChildOptions& options) {
    Pipe input(true);
    Pipe output(false);
    Pipe errors(false);
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = input.Read();
    startup.hStdOutput = output.Write();
    startup.hStdError = errors.Write();
    PROCESS_INFORMATION process = {};
    const DWORD error = Start(commandLine, options.directory, startup, process);
    if (error != 0) {
        throw std::runtime_error("the child process can't be started: error " +
                                 std::to_string(error));
    }
    input.CloseRead();
    output.CloseWrite();
    errors.CloseWrite();

    ChildResult result;
    std::thread readOutput([&] { result.output = output.ReadAll(); });
    std::thread readErrors([&] { result.errors = errors.ReadAll(); });
    std::thread writeInput([&] {
        DWORD written = 0;
        WriteFile(input.Write(), options.input.data(), static_cast<DWORD>(options.input.size()),
                  &written, nullptr);  // Result ignored: a child need not read its input.
        input.CloseWrite();
    });

    if (WaitForSingleObject(process.hProcess, options.milliseconds) != WAIT_OBJECT_0) {
        result.timedOut = true;
        TerminateProcess(process.hProcess, 0xDEAD);
        WaitForSingleObject(process.hProcess, INFINITE);
    }
    writeInput.join();
    readOutput.join();
    readErrors.join();
    GetExitCodeProcess(process.hProcess, &result.exitCode);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return result;
}

std::wstring OwnCommandLine(const std::wstring& arguments) {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return L"\"" + std::wstring(path) + L"\" " + arguments;
}

std::wstring ProgramFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring file = path;
    return file.substr(0, file.find_last_of(L"\\/"));
}
