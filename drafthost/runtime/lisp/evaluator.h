#pragma once

#include "runtime/lisp/cells.h"
#include "runtime/lisp/error.h"
#include "runtime/lisp/host.h"
#include "runtime/lisp/interpreter.h"
#include "runtime/lisp/stack_limit.h"
#include "runtime/lisp/symbol_table.h"

#include <atomic>
#include <functional>
#include <string>
#include <vector>

namespace drafthost {

/// Evaluates expressions: what the built-in functions and the interpreter's public face work with.
/// Every operation but `Run` throws LispError, and lets through what the host's callbacks throw.
class LispEvaluator {
  public:
    explicit LispEvaluator(LispHost& host);

    LispHost& Host() { return m_host; }
    LispSymbols& Symbols() { return m_symbols; }
    const LispSymbols& Symbols() const { return m_symbols; }

    /// Runs `work` as one evaluation from outside: an error becomes the outcome, after `*error*`.
    LispOutcome Run(const std::function<LispValue()>& work);

    /// All expressions of a text; the last one's value.
    LispValue EvaluateText(const std::wstring& text);

    LispValue Evaluate(const LispValue& expression);

    /// The values of the expressions in their order; the last one's, nil for none.
    LispValue EvaluateAll(const std::vector<LispValue>& expressions, std::size_t first = 0);

    /// Calls what `function` stands for: a function, a symbol that has one, or a lambda expression.
    LispValue Apply(const LispValue& function, const std::vector<LispValue>& arguments);

    /// What `Apply` would call, with symbols looked up and lambda expressions made into functions;
    /// saves doing so for each of many calls.
    LispValue Callable(const LispValue& function);

    /// `vl-catch-all-apply`: an error gives a CaughtError, and `*error*` isn't called.
    LispValue ApplyAndCatch(const LispValue& function, const std::vector<LispValue>& arguments);

    /// `name` is empty for a lambda. `parameters` are the list as written, with "/" ahead of the
    /// local variables.
    LispValue MakeFunction(const std::wstring& name, const LispValue& parameters,
                           std::vector<LispValue> body);

    /// Ends the evaluation if the user wants so; for loops that may never call anything.
    void CheckInterruption();

    void Interrupt() noexcept { m_interrupted = true; }
    bool IsBusy() const { return m_running > 0; }

    /// Binds the row's name to it.
    void Define(const LispFunctionRow& row);

    /// Evaluates `body` with `symbol` bound for as long, as a local variable is.
    LispValue EvaluateWith(SymbolCell& symbol, const LispValue& value,
                           const std::vector<LispValue>& body, std::size_t first);

  private:
    LispValue EvaluateCall(const LispValue& expression);
    LispValue CallSubr(const LispFunctionRow& row, const std::vector<LispValue>& arguments);
    LispValue CallUserSubr(const UserSubrCell& function, const std::vector<LispValue>& arguments);
    LispValue ApplyCallable(const LispValue& callable, const std::vector<LispValue>& arguments);
    void CheckLimits();
    void TellErrorFunction(LispError& error);
    LispValue Quoted(const LispValue& value);

    LispHost& m_host;
    LispSymbols m_symbols;
    StackLimit m_stackLimit;
    std::atomic<bool> m_interrupted{false};
    int m_running = 0;     ///< evaluations from outside, one within the other
    int m_catchDepth = 0;  ///< `vl-catch-all-apply` calls around
    bool m_inErrorFunction = false;
};

/// Whether `Apply` can do anything with it, symbols aside.
bool IsLispFunction(const LispValue& value);

}  // namespace drafthost
