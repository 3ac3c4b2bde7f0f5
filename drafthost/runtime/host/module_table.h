#pragma once

#include "runtime/control.h"

#include "rxdefs.h"

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

namespace drafthost {

using EntryPoint = AcRx::AppRetCode (*)(AcRx::AppMsgCode, void*);

/// A loaded module. Its address is the packet that the module gets with every message.
struct Module {
    std::wstring path;  ///< full
    std::wstring name;  ///< the file name
    HMODULE handle = nullptr;
    EntryPoint entryPoint = nullptr;
    bool isUnlocked = false;       ///< it may be unloaded
    bool isMultiDocument = false;  ///< it works with several drawings at once
};

/// The loaded modules in the order of their loading. There is one table for the process.
class ModuleTable {
  public:
    static ModuleTable& Instance();

    /// Loads and starts the module, and sends it the open drawings. `problem` tells a failure.
    LoadResult Load(const std::wstring& file, std::wstring& problem);

    /// `name` is a full path or a file name, with or without ".arx", in any case.
    UnloadResult Unload(const std::wstring& name);

    /// The module of the packet, also while it answers `kInitAppMsg`; null when it is no packet.
    Module* FindPacket(const void* packet);

    /// The module that has this image; null when there is none.
    Module* FindImage(HMODULE handle);

    /// Sends the message to every module, in load order.
    void SendToAll(AcRx::AppMsgCode code);

    /// A module that works with one drawing only, or null.
    const Module* FindSingleDocumentModule() const;

    /// For the end of the session: unloads what may be unloaded, the newest first. The others stay
    /// until the process ends. From here on none is loaded any more.
    void UnloadAll();

    const std::vector<std::unique_ptr<Module>>& Modules() const { return m_modules; }

  private:
    Module* Find(const std::wstring& name);
    LoadResult Start(Module& module, std::wstring& problem);
    /// Ends and removes a module that was started.
    void Stop(Module& module);
    /// Frees the library and what it left behind; gives a text for each leftover.
    std::vector<std::wstring> Remove(Module& module);

    std::vector<std::unique_ptr<Module>> m_modules;
    bool m_isEnding = false;  ///< `UnloadAll` has begun
};

/// Sends the module a message; its answer is given back as it is, and is an offence when it is none
/// of the return codes. `about` stands behind the message's name in reports.
AcRx::AppRetCode Send(const Module& module, AcRx::AppMsgCode code, const std::wstring& about = {});

}  // namespace drafthost
