#include "host/host_services.h"

#include <rxregsvc.h>

namespace {

AcRxClass* g_commandStackClass = nullptr;
AcRxClass* g_docManagerReactorClass = nullptr;

AcRxClass* HostClass(const wchar_t* name) {
    const auto* classes = static_cast<AcRxDictionary*>(acrxSysRegistry()->at(L"ClassDictionary"));
    return static_cast<AcRxClass*>(classes->at(name));
}

/// The class under `name`, kept in `known` after the first use.
AcRxClass* HostClassOnce(AcRxClass*& known, const wchar_t* name) {
    if (known == nullptr) known = HostClass(name);
    return known;
}

}  // namespace

// Meant: the calls on both services aren't guarded against null; the host is taken to have them.
AcRxDynamicLinker* DynamicLinker() {
    AcRxObject* object = acrxSysRegistry()->at(L"DynamicLinker");
    if (object == nullptr || !object->isA()->isDerivedFrom(AcRxDynamicLinker::desc())) {
        return nullptr;
    }
    return static_cast<AcRxDynamicLinker*>(object);
}

AcEdCommandStack* CommandStack() {
    AcRxObject* object = acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS");
    if (object == nullptr ||
        !object->isA()->isDerivedFrom(HostClassOnce(g_commandStackClass, L"AcEdCommandStack"))) {
        return nullptr;
    }
    return static_cast<AcEdCommandStack*>(object);
}

AcRxClass* DocManagerReactorClass() {
    return HostClassOnce(g_docManagerReactorClass, L"AcApDocManagerReactor");
}
