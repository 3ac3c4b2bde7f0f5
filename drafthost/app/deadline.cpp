#include "app/deadline.h"

#include "runtime/control.h"

namespace drafthost {

Deadline::Deadline(std::chrono::milliseconds length)
    : m_length(length), m_timer(CreateThreadpoolTimer(OnExpired, this, nullptr)) {}

Deadline::~Deadline() {
    Disarm();
    WaitForThreadpoolTimerCallbacks(m_timer, TRUE);
    CloseThreadpoolTimer(m_timer);
}

void Deadline::Arm(const wchar_t* complaint) {
    Disarm();
    m_complaint = complaint;
    // In units of 100 nanoseconds; a negative number counts from now.
    const long long due = -10000LL * m_length.count();
    FILETIME time;
    time.dwLowDateTime = static_cast<DWORD>(due);
    time.dwHighDateTime = static_cast<DWORD>(due >> 32);
    SetThreadpoolTimer(m_timer, &time, 0, 0);
}

void Deadline::Disarm() {
    SetThreadpoolTimer(m_timer, nullptr, 0, 0);
}

void CALLBACK Deadline::OnExpired(PTP_CALLBACK_INSTANCE, void* deadline, PTP_TIMER) {
    PrintError(static_cast<Deadline*>(deadline)->m_complaint);
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(ExitCode::DialogFailed));
}

}  // namespace drafthost
