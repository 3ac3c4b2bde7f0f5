#include "runtime/host/dynamic_linker.h"

#include "runtime/host/calling_module.h"
#include "runtime/host/module_table.h"
#include "runtime/host/offences.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcRxDynamicLinker, AcRxObject)

namespace drafthost {

namespace {

/// The module of the packet, for a service that a module uses for itself; null after naming the
/// offence when it is no packet.
Module* OwnerOf(const wchar_t* service, const void* packet, const void* caller) {
    if (!IsHostThread(service)) return nullptr;
    Module* module = ModuleTable::Instance().FindPacket(packet);
    if (module == nullptr) {
        ReportOffence(CallingModule(caller),
                      std::wstring(service) + L" with what is no packet of a module");
    }
    return module;
}

}  // namespace

bool DynamicLinker::loadModule(const ACHAR* fileName, bool /*printit*/, bool /*asCmd*/) {
    if (!IsHostThread(L"AcRxDynamicLinker::loadModule")) return false;
    if (fileName == nullptr) return false;
    const LoadResult result = LoadModule(fileName);
    return result == LoadResult::Loaded || result == LoadResult::AlreadyLoaded;
}

bool DynamicLinker::unloadModule(const ACHAR* fileName, bool /*asCmd*/) {
    if (!IsHostThread(L"AcRxDynamicLinker::unloadModule")) {
        return false;
    }
    return fileName != nullptr &&
           ModuleTable::Instance().Unload(fileName) == UnloadResult::Unloaded;
}

bool DynamicLinker::unlockApplication(void* appId) const {
    const void* caller = __builtin_return_address(0);
    Module* module = OwnerOf(L"AcRxDynamicLinker::unlockApplication", appId, caller);
    if (module != nullptr) module->isUnlocked = true;
    return module != nullptr;
}

bool DynamicLinker::lockApplication(void* appId) const {
    const void* caller = __builtin_return_address(0);
    Module* module = OwnerOf(L"AcRxDynamicLinker::lockApplication", appId, caller);
    if (module != nullptr) module->isUnlocked = false;
    return module != nullptr;
}

bool DynamicLinker::registerAppMDIAware(void* appId) const {
    const void* caller = __builtin_return_address(0);
    Module* module = OwnerOf(L"AcRxDynamicLinker::registerAppMDIAware", appId, caller);
    if (module != nullptr) module->isMultiDocument = true;
    return module != nullptr;
}

}  // namespace drafthost
