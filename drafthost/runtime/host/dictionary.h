#pragma once

#include "rxdict.h"

#include <windows.h>

#include <map>
#include <string>
#include <vector>

namespace drafthost {

/// The dictionary behind the system registry and the class dictionary.
///
/// What several have entered under one name lies in layers, and the last one counts. So the host's
/// own entry comes to light again when the module that has covered it goes.
class Dictionary : public AcRxDictionary {
  public:
    AcRxObject* at(const ACHAR* key) const override;
    /// To cover the host's own entry with another object is an offence.
    AcRxObject* atPut(const ACHAR* key, AcRxObject* object) override;
    /// Uncovers what lay below. To take out the host's own entry is an offence, and it stays.
    AcRxObject* remove(const ACHAR* key) override;
    bool has(const ACHAR* entryName) const override;
    Adesk::UInt32 numEntries() const override;

    /// As `atPut` and `remove` for the host itself: no offences. `owner` null: the host's own.
    void Enter(const std::wstring& key, AcRxObject* object, HMODULE owner);
    AcRxObject* TakeOut(const std::wstring& key);

    std::vector<AcRxObject*> Objects() const;

    /// Takes out what `module` entered; gives the names.
    std::vector<std::wstring> RemoveEntriesOf(HMODULE module);

  private:
    struct Layer {
        AcRxObject* object = nullptr;
        HMODULE owner = nullptr;  ///< whose call entered it; null: the host's own
    };
    using Layers = std::vector<Layer>;  ///< at least one

    /// Whether the entry that counts is the host's.
    bool IsHostsOwn(const std::wstring& key) const;

    std::map<std::wstring, Layers> m_entries;
};

}  // namespace drafthost
