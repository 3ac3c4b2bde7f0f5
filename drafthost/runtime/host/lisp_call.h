#pragma once

#include "adsdef.h"

#include <windows.h>

#include <map>
#include <utility>

namespace drafthost {

/// A call of a module's function by LISP, while it runs. Calls nest.
class LispCall {
  public:
    /// `arguments` stays the caller's.
    LispCall(int code, const resbuf* arguments);
    LispCall(const LispCall&) = delete;
    LispCall& operator=(const LispCall&) = delete;
    ~LispCall();

    /// The call that runs now, or null.
    static LispCall* Innermost();

    int Code() const { return m_code; }
    const resbuf* Arguments() const { return m_arguments; }

    /// Takes the list over and releases what was given before.
    void SetResult(resbuf* result);
    /// Null when the function gave none.
    const resbuf* Result() const { return m_result; }

  private:
    int m_code;
    const resbuf* m_arguments;
    resbuf* m_result = nullptr;
    LispCall* m_outer;
};

/// A function that LISP calls directly (`acedRegFunc`).
using DirectFunction = int (*)();

void RegisterDirectFunction(HMODULE module, int code, DirectFunction function);
/// Null when the module registered none for this code.
DirectFunction FindDirectFunction(HMODULE module, int code);
void ForgetDirectFunctionsOf(HMODULE module);

}  // namespace drafthost
