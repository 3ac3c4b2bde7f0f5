#pragma once

#include "accmd.h"

#include <list>
#include <string>
#include <vector>

namespace drafthost {

/// One registered command with what only the host knows of it.
class Command : public AcEdCommand {
  public:
    const ACHAR* globalName() const override { return m_globalName.c_str(); }
    const ACHAR* localName() const override { return m_localName.c_str(); }
    Adesk::Int32 commandFlags() const override { return m_flags; }
    AcRxFunctionPtr functionAddr() const override { return m_function; }
    AcEdUIContext* UIContext() const override { return m_uiContext; }
    HINSTANCE resourceHandle() const override { return m_resourceHandle; }

    std::wstring m_group;
    std::wstring m_globalName;
    std::wstring m_localName;
    Adesk::Int32 m_flags = 0;
    AcRxFunctionPtr m_function = nullptr;
    AcEdUIContext* m_uiContext = nullptr;
    HINSTANCE m_resourceHandle = nullptr;
    HMODULE m_owner = nullptr;  ///< the image that holds the function
};

/// The commands in the order of their registration.
class CommandStack : public AcEdCommandStack {
  public:
    Acad::ErrorStatus addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName,
                                 const ACHAR* cmdLocalName, Adesk::Int32 commandFlags,
                                 AcRxFunctionPtr functionAddr, AcEdUIContext* UIContext, int fcode,
                                 HINSTANCE hResourceHandle, AcEdCommand** cmdPtrRet) override;
    Acad::ErrorStatus removeCmd(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName) override;
    Acad::ErrorStatus removeGroup(const ACHAR* groupName) override;
    AcEdCommand* lookupCmd(const ACHAR* cmdName) override;

    /// By a global or local name in any case; of several the one that was registered last. Null
    /// when there is none.
    const Command* Find(const std::wstring& name) const;

    const std::list<Command>& Commands() const { return m_commands; }

    /// Drops the commands whose functions lie in `module`; gives them as "GROUP/GLOBAL".
    std::vector<std::wstring> RemoveCommandsOf(HMODULE module);

  private:
    std::list<Command> m_commands;
};

}  // namespace drafthost
