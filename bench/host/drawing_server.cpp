#include "host/drawing_server.h"

#include "host/host_session.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <stdexcept>

namespace {

std::wstring OwnProgram() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return path;
}

constexpr double failed = -1;

/// For one drawing; `failed` when one wasn't opened and closed.
double Nanoseconds(const std::wstring& drawing, int count) {
    bool done = true;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < count; ++i)
        done = OpenAndClose(drawing) && done;
    const std::chrono::duration<double, std::nano> passed =
        std::chrono::steady_clock::now() - start;
    return done ? passed.count() / count : failed;
}

}  // namespace

DrawingServer::DrawingServer()
    : m_program(OwnProgram(), L"--drawing-server \"" + HostSession::Instance().OurModule() +
                                  L"\" \"" + HostSession::Instance().FirstDrawing() + L"\"") {
    Reload();
}

void DrawingServer::Reload() {
    Ask("reload");
}

double DrawingServer::OpenDrawings(int count) {
    return Ask(std::to_string(count));
}

double DrawingServer::Ask(const std::string& order) {
    m_program.Write(order + "\n");
    const std::string answer = m_program.ReadUpTo("\n");
    const double value = answer.empty() ? failed : std::atof(answer.c_str());
    if (value == failed) throw std::runtime_error("the other host can't " + order);
    return value;
}

int ServeDrawings(const std::wstring& module, const std::wstring& drawing) {
    const RunningHost host;
    std::optional<LoadedModule> loaded;
    char order[32];
    while (std::fgets(order, sizeof order, stdin) != nullptr) {
        double answer = 0;
        if (std::strcmp(order, "reload\n") == 0) {
            loaded.reset();
            loaded.emplace(module);
        } else {
            answer = Nanoseconds(drawing, std::atoi(order));
        }
        std::printf("%f\n", answer);
        std::fflush(stdout);
    }
    return 0;
}
