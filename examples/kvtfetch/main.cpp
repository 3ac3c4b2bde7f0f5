// kvtfetch: one request by the module's HTTP client, to see whether a proxy, a firewall or a
// certificate lets it through.

#include "kvtfetch/command_line.h"
#include "kvtfetch/fetch.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <cstdio>
#include <string>

namespace {

/// Lets a console show UTF-8 for as long as it lives.
class Utf8Console {
  public:
    Utf8Console() { SetConsoleOutputCP(CP_UTF8); }
    Utf8Console(const Utf8Console&) = delete;
    Utf8Console& operator=(const Utf8Console&) = delete;
    ~Utf8Console() { SetConsoleOutputCP(m_before); }

  private:
    UINT m_before = GetConsoleOutputCP();
};

void Print(FILE* stream, const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stream);
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    const Utf8Console console;
    _setmode(_fileno(stdout), _O_BINARY);  // The body's line ends stay as they are.

    const CommandLine commandLine = ParseCommandLine({argv + 1, argv + argc});
    if (commandLine.exitCode) {
        Print(stdout, commandLine.output);
        Print(stderr, commandLine.errors);
        return *commandLine.exitCode;
    }
    const FetchResult result = Fetch(commandLine.options);
    Print(stdout, result.output);
    Print(stderr, result.errors);
    return result.exitCode;
}
