// kvtfetch: one request by the module's HTTP client, to see whether a proxy, a firewall or a
// certificate lets it through.

#include "http/text_conversion.h"
#include "http/win_http_client.h"

#include "kvtfetch/command_line.h"
#include "kvtfetch/ending.h"
#include "kvtfetch/utf8.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <cstdio>

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

int Fetch(const FetchOptions& options) {
    CWinHttp client;
    if (options.timeout) client.SetTimeouts(*options.timeout, *options.timeout, *options.timeout);

    std::string body;
    HttpInterfaceError error = HttpErrorNone;
    try {
        body = client.Request(options.url, options.body ? 1 : 0,
                              options.body ? options.body->c_str() : nullptr,
                              options.headers ? options.headers->c_str() : nullptr);
        error = client.GetErrorCode();
    } catch (HttpInterfaceError thrown) {
        error = thrown;
    }

    if (error == HttpErrorNone || error == HttpErrorNotFound) {
        Print(stdout, "status " + std::to_string(client.GetStatusCode()) + "\n");
        Print(stdout, WideToUtf8(AnsiToWide(body)));
    }
    if (error != HttpErrorNone) {
        Print(stderr, "kvtfetch: " + MeaningOfExitCode(error) + "\n");
    }
    return error;
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
    return Fetch(commandLine.options);
}
