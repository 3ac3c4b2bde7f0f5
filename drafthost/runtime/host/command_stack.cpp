#include "runtime/host/command_stack.h"

#include "runtime/host/calling_module.h"
#include "runtime/host/offences.h"
#include "runtime/host/same_name.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcEdCommand, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcEdCommandStack, AcRxObject)

namespace drafthost {

namespace {

bool IsEmpty(const ACHAR* text) {
    return text == nullptr || *text == 0;
}

bool HasName(const Command& command, const std::wstring& name) {
    return IsSameName(command.m_globalName, name) || IsSameName(command.m_localName, name);
}

}  // namespace

Acad::ErrorStatus CommandStack::addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName,
                                           const ACHAR* cmdLocalName, Adesk::Int32 commandFlags,
                                           AcRxFunctionPtr functionAddr, AcEdUIContext* UIContext,
                                           int /*fcode*/, HINSTANCE hResourceHandle,
                                           AcEdCommand** cmdPtrRet) {
    if (!IsHostThread(L"AcEdCommandStack::addCommand") || IsEmpty(cmdGroupName) ||
        IsEmpty(cmdGlobalName) || IsEmpty(cmdLocalName) || functionAddr == nullptr) {
        return Acad::eInvalidInput;
    }
    for (const Command& command : m_commands) {
        if (IsSameName(command.m_group, cmdGroupName) &&
            (HasName(command, cmdGlobalName) || HasName(command, cmdLocalName))) {
            return Acad::eDuplicateKey;
        }
    }
    Command& command = m_commands.emplace_back();
    command.m_group = cmdGroupName;
    command.m_globalName = cmdGlobalName;
    command.m_localName = cmdLocalName;
    command.m_flags = commandFlags;
    command.m_function = functionAddr;
    command.m_uiContext = UIContext;
    command.m_resourceHandle = hResourceHandle;
    command.m_owner = ModuleAt(reinterpret_cast<const void*>(functionAddr));
    if (cmdPtrRet != nullptr) *cmdPtrRet = &command;
    return Acad::eOk;
}

Acad::ErrorStatus CommandStack::removeCmd(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName) {
    if (!IsHostThread(L"AcEdCommandStack::removeCmd") || cmdGroupName == nullptr ||
        cmdGlobalName == nullptr) {
        return Acad::eInvalidInput;
    }
    for (auto command = m_commands.begin(); command != m_commands.end(); ++command) {
        if (IsSameName(command->m_group, cmdGroupName) &&
            IsSameName(command->m_globalName, cmdGlobalName)) {
            m_commands.erase(command);
            return Acad::eOk;
        }
    }
    return Acad::eKeyNotFound;
}

Acad::ErrorStatus CommandStack::removeGroup(const ACHAR* groupName) {
    if (!IsHostThread(L"AcEdCommandStack::removeGroup") || groupName == nullptr) {
        return Acad::eInvalidInput;
    }
    const std::size_t before = m_commands.size();
    m_commands.remove_if(
        [&](const Command& command) { return IsSameName(command.m_group, groupName); });
    return m_commands.size() < before ? Acad::eOk : Acad::eKeyNotFound;
}

AcEdCommand* CommandStack::lookupCmd(const ACHAR* cmdName) {
    if (!IsHostThread(L"AcEdCommandStack::lookupCmd") || cmdName == nullptr) {
        return nullptr;
    }
    return const_cast<Command*>(Find(cmdName));
}

const Command* CommandStack::Find(const std::wstring& name) const {
    for (auto command = m_commands.rbegin(); command != m_commands.rend(); ++command) {
        if (HasName(*command, name)) return &*command;
    }
    return nullptr;
}

std::vector<std::wstring> CommandStack::RemoveCommandsOf(HMODULE module) {
    std::vector<std::wstring> removed;
    m_commands.remove_if([&](const Command& command) {
        if (command.m_owner != module) return false;
        removed.push_back(command.m_group + L"/" + command.m_globalName);
        return true;
    });
    return removed;
}

}  // namespace drafthost
