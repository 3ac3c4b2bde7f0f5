#include "runtime/host/text_output.h"

#include "runtime/lisp/text_encoding.h"

#include <windows.h>

#include <mutex>

namespace drafthost {

namespace {

/// Text as it is to a console window, else UTF-8.
void WriteTo(DWORD standardHandle, const std::wstring& text) {
    const HANDLE handle = GetStdHandle(standardHandle);
    DWORD mode = 0;
    DWORD written = 0;
    // Results ignored: there is nowhere to complain.
    if (GetConsoleMode(handle, &mode)) {
        WriteConsoleW(handle, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    } else {
        const std::string bytes = Utf8OfText(text);
        WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    }
}

/// The process's standard output, for programs that set no output of their own.
class StandardOutput : public TextOutput {
  public:
    void Write(const std::wstring& text) override { WriteTo(STD_OUTPUT_HANDLE, text); }
};

std::recursive_mutex g_mutex;
TextOutput* g_output = nullptr;
bool g_atLineStart = true;
bool g_verbose = false;

}  // namespace

void SetTextOutput(TextOutput* output) {
    const std::lock_guard lock(g_mutex);
    g_output = output;
    g_atLineStart = true;
}

void MarkLineStart() {
    const std::lock_guard lock(g_mutex);
    g_atLineStart = true;
}

std::wstring DecodeText(const std::string& bytes) {
    return TextOfBytes(bytes);
}

std::string EncodeText(const std::wstring& text) {
    return Utf8OfText(text);
}

void Print(const std::wstring& text) {
    if (text.empty()) return;
    const std::lock_guard lock(g_mutex);
    static StandardOutput standardOutput;
    (g_output != nullptr ? *g_output : standardOutput).Write(text);
    g_atLineStart = text.back() == L'\n';
}

void StartNewLine() {
    const std::lock_guard lock(g_mutex);
    if (!g_atLineStart) Print(L"\n");
}

void PrintLine(const std::wstring& line) {
    const std::lock_guard lock(g_mutex);
    StartNewLine();
    Print(line + L"\n");
}

void PrintError(const std::wstring& line) {
    WriteTo(STD_ERROR_HANDLE, L"drafthost: " + line + L"\n");
}

void PrintNote(const std::wstring& line) {
    if (g_verbose) PrintLine(line);
}

void TellProblem(const std::wstring& line, std::wstring* wanted) {
    if (wanted != nullptr) {
        *wanted = line;
    } else if (!line.empty()) {
        PrintLine(line);
    }
}

void SetVerbose(bool verbose) {
    g_verbose = verbose;
}

}  // namespace drafthost
