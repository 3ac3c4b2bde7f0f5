#pragma once

#include "support/import_hook.h"

#include <accmd.h>
#include <rxdlinkr.h>
#include <rxregsvc.h>

#include <string>
#include <vector>

/// What `addCommand` was given.
struct AddedCommand {
    std::wstring group;
    std::wstring globalName;
    std::wstring localName;
    Adesk::Int32 flags;
    AcRxFunctionPtr handler;
    AcEdUIContext* uiContext;
    int functionCode;
    HINSTANCE resourceHandle;
    AcEdCommand** created;
};

class FakeDictionary : public AcRxDictionary {
  public:
    AcRxObject* at(const ACHAR* key) const override;
    AcRxObject* atPut(const ACHAR*, AcRxObject*) override { return nullptr; }
    AcRxObject* remove(const ACHAR*) override { return nullptr; }
    bool has(const ACHAR*) const override { return false; }
    Adesk::UInt32 numEntries() const override { return 0; }

    std::vector<std::pair<std::wstring, AcRxObject*>> m_entries;
};

class FakeLinker : public AcRxDynamicLinker {
  public:
    bool loadModule(const ACHAR*, bool, bool) override { return false; }
    bool unloadModule(const ACHAR*, bool) override { return false; }
    bool unlockApplication(void* packet) const override;
    bool lockApplication(void*) const override { return false; }
    bool registerAppMDIAware(void* packet) const override;

    mutable void* m_unlockPacket = nullptr;    ///< the last one given to `unlockApplication`
    mutable void* m_mdiAwarePacket = nullptr;  ///< the last one given to `registerAppMDIAware`
};

/// Refuses every command.
class FakeCommandStack : public AcEdCommandStack {
  public:
    Acad::ErrorStatus addCommand(const ACHAR* group, const ACHAR* globalName,
                                 const ACHAR* localName, Adesk::Int32 flags,
                                 AcRxFunctionPtr handler, AcEdUIContext* uiContext, int fcode,
                                 HINSTANCE resourceHandle, AcEdCommand** created) override;
    Acad::ErrorStatus removeCmd(const ACHAR* group, const ACHAR* globalName) override;
    Acad::ErrorStatus removeGroup(const ACHAR*) override { return Acad::eKeyNotFound; }
    AcEdCommand* lookupCmd(const ACHAR*) override { return nullptr; }

    std::vector<AddedCommand> m_added;
};

/// Puts services of its own into the host's place, for the life of this object: the code under test
/// looks them up and calls them, and the call journal has every look-up and call in order
/// ("at DynamicLinker", "unlockApplication", "addCommand _LoadKVT", ...). The class dictionary
/// answers with the host's real classes. One at a time.
class FakeHost {
  public:
    FakeHost();
    FakeHost(const FakeHost&) = delete;
    FakeHost& operator=(const FakeHost&) = delete;
    ~FakeHost();

    FakeDictionary m_registry;
    FakeLinker m_linker;
    FakeCommandStack m_commands;
    FakeDictionary m_classes;

  private:
    ImportHook<decltype(&acrxSysRegistry)> m_hook;
};

/// The journal without the look-ups.
std::vector<std::wstring> CallsBesideLookUps();
