#include "host/host_session.h"

#include <windows.h>

#include <filesystem>
#include <stdexcept>

RunningHost::RunningHost() {
    // A host has these loaded anyway; no load of a module is to load them.
    for (const wchar_t* library :
         {L"gdiplus.dll", L"winhttp.dll", L"msimg32.dll", L"dbghelp.dll", L"comctl32.dll"}) {
        if (LoadLibraryW(library) == nullptr) throw std::runtime_error("a library is missing");
    }
    drafthost::SetTextOutput(&m_output);
    drafthost::HostOptions options;
    options.profile = m_profile.Name();
    if (!drafthost::StartHost(options)) throw std::runtime_error("the host doesn't start");
}

RunningHost::~RunningHost() {
    drafthost::ShutDownHost();
    drafthost::SetTextOutput(nullptr);
}

HostSession& HostSession::Instance() {
    static HostSession session;
    return session;
}

HostSession::HostSession() {
    const std::wstring stripped = ProgramFolder() + L"\\stripped\\";
    const auto replace = std::filesystem::copy_options::overwrite_existing;
    std::filesystem::copy_file(stripped + L"KVTCAD.arx", OurModule(), replace);
    std::filesystem::copy_file(stripped + L"bare.arx", BareModule(), replace);
    std::filesystem::copy_file(stripped + L"bare_silent.arx", SilentBareModule(), replace);
    SwitchLog(false);
}

void HostSession::SwitchLog(bool isOn) {
    const char* element = isOn ? "<EnableLog/>" : "<Scale>1</Scale>";
    WriteFileBytes(m_installation.ConfigPath(),
                   std::string("<?xml version=\"1.0\"?><Config>") + element + "</Config>");
}

std::wstring HostSession::Beside(const wchar_t* name) const {
    return m_installation.Folder() + L"\\module\\" + name;
}

LoadedModule::LoadedModule(const std::wstring& path) : m_path(path) {
    if (drafthost::LoadModule(path) != drafthost::LoadResult::Loaded) {
        throw std::runtime_error("the module was not loaded");
    }
}

LoadedModule::~LoadedModule() {
    drafthost::UnloadModule(m_path);  // Result ignored: the next load would tell.
}

bool OpenAndClose(const std::wstring& drawing) {
    return drafthost::OpenDrawing(drawing) == drafthost::OpenResult::Opened &&
           drafthost::CloseDrawing();
}
