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

AcRx::AppRetCode Send(const Module& module, AcRx::AppMsgCode code) {
    const AcRx::AppRetCode answer = CallModule(module.handle, MessageText(code), [&] {
        return module.entryPoint(code, const_cast<Module*>(&module));
    });
    if (answer != AcRx::kRetOK && answer != AcRx::kRetError) {
        ReportOffence(module.name, L"answer " + std::to_wstring(answer) + L" to " +
                                       MessageText(code) + L", which is none of the return codes");
    }
    return answer;
}

LoadResult ModuleTable::Load(const std::wstring& file) {
    const auto path = FindSupportFile(file, L".arx");
    if (!path) {
        PrintLine(L"Module " + file + L" not found.");
        return LoadResult::FileMissing;
    }
    if (Find(*path) != nullptr) {
        PrintLine(*path + L" is loaded already.");
        return LoadResult::AlreadyLoaded;
    }
    const ModuleLibrary library = LoadModuleLibrary(*path);
    if (!library.problem.empty()) {
        PrintLine(*path + L" can't be loaded: " + library.problem);
        return LoadResult::NotLoaded;
    }
    m_modules.push_back(std::make_unique<Module>());
    Module& module = *m_modules.back();
    module.path = *path;
    module.name = path->substr(path->rfind(L'\\') + 1);
    module.handle = library.handle;
    module.entryPoint = library.entryPoint;
    return Start(module);
}

LoadResult ModuleTable::Start(Module& module) {
    const std::wstring path = module.path;
    if (Send(module, AcRx::kInitAppMsg) == AcRx::kRetError) {
        StartNewLine();
        for (const std::wstring& leftover : Remove(module)) {
            PrintNote(
                std::wstring(L"drafthost: dropped ").append(leftover).append(L" of ").append(path));
        }
        PrintLine(path +
                  L" refused to start: its answer to kInitAppMsg was kRetError. It was unloaded.");
        return LoadResult::Refused;
    }
    if (!module.isMultiDocument && HostServices()->documents.Documents().size() > 1) {
        PrintLine(path +
                  L" can't be loaded while several drawings are open: it works with one only.");
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
    for (std::size_t index = 0; index < m_modules.size(); ++index)
        Send(*m_modules[index], code);
}

const Module* ModuleTable::FindSingleDocumentModule() const {
    for (const auto& module : m_modules) {
        if (!module->isMultiDocument) return module.get();
    }
    return nullptr;
}

void ModuleTable::UnloadAll() {
    for (std::size_t index = m_modules.size(); index > 0; --index) {
        Module& module = *m_modules[index - 1];
        if (module.isUnlocked) Stop(module);
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
