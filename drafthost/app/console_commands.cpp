#include "app/console.h"
#include "app/console_line.h"
#include "runtime/host/command_name.h"

namespace drafthost {

namespace {

std::wstring Assignment(std::wstring name, const std::wstring& value) {
    return name.append(L"=").append(value);
}

}  // namespace

/// One of the host's own commands.
struct Console::OwnCommand {
    const wchar_t* name;
    bool (Console::*run)(const std::wstring& rest);
    const wchar_t* help;
};

const Console::OwnCommand Console::g_ownCommands[] = {
    {L"APPLOAD", &Console::Load, L"APPLOAD FILE        load a module"},
    {L"CLOSE", &Console::Close, L"CLOSE               close the drawing in front"},
    {L"ENV", &Console::Environment, L"ENV [NAME[=VALUE]]  show or change settings"},
    {L"HELP", &Console::Help, L"HELP                this list"},
    {L"LIST", &Console::List, L"LIST                the open drawings and loaded modules"},
    {L"NEW", &Console::New, L"NEW                 open a new drawing"},
    {L"OPEN", &Console::Open, L"OPEN FILE           open a drawing"},
    {L"QUIT", &Console::Quit, L"QUIT                end the session"},
    {L"SWITCH", &Console::Switch, L"SWITCH NAME         bring another drawing to the front"},
    {L"UNLOAD", &Console::Unload, L"UNLOAD NAME         unload a module"},
};

bool Console::ExecuteCommand(const std::wstring& line) {
    const CommandLine split = SplitCommandLine(line);
    const std::wstring name = WithoutCommandMarks(split.word);
    for (const OwnCommand& command : g_ownCommands) {
        if (name == command.name) return (this->*command.run)(split.rest);
    }
    return ExecuteModuleCommands(line);
}

std::wstring Console::Argument(const std::wstring& rest, const std::wstring& question) {
    const std::wstring text = rest.empty() ? Trimmed(ReadLine(question).value_or(L"")) : rest;
    return Unquoted(text);
}

bool Console::Load(const std::wstring& rest) {
    const std::wstring file = Argument(rest, L"Module to load: ");
    if (file.empty()) return false;
    const LoadResult result = LoadModule(file);
    return result == LoadResult::Loaded || result == LoadResult::AlreadyLoaded;
}

bool Console::Close(const std::wstring&) {
    if (CloseDrawing()) return true;
    PrintLine(L"No drawing is open.");
    return false;
}

bool Console::Environment(const std::wstring& rest) {
    if (rest.empty()) {
        for (const auto& [name, value] : AllSettings())
            PrintLine(Assignment(name, value));
        return true;
    }
    const std::size_t equals = rest.find(L'=');
    const std::wstring name = Trimmed(rest.substr(0, equals));
    if (equals != std::wstring::npos) {
        if (SetSetting(name, Trimmed(rest.substr(equals + 1)))) return true;
        PrintLine(L"The setting can't be stored.");
        return false;
    }
    const auto value = GetSetting(name);
    PrintLine(value ? Assignment(name, *value) : L"There is no setting " + name + L".");
    return value.has_value();
}

bool Console::Help(const std::wstring&) {
    PrintLine(L"(EXPRESSION)        evaluate LISP; an open list goes on in the next line");
    PrintLine(L"!NAME               the value of a LISP symbol");
    for (const OwnCommand& command : g_ownCommands)
        PrintLine(command.help);
    for (const std::wstring& name : RegisteredCommands()) {
        PrintLine(L"Command of a module: " + name);
    }
    return true;
}

bool Console::List(const std::wstring&) {
    for (const DrawingInfo& drawing : Drawings()) {
        PrintLine((drawing.isActive ? L"Drawing in front: " : L"Drawing: ") + drawing.path);
    }
    for (const std::wstring& module : LoadedModules())
        PrintLine(L"Module: " + module);
    return true;
}

bool Console::New(const std::wstring&) {
    return NewDrawing() == OpenResult::Opened;
}

bool Console::Open(const std::wstring& rest) {
    const std::wstring file = Argument(rest, L"Drawing to open: ");
    if (file.empty()) return false;
    const OpenResult result = OpenDrawing(file);
    return result == OpenResult::Opened || result == OpenResult::AlreadyOpen;
}

bool Console::Quit(const std::wstring&) {
    m_hasQuit = true;
    return true;
}

bool Console::Switch(const std::wstring& rest) {
    const std::wstring name = Argument(rest, L"Drawing: ");
    if (ActivateDrawing(name)) return true;
    PrintLine(L"No drawing " + name + L" is open.");
    return false;
}

bool Console::Unload(const std::wstring& rest) {
    const std::wstring name = Argument(rest, L"Module to unload: ");
    return !name.empty() && UnloadModule(name) == UnloadResult::Unloaded;
}

}  // namespace drafthost
