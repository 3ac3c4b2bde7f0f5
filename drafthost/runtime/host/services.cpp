#include "runtime/host/services.h"

#include "runtime/host/class_registry.h"

#include "rxregsvc.h"

namespace drafthost {

namespace {

bool g_retired = false;

Services& TheServices() {
    static auto* services = new Services;  // Not deleted: see RetireServices.
    return *services;
}

/// Makes the services while the DLL is being loaded.
const Services& g_madeAtLoad = TheServices();

}  // namespace

Services::Services() {
    RegisterHostClasses(classes);
    registry.Enter(L"ClassDictionary", &classes, nullptr);
    registry.Enter(L"DynamicLinker", &linker, nullptr);
    registry.Enter(L"ACAD_REGISTERED_COMMANDS", &commands, nullptr);
}

Services* HostServices() {
    return g_retired ? nullptr : &TheServices();
}

void RetireServices() {
    g_retired = true;
}

}  // namespace drafthost

AcRxDictionary* acrxSysRegistry() {
    drafthost::Services* services = drafthost::HostServices();
    return services == nullptr ? nullptr : &services->registry;
}

AcApDocManager* acDocManagerPtr() {
    drafthost::Services* services = drafthost::HostServices();
    return services == nullptr ? nullptr : &services->documents;
}
