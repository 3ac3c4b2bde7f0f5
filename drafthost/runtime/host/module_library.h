#pragma once

#include "runtime/host/module_table.h"

namespace drafthost {

/// What became of a module's file: either a library with its entry point, or what is wrong with it.
struct ModuleLibrary {
    HMODULE handle = nullptr;
    EntryPoint entryPoint = nullptr;
    std::wstring problem;  ///< one sentence; empty when all is well
};

/// Loads the library and checks that it is a module for this host: both exports and the generation.
/// On a problem it has been freed again. `path` is full.
ModuleLibrary LoadModuleLibrary(const std::wstring& path);

/// Frees the library, in which its static objects and `DllMain` run.
void FreeModuleLibrary(HMODULE handle);

}  // namespace drafthost
