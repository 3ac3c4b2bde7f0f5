#pragma once

#include "runtime/lisp/value.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace drafthost {

/// A function that a module defined: whose it is and which one. The evaluator only compares both
/// and hands them back.
struct LispExternal {
    std::uintptr_t owner = 0;  ///< the host's choice, a module's handle for example
    int code = 0;

    bool operator==(const LispExternal& other) const {
        return owner == other.owner && code == other.code;
    }
};

/// What an interpreter needs of the host around it. Called on the evaluating thread only.
///
/// Every operation may throw LispError, which becomes the LISP error of the calling expression.
/// Any other exception leaves the evaluation with local variables restored, so the interpreter
/// can be used again.
class LispHost {
  public:
    virtual ~LispHost() = default;

    /// Text for the command line; line ends are L'\n', and a line may come in pieces.
    virtual void Print(const std::wstring& text) = 0;

    /// `getenv` and `setenv`: the host's settings. Empty: no such setting; false: not set.
    virtual std::optional<std::wstring> GetEnvironment(const std::wstring& name) = 0;
    virtual bool SetEnvironment(const std::wstring& name, const std::wstring& value) = 0;

    /// The full path of a file, searched along the support path when `name` has none; slashes of
    /// both kinds come in. Empty: not there. Used by `findfile` and `load`.
    virtual std::optional<std::wstring> FindFile(const std::wstring& name) = 0;

    /// `(command ...)`: strings, numbers and points (lists of reals) in their order. A nil among
    /// them is the user's ESC, which cancels a running command; so do no arguments at all.
    virtual void RunCommand(const std::vector<LispValue>& arguments) = 0;

    /// `arx`: the file names of the loaded modules, in load order.
    virtual std::vector<std::wstring> Modules() = 0;

    /// `arxload` and `arxunload`. False: it can't be; the host has said why.
    virtual bool LoadModule(const std::wstring& file) = 0;
    virtual bool UnloadModule(const std::wstring& file) = 0;

    /// Calls a module's function; its result is the value of the LISP call.
    virtual LispValue CallExternal(const LispExternal& function,
                                   const std::vector<LispValue>& arguments) = 0;

    /// One line of the user's for `getstring` and its kin, after showing `prompt`, without its end.
    /// Empty: the user cancelled, or there is no more input.
    virtual std::optional<std::wstring> ReadLine(const std::wstring& prompt) = 0;

    /// `getvar` and `setvar`: the host's variables, names in any case. Empty: no such variable;
    /// false: no such variable, or it doesn't take this value.
    virtual std::optional<LispValue> GetVariable(const std::wstring& name) = 0;
    virtual bool SetVariable(const std::wstring& name, const LispValue& value) = 0;
};

}  // namespace drafthost
