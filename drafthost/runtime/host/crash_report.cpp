#include "runtime/host/crash_report.h"

#include "runtime/host/module_call.h"

#include <cstdarg>
#include <cstdio>

namespace drafthost {

namespace {

void WriteLine(const wchar_t* format, ...) {
    static wchar_t line[1024];
    static char bytes[4096];
    va_list arguments;
    va_start(arguments, format);
    _vsnwprintf(line, 1023, format, arguments);
    va_end(arguments);
    line[1023] = 0;
    const int size =
        WideCharToMultiByte(CP_UTF8, 0, line, -1, bytes, sizeof bytes, nullptr, nullptr);
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), bytes, static_cast<DWORD>(size > 0 ? size - 1 : 0),
              &written, nullptr);  // Result ignored: there is nowhere to complain.
}

void WritePlace(const wchar_t* lead, const CodePlace& place) {
    if (!place.isKnown) return;
    if (place.image[0] == 0) {
        WriteLine(L"drafthost:   %s 0x%016I64X, which is in no image\n", lead, place.offset);
    } else {
        WriteLine(L"drafthost:   %s %s + 0x%I64X\n", lead, place.image, place.offset);
    }
}

void WriteWho(const CrashReport& report, bool isHostThread) {
    const ModuleCall* call = ModuleCall::Innermost();
    CodePlace image;
    if (call != nullptr && call->Module() != nullptr) image = PlaceOf(call->Module());
    const wchar_t* name = report.moduleBeingLoaded != nullptr ? report.moduleBeingLoaded
                          : image.image[0] != 0               ? image.image
                                                              : L"the program";
    if (report.isAtProcessEnd) {
        WriteLine(L"drafthost: crash at the end of the process\n");
    } else if (!isHostThread) {
        WriteLine(L"drafthost: crash on thread %lu, which isn't the host's\n",
                  GetCurrentThreadId());
        if (call != nullptr) {
            WriteLine(L"drafthost:   the host was calling %s for %s\n", name, call->What());
        }
    } else if (call == nullptr) {
        WriteLine(L"drafthost: crash while no module was called\n");
    } else {
        WriteLine(L"drafthost: crash in %s, called for %s\n", name, call->What());
    }
}

}  // namespace

void WriteCrashReport(const CrashReport& report, bool isHostThread) {
    WriteWho(report, isHostThread);
    WriteLine(L"drafthost:   %s\n", report.what);
    WritePlace(report.placeLead, report.place);
    WritePlace(L"called from", report.caller);
}

}  // namespace drafthost
