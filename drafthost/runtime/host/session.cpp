#include "runtime/host/session.h"

#include "runtime/host/crash.h"
#include "runtime/host/module_call.h"
#include "runtime/host/module_table.h"
#include "runtime/host/profile.h"
#include "runtime/host/services.h"
#include "runtime/host/text_output.h"

namespace drafthost {

bool StartHost(const HostOptions& options) {
    if (!SelectProfile(options.profile)) return false;
    SetVerbose(options.isVerbose);
    WatchForCrashes();
    return true;
}

void ShutDownHost() {
    ModuleTable& modules = ModuleTable::Instance();
    modules.SendToAll(AcRx::kPreQuitMsg);
    while (CloseDrawing()) {
    }
    modules.SendToAll(AcRx::kQuitMsg);
    modules.UnloadAll();
    RetireServices();
    ExpectProcessEnd();
}

LoadResult LoadModule(const std::wstring& file, std::wstring* problem) {
    std::wstring line;
    const LoadResult result = ModuleTable::Instance().Load(file, line);
    TellProblem(line, problem);
    return result;
}

UnloadResult UnloadModule(const std::wstring& name) {
    return ModuleTable::Instance().Unload(name);
}

std::vector<std::wstring> LoadedModules() {
    std::vector<std::wstring> paths;
    for (const auto& module : ModuleTable::Instance().Modules())
        paths.push_back(module->path);
    return paths;
}

}  // namespace drafthost
