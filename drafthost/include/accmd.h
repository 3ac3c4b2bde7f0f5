#pragma once

#include "rxclass.h"

#include <windows.h>

class AcEdUIContext;

/// What a command runs.
using AcRxFunctionPtr = void (*)();

// Command flags.
#define ACRX_CMD_MODAL 0x00000000
#define ACRX_CMD_TRANSPARENT 0x00000001
#define ACRX_CMD_USEPICKSET 0x00000002
#define ACRX_CMD_REDRAW 0x00000004
#define ACRX_CMD_SESSION 0x00200000

/// One registered command.
class DRAFTHOST_API AcEdCommand : public AcRxObject {
    ACRX_DECLARE_MEMBERS(AcEdCommand)

    virtual const ACHAR* globalName() const = 0;
    virtual const ACHAR* localName() const = 0;
    virtual Adesk::Int32 commandFlags() const = 0;
    virtual AcRxFunctionPtr functionAddr() const = 0;
    virtual AcEdUIContext* UIContext() const = 0;
    /// What the module gave: null for a session command.
    virtual HINSTANCE resourceHandle() const = 0;
};

/// The host's commands. Found in the system registry under "ACAD_REGISTERED_COMMANDS".
class DRAFTHOST_API AcEdCommandStack : public AcRxObject {
    ACRX_DECLARE_MEMBERS(AcEdCommandStack)

    /// Registers a command. Names are copied, and compared without regard to case.
    ///
    /// eInvalidInput for a null or empty group, global or local name or a null function;
    /// eDuplicateKey when the group has the global or local name already. `cmdPtrRet` (may be null)
    /// gets the command, which stays the stack's.
    virtual Acad::ErrorStatus addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName,
                                         const ACHAR* cmdLocalName, Adesk::Int32 commandFlags,
                                         AcRxFunctionPtr functionAddr,
                                         AcEdUIContext* UIContext = nullptr, int fcode = -1,
                                         HINSTANCE hResourceHandle = nullptr,
                                         AcEdCommand** cmdPtrRet = nullptr) = 0;

    /// Removes a command by its group and global name; eKeyNotFound when there is none.
    virtual Acad::ErrorStatus removeCmd(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName) = 0;

    /// Removes all commands of the group; eKeyNotFound when there is none.
    virtual Acad::ErrorStatus removeGroup(const ACHAR* groupName) = 0;

    /// The command with this global or local name in any group, case ignored; null when there is
    /// none.
    virtual AcEdCommand* lookupCmd(const ACHAR* cmdName) = 0;
};
