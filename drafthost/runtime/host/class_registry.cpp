#include "runtime/host/class_registry.h"

#include "runtime/host/calling_module.h"
#include "runtime/host/dictionary.h"
#include "runtime/host/offences.h"

#include "accmd.h"
#include "acdocman.h"
#include "rxdlinkr.h"

#include <algorithm>

/// What a descriptor holds, away from the published class.
struct AcRxClass::Data {
    std::wstring name;
    std::wstring parentName;
    AcRxClass* parent = nullptr;
    HMODULE owner = nullptr;  ///< whose call registered it; null: the host's own, or not registered
};

/// Lets the functions of this file reach the data.
struct AcRxClassAccess {
    static AcRxClass::Data& Of(AcRxClass& descriptor) { return *descriptor.m_data; }
};

namespace {

drafthost::Dictionary* g_classes = nullptr;
AcRxClass* g_objectClass = nullptr;
AcRxClass* g_classClass = nullptr;

AcRxClass* FindClass(const ACHAR* name) {
    return g_classes == nullptr ? nullptr : static_cast<AcRxClass*>(g_classes->at(name));
}

std::vector<AcRxClass*> AllClasses() {
    std::vector<AcRxClass*> all;
    for (AcRxObject* object : g_classes->Objects())
        all.push_back(static_cast<AcRxClass*>(object));
    return all;
}

AcRxClass* Register(const ACHAR* className, const ACHAR* parentClassName, HMODULE owner) {
    if (className == nullptr || *className == 0 || g_classes->has(className)) return nullptr;
    auto* descriptor = new AcRxClass(className, parentClassName);
    AcRxClassAccess::Of(*descriptor).owner = owner;
    g_classes->Enter(className, descriptor, owner);
    return descriptor;
}

void Delete(AcRxClass* descriptor) {
    g_classes->TakeOut(descriptor->name());
    for (AcRxClass* other : AllClasses()) {
        AcRxClass*& parent = AcRxClassAccess::Of(*other).parent;
        if (parent == descriptor) parent = nullptr;
    }
    delete descriptor;
}

}  // namespace

AcRxClass::AcRxClass(const ACHAR* name, const ACHAR* parentName)
    : m_data(new Data{name != nullptr ? name : L"", parentName != nullptr ? parentName : L"",
                      FindClass(parentName), nullptr}) {}

AcRxClass::~AcRxClass() {
    delete m_data;
}

AcRxClass* AcRxClass::isA() const {
    return desc();
}

AcRxClass* AcRxClass::desc() {
    return g_classClass;
}

AcRxClass* AcRxObject::desc() {
    return g_objectClass;
}

const ACHAR* AcRxClass::name() const {
    return m_data->name.c_str();
}

AcRxClass* AcRxClass::myParent() const {
    return m_data->parent;
}

bool AcRxClass::isDerivedFrom(const AcRxClass* other) const {
    if (other == nullptr) return false;
    for (const AcRxClass* current = this; current != nullptr; current = current->myParent()) {
        if (current == other) return true;
    }
    return false;
}

AcRxClass* newAcRxClass(const ACHAR* className, const ACHAR* parentClassName) {
    const void* caller = __builtin_return_address(0);
    if (!drafthost::IsHostThread(L"newAcRxClass") || g_classes == nullptr) return nullptr;
    return Register(className, parentClassName, drafthost::CallingModule(caller));
}

void deleteAcRxClass(AcRxClass* descriptor) {
    const void* caller = __builtin_return_address(0);
    if (!drafthost::IsHostThread(L"deleteAcRxClass")) return;
    if (descriptor == nullptr || g_classes == nullptr) return;
    const std::vector<AcRxClass*> all = AllClasses();
    if (std::find(all.begin(), all.end(), descriptor) == all.end()) {
        drafthost::ReportOffence(drafthost::CallingModule(caller),
                                 L"deleteAcRxClass of a class that isn't registered");
        return;
    }
    if (AcRxClassAccess::Of(*descriptor).owner == nullptr) {
        drafthost::ReportOffence(
            drafthost::CallingModule(caller),
            std::wstring(L"deleteAcRxClass of the host's own class ") + descriptor->name());
        return;
    }
    Delete(descriptor);
}

void acrxBuildClassHierarchy() {
    if (!drafthost::IsHostThread(L"acrxBuildClassHierarchy")) return;
    if (g_classes == nullptr) return;
    for (AcRxClass* descriptor : AllClasses()) {
        auto& data = AcRxClassAccess::Of(*descriptor);
        data.parent = data.parentName.empty() ? nullptr : FindClass(data.parentName.c_str());
    }
}

namespace drafthost {

void RegisterHostClasses(Dictionary& classes) {
    g_classes = &classes;
    g_objectClass = Register(L"AcRxObject", nullptr, nullptr);
    g_classClass = Register(L"AcRxClass", L"AcRxObject", nullptr);
    AcRxDictionary::rxInit();
    AcRxDynamicLinker::rxInit();
    AcEdCommand::rxInit();
    AcEdCommandStack::rxInit();
    AcApDocument::rxInit();
    AcApDocManager::rxInit();
    AcApDocManagerReactor::rxInit();
}

std::vector<std::wstring> DeleteClassesOf(HMODULE module) {
    std::vector<std::wstring> names;
    for (AcRxClass* descriptor : AllClasses()) {
        if (AcRxClassAccess::Of(*descriptor).owner != module) continue;
        names.push_back(descriptor->name());
        Delete(descriptor);
    }
    return names;
}

}  // namespace drafthost
