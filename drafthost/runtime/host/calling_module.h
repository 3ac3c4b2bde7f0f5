#pragma once

#include <windows.h>

#include <string>

namespace drafthost {

/// The module whose image holds `address`; null when there is none.
HMODULE ModuleAt(const void* address);

/// Whether `address` lies in the image of `module`.
bool IsInModule(HMODULE module, const void* address);

/// Whether the object itself or its virtual function table lies in the image of `module`: then it
/// is worthless once the module has gone.
bool IsObjectOfModule(HMODULE module, const void* polymorphicObject);

/// The module that a host service works for, given the service's return address: the image that
/// holds the address, or, when the call came by way of the host itself, the module whose code the
/// host is running. Null when no module is involved.
HMODULE CallingModule(const void* returnAddress);

/// The file name without its folder, such as "KVTCAD.arx"; "?" when the image has gone.
std::wstring ModuleName(HMODULE module);

}  // namespace drafthost
