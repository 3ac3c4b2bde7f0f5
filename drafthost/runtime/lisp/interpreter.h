#pragma once

#include "runtime/lisp/host.h"
#include "runtime/lisp/printer.h"
#include "runtime/lisp/value.h"

#include <memory>
#include <string>
#include <vector>

namespace drafthost {

class LispEvaluator;

/// What an evaluation came to.
struct LispOutcome {
    bool succeeded = true;
    LispValue value;       ///< nil after an error, and for a text without expressions
    std::wstring error;    ///< the message, without "; error: "
    bool handled = false;  ///< the user's own `*error*` got the message: show nothing more

    /// The line that a host shows for an error, "; error: ..."; empty when there is nothing to
    /// show.
    std::wstring ErrorLine() const;
};

/// One LISP world: symbols, their values and functions. A host has one for each open document.
///
/// Not for several threads at once, but for `Interrupt`. Calls may be nested: a host's callback may
/// evaluate. It mustn't be destroyed while `IsBusy`.
class LispInterpreter {
  public:
    /// `host` must live longer. The built-in functions are defined.
    explicit LispInterpreter(LispHost& host);
    LispInterpreter(const LispInterpreter&) = delete;
    LispInterpreter& operator=(const LispInterpreter&) = delete;
    ~LispInterpreter();

    /// Reads and evaluates the expressions of `text` one after the other, and stops at the first
    /// error; what stood before it has been evaluated. Lets through what a host's callback throws,
    /// but for LispError.
    LispOutcome Evaluate(const std::wstring& text);

    /// Calls the function named `name` with arguments that are values already. As `Evaluate`.
    LispOutcome Call(const std::wstring& name, const std::vector<LispValue>& arguments = {});

    /// Whether `name` (L"C:HELLO" for a command; case doesn't matter) has a function.
    bool IsFunction(const std::wstring& name) const;

    /// Gives the symbol a module's function for its value, in place of whatever it had.
    void DefineExternal(const std::wstring& name, const LispExternal& function);

    /// Makes the symbol nil if its value is just this function; else returns false.
    bool UndefineExternal(const std::wstring& name, const LispExternal& function);

    /// For the end of a module: as `UndefineExternal` for all functions of the owner.
    void UndefineExternals(std::uintptr_t owner);

    /// A symbol's value; nil for one that has none. Case doesn't matter. Of these
    /// and `IsBusy` tests alone make use.
    LispValue GetSymbol(const std::wstring& name) const;
    void SetSymbol(const std::wstring& name, const LispValue& value);

    /// The symbol itself, upper case, as a value.
    LispValue Symbol(const std::wstring& name);

    /// Ends the running evaluation with "Function cancelled", from any thread. Nothing happens when
    /// none runs.
    void Interrupt() noexcept;

    /// An evaluation runs, so this is a call from within it.
    bool IsBusy() const;

  private:
    std::unique_ptr<LispEvaluator> m_evaluator;
};

/// Whether `text` ends within a list, string, comment or quotation, so that a prompt should ask for
/// another line. False for a text that is wrong ahead of its end.
bool IsLispTextUnfinished(const std::wstring& text);

}  // namespace drafthost
