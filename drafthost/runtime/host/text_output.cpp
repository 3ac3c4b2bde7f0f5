#include "runtime/host/text_output.h"

#include <windows.h>

#include <mutex>

namespace drafthost {

namespace {

/// UTF-8 to the process's standard output, for programs that set no output of their own.
class StandardOutput : public TextOutput {
  public:
    void Write(const std::wstring& text) override {
        const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                             nullptr, 0, nullptr, nullptr);
        std::string bytes(static_cast<std::size_t>(size), '\0');
        WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                            size, nullptr, nullptr);
        DWORD written = 0;
        WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), bytes.data(), static_cast<DWORD>(bytes.size()),
                  &written, nullptr);  // Result ignored: there is nowhere to complain.
    }
};

std::recursive_mutex g_mutex;
TextOutput* g_output = nullptr;
bool g_atLineStart = true;
bool g_verbose = false;

}  // namespace

void SetTextOutput(TextOutput* output) {
    const std::lock_guard lock(g_mutex);
    g_output = output;
}

void MarkLineStart() {
    const std::lock_guard lock(g_mutex);
    g_atLineStart = true;
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

void PrintNote(const std::wstring& line) {
    if (g_verbose) PrintLine(line);
}

void SetVerbose(bool verbose) {
    g_verbose = verbose;
}

bool IsVerbose() {
    return g_verbose;
}

}  // namespace drafthost
