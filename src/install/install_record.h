#pragma once

#include <windows.h>

#include <string>

/// The key under HKEY_LOCAL_MACHINE that the installer wrote.
inline constexpr wchar_t installKeyPath[] = L"SOFTWARE\\Brennvik\\KVT CAD辅助设计软件";

/// How the key is opened: for reading, in the 32-bit view of the registry.
inline constexpr REGSAM installKeyAccess = KEY_READ | KEY_WOW64_32KEY;

/// The installation's directory and version as the registry gave them, with no change and no check.
/// Empty until the start reads them, written only by the start, on the host's main thread. Of the
/// module's statics only the document data is built behind them; until then and after the module's
/// exit nobody may touch them.
extern std::wstring InstallLocation;
extern std::wstring InstallVersion;

/// A copy of `InstallLocation`.
std::wstring GetInstallLocation();
