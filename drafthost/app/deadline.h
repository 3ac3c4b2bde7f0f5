#pragma once

#include "runtime/exit_code.h"

#include <windows.h>

#include <chrono>
#include <string>

namespace drafthost {

/// Ends the process when something takes too long, also while its own thread hangs: the text goes
/// to the standard error, `DialogFailed` becomes the exit code.
class Deadline {
  public:
    explicit Deadline(std::chrono::milliseconds length);
    Deadline(const Deadline&) = delete;
    Deadline& operator=(const Deadline&) = delete;
    ~Deadline();

    /// Starts anew from now; `complaint` is what to say at the end.
    void Arm(const wchar_t* complaint);
    void Disarm();

  private:
    static void CALLBACK OnExpired(PTP_CALLBACK_INSTANCE instance, void* deadline, PTP_TIMER timer);

    const std::chrono::milliseconds m_length;
    PTP_TIMER m_timer;
    const wchar_t* m_complaint = nullptr;
};

}  // namespace drafthost
