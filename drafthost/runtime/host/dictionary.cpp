#include "runtime/host/dictionary.h"

#include "runtime/host/calling_module.h"
#include "runtime/host/offences.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcRxDictionary, AcRxObject)

namespace drafthost {

AcRxObject* Dictionary::at(const ACHAR* key) const {
    if (key == nullptr) return nullptr;
    const auto entry = m_entries.find(key);
    return entry == m_entries.end() ? nullptr : entry->second.object;
}

AcRxObject* Dictionary::atPut(const ACHAR* key, AcRxObject* object) {
    const void* caller = __builtin_return_address(0);
    if (!IsHostThread(L"AcRxDictionary::atPut") || key == nullptr) return nullptr;
    AcRxObject* before = at(key);
    m_entries[key] = {object, CallingModule(caller)};
    return before;
}

AcRxObject* Dictionary::remove(const ACHAR* key) {
    if (!IsHostThread(L"AcRxDictionary::remove")) return nullptr;
    AcRxObject* before = at(key);
    if (key != nullptr) m_entries.erase(key);
    return before;
}

bool Dictionary::has(const ACHAR* entryName) const {
    return entryName != nullptr && m_entries.count(entryName) != 0;
}

Adesk::UInt32 Dictionary::numEntries() const {
    return static_cast<Adesk::UInt32>(m_entries.size());
}

std::vector<AcRxObject*> Dictionary::Objects() const {
    std::vector<AcRxObject*> objects;
    for (const auto& entry : m_entries)
        objects.push_back(entry.second.object);
    return objects;
}

std::vector<std::wstring> Dictionary::RemoveEntriesOf(HMODULE module) {
    std::vector<std::wstring> names;
    for (auto entry = m_entries.begin(); entry != m_entries.end();) {
        const bool isTheirs = entry->second.owner == module;
        if (isTheirs) names.push_back(entry->first);
        entry = isTheirs ? m_entries.erase(entry) : std::next(entry);
    }
    return names;
}

}  // namespace drafthost
