#pragma once

#include <windows.h>

namespace drafthost {

/// For `SetConsoleCtrlHandler`: Ctrl+C ends a running evaluation; at the prompt nothing runs, and
/// it does nothing. FALSE for all other events, which end the process. On a thread of the system's.
BOOL WINAPI OnControlEvent(DWORD event);

}  // namespace drafthost
