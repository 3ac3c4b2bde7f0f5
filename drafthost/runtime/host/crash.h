#pragma once

#include <windows.h>

namespace drafthost {

/// Watches over the process from here on: whatever exception nobody handles is reported on the
/// standard error, with the module, what it was called for, and the address, and ends the process
/// with `moduleCrashExitCode`. Called once, on the host's thread. A module that replaces the
/// process's filter for such exceptions loses it again with the next call into a module.
void WatchForCrashes();

/// Puts the filter back in place. Does nothing unless the process is watched.
void RenewCrashFilter();

/// From here on the process may end without being taken for a module's doing.
void ExpectProcessEnd();

/// A hardware exception within the call that loads or frees a library is swallowed by the system's
/// loader. Between these two calls it is noted instead; the second one reports it and ends the
/// process, if there was one.
void BeginLoaderCall();
void EndLoaderCall();

}  // namespace drafthost
