#pragma once

#include "rxdict.h"

#include <windows.h>

#include <map>
#include <string>
#include <vector>

namespace drafthost {

/// The dictionary behind the system registry and the class dictionary.
class Dictionary : public AcRxDictionary {
  public:
    AcRxObject* at(const ACHAR* key) const override;
    AcRxObject* atPut(const ACHAR* key, AcRxObject* object) override;
    AcRxObject* remove(const ACHAR* key) override;
    bool has(const ACHAR* entryName) const override;
    Adesk::UInt32 numEntries() const override;

    std::vector<AcRxObject*> Objects() const;

    /// Takes out what `module` entered; gives the names.
    std::vector<std::wstring> RemoveEntriesOf(HMODULE module);

  private:
    struct Entry {
        AcRxObject* object = nullptr;
        HMODULE owner = nullptr;  ///< whose call entered it; null: the host's own
    };

    std::map<std::wstring, Entry> m_entries;
};

}  // namespace drafthost
