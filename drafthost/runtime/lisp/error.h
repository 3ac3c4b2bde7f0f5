#pragma once

#include "runtime/lisp/value.h"

#include <string>

namespace drafthost {

/// What a LISP function throws; the evaluator turns it into an outcome. A host's callbacks may
/// throw it too. No std::exception, so that a module's own exceptions aren't mistaken for it.
class LispError {
  public:
    enum class Cause {
        Failure,
        Exit,         ///< `exit` or `quit`
        Interruption  ///< passes through `vl-catch-all-apply`
    };

    /// Who tells the user; settled where the error leaves the innermost function.
    enum class Teller {
        Undecided,
        Host,
        ErrorFunction  ///< `*error*` got the message already
    };

    /// `message` without the "; error: " ahead of it.
    explicit LispError(std::wstring message, Cause cause = Cause::Failure)
        : message(std::move(message)), cause(cause) {}

    std::wstring message;
    Cause cause;
    Teller teller = Teller::Undecided;
};

/// "bad argument type: EXPECTED VALUE", the value as `prin1` writes it. Names of tests for numbers
/// carry a colon, as in "numberp:".
LispError BadArgumentType(const wchar_t* expected, const LispValue& value);

/// "bad argument value: EXPECTED VALUE"
LispError BadArgumentValue(const wchar_t* expected, const LispValue& value);

LispError TooFewArguments();
LispError TooManyArguments();

/// What a user's own cancelling gives, at a prompt too.
LispError FunctionCancelled(LispError::Cause cause);

}  // namespace drafthost
