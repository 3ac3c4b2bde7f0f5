#pragma once

#include <windows.h>

namespace drafthost {

/// Watches over the process from here on: whatever exception nobody handles is reported on the
/// standard error, with the module, what it was called for, and the address, and ends the process
/// with `ExitCode::ModuleCrashed`; so does a module that ends the process. Called once, on the
/// host's thread.
void WatchForCrashes();

/// Puts the filter for unhandled exceptions back in place, which a module may have replaced. Does
/// nothing unless the process is watched.
void RenewCrashFilter();

/// From here on the process may end without being taken for a module's doing. What crashes now does
/// so in the modules that are still loaded.
void ExpectProcessEnd();

/// To be called behind a module's code, with `std::uncaught_exceptions()` from ahead of it: reports
/// an exception that the system has swallowed on its way out of a window procedure, and ends the
/// process.
void EndAfterSwallowedException(int uncaughtBefore);

/// The system's loader swallows what is raised in static objects and `DllMain`. For the life of
/// this object, around a call that loads or frees a library, it is noted instead; the destructor
/// reports it and ends the process.
class LoaderCall {
  public:
    /// `moduleName` must outlive the object.
    explicit LoaderCall(const wchar_t* moduleName);
    LoaderCall(const LoaderCall&) = delete;
    LoaderCall& operator=(const LoaderCall&) = delete;
    ~LoaderCall();
};

}  // namespace drafthost
