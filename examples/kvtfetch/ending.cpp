#include "kvtfetch/ending.h"

namespace {

struct Ending {
    int exitCode;
    const char* meaning;
};

constexpr Ending endings[] = {
    {HttpErrorNone, "a response came, with any status but 404"},
    {HttpErrorRequest, "no session, no request or no response headers"},
    {HttpErrorConnect, "no connection handle"},
    {HttpErrorSend,
     "the request could not be sent: look-up of the name, connection, TLS or headers"},
    {HttpErrorNotFound, "the server answered with status 404"},
    {exitUsage, "the command line is wrong"},
};

}  // namespace

std::string MeaningOfExitCode(int exitCode) {
    for (const Ending& ending : endings) {
        if (ending.exitCode == exitCode) return ending.meaning;
    }
    return {};
}

std::string ExitCodeList() {
    std::string list = "Exit codes:\n";
    for (const Ending& ending : endings) {
        const std::string code = std::to_string(ending.exitCode);
        list += std::string(4 - code.size(), ' ') + code + "  " + ending.meaning + "\n";
    }
    return list;
}
