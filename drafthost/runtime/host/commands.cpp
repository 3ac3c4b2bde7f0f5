#include "runtime/host/commands.h"

#include "runtime/host/command_name.h"
#include "runtime/host/module_call.h"
#include "runtime/host/same_name.h"
#include "runtime/host/services.h"
#include "runtime/host/session.h"

namespace drafthost {

namespace {

const Command* FindCommand(const std::wstring& typed) {
    const CommandStack& commands = HostServices()->commands;
    const Command* command = commands.Find(WithoutTransparentMark(typed));
    return command != nullptr ? command : commands.Find(WithoutCommandMarks(typed));
}

CommandResult RunRegistered(const Command& command) {
    const bool needsDrawing = (command.m_flags & ACRX_CMD_SESSION) == 0;
    if (needsDrawing && HostServices()->documents.Active() == nullptr) {
        return CommandResult::NoDrawing;
    }
    const std::wstring what = L"command " + command.m_globalName;
    // The command may remove itself: nothing of it is used after the call.
    CallModule(command.m_owner, what.c_str(), command.m_function);
    return CommandResult::Done;
}

CommandResult RunLispCommand(const std::wstring& typed) {
    Document* document = HostServices()->documents.Active();
    if (document == nullptr) return CommandResult::Unknown;
    const std::wstring function = L"C:" + WithoutTransparentMark(typed);
    if (!document->Lisp().IsFunction(function)) return CommandResult::Unknown;
    return CallLisp(*document, function) ? CommandResult::Done : CommandResult::Failed;
}

}  // namespace

CommandResult RunCommand(const std::wstring& name) {
    if (WithoutCommandMarks(name).empty()) return CommandResult::Unknown;
    const Command* command = FindCommand(name);
    const CommandResult result =
        command != nullptr ? RunRegistered(*command) : RunLispCommand(name);
    EvaluateQueues();
    return result;
}

void RunCommandsOfLisp(const std::vector<LispValue>& arguments) {
    for (const LispValue& argument : arguments) {
        if (!argument.IsString() || argument.AsString().empty()) continue;
        const Command* command = FindCommand(argument.AsString());
        if (command == nullptr) {
            PrintLine(L"Unknown command \"" + argument.AsString() + L"\".");
            return;
        }
        RunRegistered(*command);
    }
}

std::vector<std::wstring> RegisteredCommands() {
    std::vector<std::wstring> names;
    for (const Command& command : HostServices()->commands.Commands()) {
        const bool isSame = IsSameName(command.m_globalName, command.m_localName);
        names.push_back(isSame ? command.m_globalName
                               : command.m_globalName + L" (" + command.m_localName + L")");
    }
    return names;
}

}  // namespace drafthost
