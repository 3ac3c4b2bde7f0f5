#pragma once

#include <windows.h>

/// Redirects one entry of a loaded module's import table for the life of this object.
///
/// Every call that the module makes through that entry goes to the replacement; the module's code
/// stays as it is. Calls that other modules make, or that go through GetProcAddress, are not seen.
/// Hooks of one entry nest: destroy them in reverse order. The constructor throws
/// std::runtime_error when the module imports no such function: a hook that hooks nothing would
/// make its test empty.
class ImportHookBase {
  public:
    ImportHookBase(const ImportHookBase&) = delete;
    ImportHookBase& operator=(const ImportHookBase&) = delete;

  protected:
    /// `module` null: the test program itself. `function`: the name as imported; C++ functions by
    /// their decorated name. `dll` null: from whichever DLL, the first one found.
    ImportHookBase(HMODULE module, const char* dll, const char* function, void* replacement);
    ~ImportHookBase();

    void* m_original = nullptr;

  private:
    void** m_slot = nullptr;
};

/// As above, typed: `ImportHook<decltype(&FindClose)> hook("KERNEL32.dll", "FindClose", &Fake);`
template <typename Function>
class ImportHook : private ImportHookBase {
  public:
    ImportHook(const char* dll, const char* function, Function replacement)
        : ImportHook(nullptr, dll, function, replacement) {}
    ImportHook(HMODULE module, const char* dll, const char* function, Function replacement)
        : ImportHookBase(module, dll, function, reinterpret_cast<void*>(replacement)) {}

    /// What the entry held before: the real function, or an outer hook's replacement.
    Function Original() const { return reinterpret_cast<Function>(m_original); }
};
