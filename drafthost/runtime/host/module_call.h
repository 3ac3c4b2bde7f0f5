#pragma once

#include <windows.h>

#include <utility>

namespace drafthost {

/// A run of a module's code on the host's thread, for the time that this object lives. Calls nest:
/// a module's command may make the host call another module.
class ModuleCall {
  public:
    /// `what` tells what the module was called for, such as "message kLoadDwgMsg (3)"; it must live
    /// as long as the object. `module` null: one that is being loaded.
    ModuleCall(HMODULE module, const wchar_t* what);
    ModuleCall(const ModuleCall&) = delete;
    ModuleCall& operator=(const ModuleCall&) = delete;
    ~ModuleCall();

    HMODULE Module() const { return m_module; }
    const wchar_t* What() const { return m_what; }
    const ModuleCall* Outer() const { return m_outer; }

    /// The call that runs now, or null.
    static const ModuleCall* Innermost();

  private:
    HMODULE m_module;
    const wchar_t* m_what;
    const ModuleCall* m_outer;
    std::size_t m_resourceHandles;  ///< pushed at the start
    int m_uncaughtExceptions;       ///< at the start
};

/// For use in a catch block: reports the exception that left the innermost call, and ends the
/// process with the exit code for a crashed module.
[[noreturn]] void EndAfterException();

/// Runs `function`, which calls into `module`. A C++ exception must not pass into the host: it is
/// reported and ends the process, as a hardware exception does.
template <class Function>
auto CallModule(HMODULE module, const wchar_t* what, Function&& function) {
    const ModuleCall call(module, what);
    try {
        return std::forward<Function>(function)();
    } catch (...) {
        EndAfterException();
    }
}

}  // namespace drafthost
