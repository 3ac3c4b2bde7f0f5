#include "runtime/host/crash.h"

#include "runtime/exit_code.h"
#include "runtime/host/crash_report.h"
#include "runtime/host/crash_text.h"
#include "runtime/host/module_call.h"

#include <cxxabi.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

namespace drafthost {

namespace {

constexpr ULONG stackForReport = 64 * 1024;  // bytes, for the report of a stack overflow

/// An exception that was raised and may not have been handled.
struct NotedException {
    bool isNoted = false;
    wchar_t what[128] = {};
    CodePlace place;
    CodePlace caller;  ///< in a module's code, when `place` isn't
};

bool g_watching = false;
bool g_endExpected = false;
volatile bool g_reporting = false;
DWORD g_hostThread = 0;
const wchar_t* g_moduleInLoader = nullptr;
int g_uncaughtBeforeLoader = 0;
NotedException g_hardware;  ///< within a loader call
NotedException g_throw;     ///< the last C++ exception on the host's thread

bool IsOnHostThread() {
    return GetCurrentThreadId() == g_hostThread;
}

[[noreturn]] void End() {
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(ExitCode::ModuleCrashed));
    for (;;)
        Sleep(INFINITE);
}

CrashReport NewReport() {
    CrashReport report;
    report.moduleBeingLoaded = g_moduleInLoader;
    report.isAtProcessEnd = g_endExpected;
    return report;
}

void Note(const EXCEPTION_POINTERS& pointers, NotedException& noted) {
    const EXCEPTION_RECORD& record = *pointers.ExceptionRecord;
    noted = {};
    noted.isNoted = true;
    DescribeException(record.ExceptionCode, record.NumberParameters, record.ExceptionInformation,
                      noted.what, 128);
    noted.place = PlaceOf(record.ExceptionAddress);
    if (!noted.place.isOfModule) noted.caller = InnermostModulePlace(*pointers.ContextRecord);
}

[[noreturn]] void ReportAndEnd(const NotedException& noted) {
    g_reporting = true;
    CrashReport report = NewReport();
    report.what = noted.what;
    report.place = noted.place;
    report.caller = noted.caller;
    WriteCrashReport(report, IsOnHostThread());
    End();
}

[[noreturn]] void ReportAndEnd(const EXCEPTION_POINTERS& pointers) {
    static NotedException noted;  // Off the stack, of which there may be little.
    g_reporting = true;
    Note(pointers, noted);
    ReportAndEnd(noted);
}

/// Sees every exception first, before anybody could handle it.
LONG CALLBACK NoteException(EXCEPTION_POINTERS* pointers) {
    const DWORD code = pointers->ExceptionRecord->ExceptionCode;
    if (g_reporting && IsFatal(code)) End();
    // Nobody can handle this one, and the search for a handler would use up the rest of the stack.
    if (code == EXCEPTION_STACK_OVERFLOW) ReportAndEnd(*pointers);
    // The system swallows what leaves a window procedure, and the session would go on.
    if (IsFatal(code) && PlaceOf(pointers->ExceptionRecord->ExceptionAddress).isOfModule &&
        g_moduleInLoader == nullptr && !MayBeHandled(*pointers->ContextRecord)) {
        ReportAndEnd(*pointers);
    }
    if (!IsOnHostThread()) return EXCEPTION_CONTINUE_SEARCH;
    // The loader swallows it, and the process would end as if all were well.
    if (g_endExpected && IsFatal(code)) ReportAndEnd(*pointers);
    if (IsCppException(code)) {
        Note(*pointers, g_throw);
    } else if (g_moduleInLoader != nullptr && IsFatal(code)) {
        Note(*pointers, g_hardware);
    }
    return EXCEPTION_CONTINUE_SEARCH;
}

LONG CALLBACK ReportUnhandled(EXCEPTION_POINTERS* pointers) {
    if (g_reporting) End();
    ReportAndEnd(*pointers);
}

/// Keeps a part of this thread's stack for the report of its overflow.
void KeepStackForReport() {
    ULONG guarantee = stackForReport;
    SetThreadStackGuarantee(&guarantee);
    // Where the whole stack is committed from the start, the guard page lies at its very end and
    // the guarantee doesn't move it; a page of our own does. Elsewhere the page isn't there yet,
    // and the call fails.
    MEMORY_BASIC_INFORMATION region = {};
    VirtualQuery(&guarantee, &region, sizeof region);
    DWORD before = 0;
    VirtualProtect(static_cast<BYTE*>(region.AllocationBase) + stackForReport, 1,
                   PAGE_READWRITE | PAGE_GUARD, &before);
}

/// The type and text of the exception being handled.
std::wstring DescribeCurrentException() {
    std::string text = "C++ exception";
    if (const std::type_info* type = abi::__cxa_current_exception_type()) {
        int status = 0;
        char* readable = abi::__cxa_demangle(type->name(), nullptr, nullptr, &status);
        text += std::string(" of type ") + (readable != nullptr ? readable : type->name());
        std::free(readable);
    }
    try {
        throw;
    } catch (const std::exception& exception) {
        text += std::string(", \"") + exception.what() + "\"";
    } catch (...) {
        // Any other type has no text to show.
    }
    const int size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), size)));
    return wide;
}

/// Reports a process end that isn't the host's own doing.
void ReportUnexpectedEnd() {
    if (!g_watching || g_endExpected || g_reporting) return;
    g_reporting = true;
    CrashReport report = NewReport();
    report.what = L"exit or abort was called, which ends the process";
    WriteCrashReport(report, IsOnHostThread());
    End();
}

}  // namespace

void WatchForCrashes() {
    g_watching = true;
    g_hostThread = GetCurrentThreadId();
    KeepStackForReport();
    AddVectoredExceptionHandler(TRUE, NoteException);
    RenewCrashFilter();
}

void RenewCrashFilter() {
    if (g_watching) SetUnhandledExceptionFilter(ReportUnhandled);
}

void ExpectProcessEnd() {
    g_endExpected = true;
}

LoaderCall::LoaderCall(const wchar_t* moduleName) {
    g_hardware = {};
    g_uncaughtBeforeLoader = std::uncaught_exceptions();
    g_moduleInLoader = moduleName;
}

LoaderCall::~LoaderCall() {
    if (g_hardware.isNoted) ReportAndEnd(g_hardware);
    EndAfterSwallowedException(g_uncaughtBeforeLoader);
    g_moduleInLoader = nullptr;
}

void EndAfterSwallowedException(int uncaughtBefore) {
    if (g_watching && std::uncaught_exceptions() > uncaughtBefore) ReportAndEnd(g_throw);
}

void EndAfterException() {
    g_reporting = true;
    const CodePlace place = g_throw.caller;  // The description throws too.
    const std::wstring what = DescribeCurrentException();
    CrashReport report = NewReport();
    report.what = what.c_str();
    report.placeLead = L"thrown at";
    report.place = place;
    WriteCrashReport(report, IsOnHostThread());
    End();
}

}  // namespace drafthost

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void* isProcessEnding) {
    if (reason == DLL_PROCESS_DETACH && isProcessEnding != nullptr) {
        drafthost::ReportUnexpectedEnd();
    }
    return TRUE;
}
