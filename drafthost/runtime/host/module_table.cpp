#include "runtime/host/module_table.h"

#include "runtime/host/message_names.h"
#include "runtime/host/module_call.h"
#include "runtime/host/module_leftovers.h"
#include "runtime/host/module_library.h"
#include "runtime/host/offences.h"
#include "runtime/host/same_name.h"
#include "runtime/host/services.h"
#include "runtime/host/session.h"
#include "runtime/host/support_files.h"
#include "runtime/host/text_output.h"

#include <algorithm>

namespace drafthost {

namespace {

bool IsRunning(HMODULE handle) {
    for (const ModuleCall* call = ModuleCall::Innermost(); call != nullptr; call = call->Outer()) {
        if (call->Module() == handle) return true;
    }
    return false;
}

void SendDrawing(const Module& module, AcRx::AppMsgCode code, Document& document) {
    HostServices()->documents.SetCurrent(&document);
    Send(module, code);
}

/// Sends the message once for each drawing, with that drawing current.
void SendEachDrawing(const Module& module, AcRx::AppMsgCode code) {
    DocumentManager& manager = HostServices()->documents;
    Document* before = manager.Current();
    for (std::size_t index = 0; index < manager.Documents().size(); ++index) {
        SendDrawing(module, code, *manager.Documents()[index]);
    }
    manager.SetCurrent(before);
}

}  // namespace

ModuleTable& ModuleTable::Instance() {
    static ModuleTable table;
    return table;
}

AcRx::AppRetCode Send(const Module& module, AcRx::AppMsgCode code, const std::wstring& about) {
    const std::wstring what = MessageText(code) + about;
    const AcRx::AppRetCode answer = CallModule(module.handle, what.c_str(), [&] {
        return module.entryPoint(code, const_cast<Module*>(&module));
    });
    if (answer != AcRx::kRetOK && answer != AcRx::kRetError) {
        ReportOffence(module.name, L"answer " + std::to_wstring(answer) + L" to " + what +
                                       L", which is none of the return codes");
    }
    return answer;
}

LoadResult ModuleTable::Load(const std::wstring& file, std::wstring& problem) {
    if (m_isEnding) {
        problem = file + L" can't be loaded: the session is ending.";
        return LoadResult::NotLoaded;
    }
    const auto path = FindSupportFile(file, L".arx");
    if (!path) {
        problem = L"Module " + file + L" not found.";
        return LoadResult::FileMissing;
    }
    if (Find(*path) != nullptr) {
        PrintLine(*path + L" is loaded already.");
        return LoadResult::AlreadyLoaded;
    }
    const ModuleLibrary library = LoadModuleLibrary(*path);
    if (!library.problem.empty()) {
        problem = *path + L" can't be loaded: " + library.problem;
        return LoadResult::NotLoaded;
    }
    m_modules.push_back(std::make_unique<Module>());
    Module& module = *m_modules.back();
    module.path = *path;
    module.name = path->substr(path->rfind(L'\\') + 1);
    module.handle = library.handle;
    module.entryPoint = library.entryPoint;
    return Start(module, problem);
}

LoadResult ModuleTable::Start(Module& module, std::wstring& problem) {
    const std::wstring path = module.path;
    if (Send(module, AcRx::kInitAppMsg) == AcRx::kRetError) {
        StartNewLine();
        for (const std::wstring& leftover : Remove(module)) {
            PrintNote(
                std::wstring(L"drafthost: dropped ").append(leftover).append(L" of ").append(path));
        }
        problem =
            path + L" refused to start: its answer to kInitAppMsg was kRetError. It was unloaded.";
        return LoadResult::Refused;
    }
    if (!module.isMultiDocument && HostServices()->documents.Documents().size() > 1) {
        problem =
            path + L" can't be loaded while several drawings are open: it works with one only.";
        Stop(module);
        return LoadResult::NotLoaded;
    }
    PrintNote(L"drafthost: loaded " + path);
    SendEachDrawing(module, AcRx::kLoadDwgMsg);
    EvaluateQueues();
    return LoadResult::Loaded;
}

UnloadResult ModuleTable::Unload(const std::wstring& name) {
    Module* module = Find(name);
    if (module == nullptr) {
        PrintLine(L"No module " + name + L" is loaded.");
        return UnloadResult::NotLoaded;
    }
    if (!module->isUnlocked) {
        PrintLine(module->name + L" can't be unloaded: it hasn't declared itself unloadable.");
        return UnloadResult::Locked;
    }
    if (IsRunning(module->handle)) {
        PrintLine(module->name + L" can't be unloaded: it is running.");
        return UnloadResult::Busy;
    }
    const std::wstring path = module->path;
    SendEachDrawing(*module, AcRx::kUnloadDwgMsg);
    Stop(*module);
    PrintLine(path + L" unloaded.");
    return UnloadResult::Unloaded;
}

void ModuleTable::Stop(Module& module) {
    const std::wstring name = module.name;
    Send(module, AcRx::kUnloadAppMsg);
    for (const std::wstring& leftover : Remove(module)) {
        ReportOffence(name, leftover + L" left behind when it was unloaded");
    }
}

std::vector<std::wstring> ModuleTable::Remove(Module& module) {
    const HMODULE handle = module.handle;
    FreeModuleLibrary(handle);
    m_modules.erase(std::find_if(m_modules.begin(), m_modules.end(),
                                 [&](const auto& entry) { return entry.get() == &module; }));
    return RemoveLeftovers(handle);
}

Module* ModuleTable::FindPacket(const void* packet) {
    for (const auto& module : m_modules) {
        if (module.get() == packet) return module.get();
    }
    return nullptr;
}

Module* ModuleTable::FindImage(HMODULE handle) {
    for (const auto& module : m_modules) {
        if (module->handle == handle) return module.get();
    }
    return nullptr;
}

void ModuleTable::SendToAll(AcRx::AppMsgCode code) {
    // A module may load or unload others meanwhile. One that comes gets its own messages; one that
    // has gone mustn't get any.
    std::vector<std::pair<const Module*, HMODULE>> receivers;
    for (const auto& module : m_modules)
        receivers.emplace_back(module.get(), module->handle);
    for (const auto& [packet, handle] : receivers) {
        const Module* module = FindPacket(packet);
        if (module != nullptr && module->handle == handle) Send(*module, code);
    }
}

const Module* ModuleTable::FindSingleDocumentModule() const {
    for (const auto& module : m_modules) {
        if (!module->isMultiDocument) return module.get();
    }
    return nullptr;
}

void ModuleTable::UnloadAll() {
    m_isEnding = true;
    const auto isUnlocked = [](const auto& module) { return module->isUnlocked; };
    // Looked for anew each time: a module may unload others at its end.
    for (;;) {
        const auto newest = std::find_if(m_modules.rbegin(), m_modules.rend(), isUnlocked);
        if (newest == m_modules.rend()) return;
        Stop(**newest);
    }
}

Module* ModuleTable::Find(const std::wstring& name) {
    for (const auto& module : m_modules) {
        if (IsSameName(module->path, name) || IsSameName(module->name, name) ||
            IsSameName(module->name, name + L".arx")) {
            return module.get();
        }
    }
    return nullptr;
}

}  // namespace drafthost
