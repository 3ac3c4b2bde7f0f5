#pragma once

#include "runtime/lisp/interpreter.h"

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// A host that records what LISP asks of it.
class TestHost : public drafthost::LispHost {
  public:
    std::wstring printed;
    std::map<std::wstring, std::wstring> environment;
    std::wstring folder;  ///< where `FindFile` looks, with its backslash; also full paths are found
    std::vector<std::wstring> commands;  ///< each with its arguments as a list
    std::function<drafthost::LispValue(const drafthost::LispExternal&,
                                       const std::vector<drafthost::LispValue>&)>
        external;
    std::vector<std::wstring> modules;
    std::deque<std::wstring> answers;
    std::map<std::wstring, drafthost::LispValue> variables;

    void Print(const std::wstring& text) override;
    std::optional<std::wstring> GetEnvironment(const std::wstring& name) override;
    bool SetEnvironment(const std::wstring& name, const std::wstring& value) override;
    std::optional<std::wstring> FindFile(const std::wstring& name) override;
    void RunCommand(const std::vector<drafthost::LispValue>& arguments) override;
    std::vector<std::wstring> Modules() override { return modules; }
    /// Only "good.arx" can be loaded, and what is loaded unloaded.
    bool LoadModule(const std::wstring& file) override;
    bool UnloadModule(const std::wstring& file) override;
    drafthost::LispValue CallExternal(const drafthost::LispExternal& function,
                                      const std::vector<drafthost::LispValue>& arguments) override;
    /// Prints the prompt; the next of `answers`, or nothing when they are used up.
    std::optional<std::wstring> ReadLine(const std::wstring& prompt) override;
    /// "READONLY" can be read and not set.
    std::optional<drafthost::LispValue> GetVariable(const std::wstring& name) override;
    bool SetVariable(const std::wstring& name, const drafthost::LispValue& value) override;
};

/// What a prompt shows for `text`: the value as `prin1` writes it, or the error line.
std::wstring Shown(drafthost::LispInterpreter& interpreter, const std::wstring& text);

/// One expression and what a prompt shows for it; a table of these covers a function.
struct LispRow {
    const char* why;
    const wchar_t* expression;
    const wchar_t* shown;
};

/// Checks each row in an interpreter of its own.
void ExpectShown(const std::vector<LispRow>& rows);
