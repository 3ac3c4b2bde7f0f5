#pragma once

#include "runtime/lisp/value.h"

#include <string>

namespace drafthost {

/// What a LISP function throws; the evaluator turns it into an outcome, and a host's callbacks may
/// throw it too. No std::exception, so that a module's exceptions aren't mistaken for it.
class LispError {
  public:
    /// `message` without the "; error: " ahead of it.
    explicit LispError(std::wstring message) : m_message(std::move(message)) {}

    const std::wstring& Message() const { return m_message; }

    /// True once `*error*` was called for it, so that no outer function does so again.
    bool m_handled = false;
    /// An interruption ends the evaluation; `vl-catch-all-apply` lets it through.
    bool m_interruption = false;

  private:
    std::wstring m_message;
};

/// "bad argument type: EXPECTED VALUE", the value as `prin1` writes it. Tests for numbers have a
/// colon of their own, as in "numberp:".
LispError BadArgumentType(const wchar_t* expected, const LispValue& value);

/// "bad argument value: EXPECTED VALUE"
LispError BadArgumentValue(const wchar_t* expected, const LispValue& value);

}  // namespace drafthost
