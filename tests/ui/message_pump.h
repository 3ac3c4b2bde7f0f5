#pragma once

#include <windows.h>

#include <functional>

/// Takes messages off the thread's queue until the condition holds, each by `dispatch`. False when
/// it doesn't hold within twenty seconds.
inline bool PumpUntil(
    const std::function<bool()>& condition,
    const std::function<void(MSG&)>& dispatch = [](MSG& message) { DispatchMessageW(&message); }) {
    const ULONGLONG deadline = GetTickCount64() + 20000;
    while (!condition()) {
        if (GetTickCount64() > deadline) return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 100, QS_ALLINPUT);
        MSG message;
        if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) dispatch(message);
    }
    return true;
}
