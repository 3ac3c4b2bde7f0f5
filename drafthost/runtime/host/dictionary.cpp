#include "runtime/host/dictionary.h"

#include "runtime/host/calling_module.h"
#include "runtime/host/offences.h"

#include <algorithm>

ACRX_NO_CONS_DEFINE_MEMBERS(AcRxDictionary, AcRxObject)

namespace drafthost {

AcRxObject* Dictionary::at(const ACHAR* key) const {
    if (key == nullptr) return nullptr;
    const auto entry = m_entries.find(key);
    return entry == m_entries.end() ? nullptr : entry->second.back().object;
}

AcRxObject* Dictionary::atPut(const ACHAR* key, AcRxObject* object) {
    const void* caller = __builtin_return_address(0);
    if (!IsHostThread(L"AcRxDictionary::atPut") || key == nullptr) return nullptr;
    AcRxObject* before = at(key);
    const HMODULE owner = CallingModule(caller);
    if (IsHostsOwn(key) && object != before) {
        ReportOffence(owner,
                      std::wstring(L"AcRxDictionary::atPut over the host's own entry ") + key);
    }
    Enter(key, object, owner);
    return before;
}

AcRxObject* Dictionary::remove(const ACHAR* key) {
    const void* caller = __builtin_return_address(0);
    if (!IsHostThread(L"AcRxDictionary::remove") || key == nullptr) return nullptr;
    if (IsHostsOwn(key)) {
        ReportOffence(CallingModule(caller),
                      std::wstring(L"AcRxDictionary::remove of the host's own entry ") + key);
        return nullptr;
    }
    return TakeOut(key);
}

bool Dictionary::has(const ACHAR* entryName) const {
    return entryName != nullptr && m_entries.count(entryName) != 0;
}

Adesk::UInt32 Dictionary::numEntries() const {
    return static_cast<Adesk::UInt32>(m_entries.size());
}

void Dictionary::Enter(const std::wstring& key, AcRxObject* object, HMODULE owner) {
    Layers& layers = m_entries[key];
    if (!layers.empty() && layers.back().object == object) return;
    const bool coversOwn = !layers.empty() && layers.back().owner == owner;
    if (coversOwn) layers.pop_back();
    // What is put back by the one who has covered it is what it was.
    if (coversOwn && !layers.empty() && layers.back().object == object) return;
    layers.push_back({object, owner});
}

AcRxObject* Dictionary::TakeOut(const std::wstring& key) {
    const auto entry = m_entries.find(key);
    if (entry == m_entries.end()) return nullptr;
    AcRxObject* object = entry->second.back().object;
    entry->second.pop_back();
    if (entry->second.empty()) m_entries.erase(entry);
    return object;
}

std::vector<AcRxObject*> Dictionary::Objects() const {
    std::vector<AcRxObject*> objects;
    for (const auto& entry : m_entries)
        objects.push_back(entry.second.back().object);
    return objects;
}

std::vector<std::wstring> Dictionary::RemoveEntriesOf(HMODULE module) {
    std::vector<std::wstring> names;
    for (auto entry = m_entries.begin(); entry != m_entries.end();) {
        Layers& layers = entry->second;
        const auto kept = std::remove_if(layers.begin(), layers.end(),
                                         [&](const Layer& layer) { return layer.owner == module; });
        if (kept != layers.end()) names.push_back(entry->first);
        layers.erase(kept, layers.end());
        entry = layers.empty() ? m_entries.erase(entry) : std::next(entry);
    }
    return names;
}

bool Dictionary::IsHostsOwn(const std::wstring& key) const {
    const auto entry = m_entries.find(key);
    return entry != m_entries.end() && entry->second.back().owner == nullptr;
}

}  // namespace drafthost
