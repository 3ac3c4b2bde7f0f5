#pragma once

#include <windows.h>

#include <string>

namespace drafthost {

/// The module whose image holds `address`; null when there is none.
HMODULE ModuleAt(const void* address);

/// Whether `address` lies in the image of `module`.
bool IsInModule(HMODULE module, const void* address);

/// Whether the image has the entry point of a drafting module.
bool IsDraftingModule(HMODULE image);

/// The module that a host service works for, given the service's return address: the image that
/// holds the address, or, when that is the host's own, the module whose code the host is running.
/// Null when no module is involved.
HMODULE CallingModule(const void* returnAddress);

/// The innermost module on the stack of the running thread; null when there is none, as when a
/// thread's function ends in the call.
HMODULE CallingModuleOnStack();

/// The file name without its folder, such as "KVTCAD.arx"; "an unknown module" for null.
std::wstring ModuleName(HMODULE module);

}  // namespace drafthost
