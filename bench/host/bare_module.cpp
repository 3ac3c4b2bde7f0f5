// The calls that the module can't do without, made by hand in one place: the measure for its start
// and its drawings. It does nothing that isn't needed for that and remembers nothing.

#include <glog/logging.h>
#include <tinyxml2.h>

#include <aced.h>
#include <rxdefs.h>

#include <windows.h>

#include <cstdio>
#include <string>

namespace {

HINSTANCE g_instance = nullptr;
std::wstring g_location;
std::wstring g_version;

std::string Narrow(const std::wstring& text) {
    char narrow[MAX_PATH] = {};
    WideCharToMultiByte(CP_ACP, 0, text.c_str(), -1, narrow, MAX_PATH, nullptr, nullptr);
    return narrow;
}

/// Opens the key for each value and asks first with little room, as the module has to.
std::wstring ReadValue(const wchar_t* name) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Brennvik\\KVT CAD辅助设计软件", 0,
                      KEY_READ | KEY_WOW64_32KEY, &key) != ERROR_SUCCESS) {
        return {};
    }
    wchar_t text[1024] = {};
    DWORD size = 32;
    DWORD type = REG_NONE;
    if (RegQueryValueExW(key, name, nullptr, &type, reinterpret_cast<BYTE*>(text), &size) ==
        ERROR_MORE_DATA) {
        size = sizeof text - sizeof *text;
        RegQueryValueExW(key, name, nullptr, &type, reinterpret_cast<BYTE*>(text), &size);
    }
    RegCloseKey(key);
    return text;
}

bool IsThere(const std::wstring& path) {
    WIN32_FIND_DATAW data = {};
    HANDLE find = FindFirstFileW(path.c_str(), &data);
    FindClose(find);
    return find != INVALID_HANDLE_VALUE;
}

bool WantsLog() {
    tinyxml2::XMLDocument document(true, tinyxml2::PRESERVE_WHITESPACE);
    FILE* file = nullptr;
    if (fopen_s(&file, Narrow(g_location + L"\\config.xml").c_str(), "rb") != 0) return false;
    document.LoadFile(file);
    std::fclose(file);
    return document.RootElement()->FirstChildElement("EnableLog") != nullptr;
}

void WriteNoPrefix(std::ostream&, const google::LogMessageInfo&, void*) {}

void StartLog() {
    char path[MAX_PATH] = {};
    GetModuleFileNameA(g_instance, path, MAX_PATH);
    std::string folder = path;
    folder = folder.substr(0, folder.rfind('\\')) + "\\Logs";
    wchar_t wideFolder[MAX_PATH] = {};
    MultiByteToWideChar(CP_ACP, 0, folder.c_str(), -1, wideFolder, MAX_PATH);
    if (!IsThere(wideFolder)) CreateDirectoryW(wideFolder, nullptr);
    FLAGS_log_dir = folder;
    FLAGS_timestamp_in_logfile_name = false;
    FLAGS_v = 5;
    FLAGS_alsologtostderr = true;
    FLAGS_logbufsecs = 0;
    for (int severity = 0; severity < google::NUM_SEVERITIES; ++severity) {
        google::SetLogDestination(
            severity, (folder + "/KVTCAD." + google::GetLogSeverityName(severity)).c_str());
    }
    google::SetLogFilenameExtension(".log");
    google::InitGoogleLogging("KVTCAD", &WriteNoPrefix);
}

void Command() {}

void Start(void* packet) {
    auto* registry = acrxSysRegistry();
    auto* linker = static_cast<AcRxDynamicLinker*>(registry->at(L"DynamicLinker"));
    linker->unlockApplication(packet);
    linker->registerAppMDIAware(packet);
    auto* commands = static_cast<AcEdCommandStack*>(registry->at(L"ACAD_REGISTERED_COMMANDS"));
    commands->addCommand(L"BARE", L"Bare", L"_Bare", ACRX_CMD_TRANSPARENT, &Command, nullptr, -1,
                         g_instance, nullptr);

    g_location = ReadValue(L"Location");
    g_version = ReadValue(L"Version");
    if (!IsThere(g_location)) return;
    if (WantsLog()) StartLog();
#if BARE_MODULE_LOGS
    LOG(INFO) << "location = " << Narrow(g_location);
    LOG(INFO) << "version = " << Narrow(g_version);
    LOG(INFO) << "location is there";
    LOG(INFO) << "settings are read";
#endif
    wchar_t searchPath[2048] = {};
    acedGetEnv(L"ACAD", searchPath);
    std::wstring longer = searchPath;
    for (const std::wstring& entry : {g_location + L"\\R17x\\x64;", g_location + L";"}) {
        if (longer.find(entry) == std::wstring::npos) longer.insert(0, entry);
    }
    acedSetEnv(L"ACAD", longer.c_str());
    acutPrintf((L"\nbare module " + g_version + L"\n").c_str());
}

void Stop() {
    auto* commands =
        static_cast<AcEdCommandStack*>(acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS"));
    commands->removeCmd(L"BARE", L"Bare");
}

void OpenDrawing() {
    std::wstring path = g_location + L"\\Support\\KVTCAD.vlx";
#if BARE_MODULE_LOGS
    LOG(INFO) << "loads " << Narrow(path);
#endif
    for (wchar_t& character : path) {
        if (character == L'\\') character = L'/';
    }
    if (IsThere(path)) ads_queueexpr((L"(LOAD \"" + path + L"\")").c_str());
    acedDefun(L"GetKVTPath", 0);
}

}  // namespace

extern "C" AcRx::AppRetCode acrxEntryPoint(unsigned message, void* packet) {
    switch (message) {
        case AcRx::kInitAppMsg:
            Start(packet);
            break;
        case AcRx::kUnloadAppMsg:
            Stop();
            break;
        case AcRx::kLoadDwgMsg:
            OpenDrawing();
            break;
        case AcRx::kUnloadDwgMsg:
            acedUndef(L"GetKVTPath", 0);
            break;
        case AcRx::kInvkSubrMsg:
            acedRetStr(g_location.c_str());
            break;
        default:
            break;
    }
    return AcRx::kRetOK;
}

BOOL WINAPI DllMain(HINSTANCE instance, DWORD, void*) {
    g_instance = instance;
    return TRUE;
}
