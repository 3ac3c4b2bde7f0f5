#include "kvtfetch/command_line.h"

#include "kvtfetch/ending.h"
#include "kvtfetch/utf8.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <sstream>

namespace {

std::wstring JoinLines(const std::vector<std::string>& lines) {
    std::wstring joined;
    for (const std::string& line : lines) {
        if (!joined.empty()) joined += L"\r\n";
        joined += Utf8ToWide(line);
    }
    return joined;
}

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::wstring>& arguments) {
    CLI::App app("Makes one HTTP or HTTPS request and prints its status and body.", "kvtfetch");
    app.footer(ExitCodeList());
    std::string url;
    std::string body;
    std::vector<std::string> headers;
    uint32_t timeout = 0;
    app.add_option("URL", url, "TLS is used with port 443, which https:// stands for")->required();
    const auto* post = app.add_option("--post", body, "Send this body by POST, in UTF-8");
    const auto* header = app.add_option("--header", headers, "Add a header line; may be repeated")
                             ->allow_extra_args(false);
    const auto* limit = app.add_option("--timeout", timeout,
                                       "Milliseconds for each of connecting, sending and "
                                       "receiving; 0 for no limit, 5000 without the option");

    CommandLine commandLine;
    // The parser takes them from the back.
    std::vector<std::string> reversed(arguments.size());
    std::transform(arguments.begin(), arguments.end(), reversed.rbegin(), WideToUtf8);
    try {
        app.parse(std::move(reversed));
    } catch (const CLI::ParseError& error) {
        std::ostringstream output;
        std::ostringstream errors;
        commandLine.exitCode = app.exit(error, output, errors) == 0 ? 0 : exitUsage;
        commandLine.output = output.str();
        commandLine.errors = errors.str();
        return commandLine;
    }

    commandLine.options.url = Utf8ToWide(url);
    if (post->count() > 0) commandLine.options.body = body;
    if (header->count() > 0) commandLine.options.headers = JoinLines(headers);
    if (limit->count() > 0) commandLine.options.timeout = timeout;
    return commandLine;
}
