#pragma once

#include "runtime/control.h"

#include <windows.h>

#include <string>

namespace drafthost {

/// Names what a module did against the host's rules.
///
/// The first offence of each module is shown on the console at once; later ones only in a verbose
/// session. All are counted. From any thread. `module` null: one whose image isn't known.
void ReportOffence(HMODULE module, const std::wstring& what);

/// The same for a module whose image has gone already.
void ReportOffence(const std::wstring& moduleName, const std::wstring& what);

/// Whether a host service may go on: true on the host's own thread, which is the one that loaded
/// this DLL. On any other thread the calling module's offence is reported, and the service is to
/// refuse. `service` is its published name.
bool IsHostThread(const wchar_t* service);

}  // namespace drafthost
