#pragma once

#include "runtime/host/crash_site.h"

namespace drafthost {

// Reports on the standard error, written without the heap, which may be damaged.

/// What there is to say of a crash.
struct CrashReport {
    const wchar_t* moduleBeingLoaded = nullptr;  ///< its file name, within the loader's call
    bool isAtProcessEnd = false;
    const wchar_t* what = L"";
    const wchar_t* placeLead = L"at";  ///< goes ahead of `place`
    CodePlace place;                   ///< left out when not known
    CodePlace caller;                  ///< left out when not known
};

/// Names the module whose code ran, what it was called for, and the rest of the report. From any
/// thread; `isHostThread` tells whether it is the host's own.
void WriteCrashReport(const CrashReport& report, bool isHostThread);

}  // namespace drafthost
