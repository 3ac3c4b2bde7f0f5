#include "support/import_hook.h"

#include <stdexcept>
#include <string>

namespace {

/// The import table slot of the function, or null.
void** FindImportSlot(HMODULE module, const char* dll, const char* function) {
    auto* base = reinterpret_cast<BYTE*>(module);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* nt = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& imports =
        nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    if (imports.VirtualAddress == 0) return nullptr;

    auto* descriptor = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
    for (; descriptor->Name != 0; ++descriptor) {
        const char* name = reinterpret_cast<const char*>(base + descriptor->Name);
        if (dll != nullptr && lstrcmpiA(name, dll) != 0) continue;
        const auto* names =
            reinterpret_cast<const IMAGE_THUNK_DATA*>(base + descriptor->OriginalFirstThunk);
        auto* slots = reinterpret_cast<IMAGE_THUNK_DATA*>(base + descriptor->FirstThunk);
        for (; names->u1.AddressOfData != 0; ++names, ++slots) {
            if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
            const auto* import =
                reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
            if (lstrcmpA(reinterpret_cast<const char*>(import->Name), function) == 0) {
                return reinterpret_cast<void**>(&slots->u1.Function);
            }
        }
    }
    return nullptr;
}

void WriteSlot(void** slot, void* value) {
    DWORD protection = 0;
    VirtualProtect(slot, sizeof(void*), PAGE_READWRITE, &protection);
    *slot = value;
    VirtualProtect(slot, sizeof(void*), protection, &protection);
}

}  // namespace

ImportHookBase::ImportHookBase(HMODULE module, const char* dll, const char* function,
                               void* replacement) {
    if (module == nullptr) module = GetModuleHandleW(nullptr);
    m_slot = FindImportSlot(module, dll, function);
    if (m_slot == nullptr) {
        throw std::runtime_error(std::string("no import of ") + function + " to hook");
    }
    m_original = *m_slot;
    WriteSlot(m_slot, replacement);
}

ImportHookBase::~ImportHookBase() {
    WriteSlot(m_slot, m_original);
}
