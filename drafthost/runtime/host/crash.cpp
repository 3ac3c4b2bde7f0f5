#include "runtime/host/crash.h"

#include "runtime/exit_code.h"
#include "runtime/host/calling_module.h"
#include "runtime/host/crash_text.h"
#include "runtime/host/module_call.h"

#include <cxxabi.h>

#include <cstdint>
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
    EXCEPTION_RECORD record = {};
    const void* frame = nullptr;  ///< the innermost return address in the running module
};

bool g_watching = false;
bool g_endExpected = false;
volatile bool g_reporting = false;
DWORD g_hostThread = 0;
bool g_inLoaderCall = false;
int g_uncaughtBeforeLoaderCall = 0;
NotedException g_hardware;  ///< within a loader call
NotedException g_throw;     ///< the last C++ exception on the host's thread

/// Ready for use when the heap isn't.
wchar_t g_line[1024];
char g_bytes[4096];

void WriteRaw(const wchar_t* text) {
    const int size =
        WideCharToMultiByte(CP_UTF8, 0, text, -1, g_bytes, sizeof g_bytes, nullptr, nullptr);
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), g_bytes, static_cast<DWORD>(size > 0 ? size - 1 : 0),
              &written, nullptr);  // Result ignored: there is nowhere to complain.
}

template <class... Arguments>
void WriteRawLine(const wchar_t* format, Arguments... arguments) {
    _snwprintf(g_line, 1023, format, arguments...);
    g_line[1023] = 0;
    WriteRaw(g_line);
}

/// The file name of the image that holds the address, without heap and with a buffer of its own.
const wchar_t* ImageName(HMODULE module) {
    static wchar_t path[MAX_PATH];
    if (module == nullptr || GetModuleFileNameW(module, path, MAX_PATH) == 0) return L"?";
    const wchar_t* slash = wcsrchr(path, L'\\');
    return slash == nullptr ? path : slash + 1;
}

const wchar_t* RunningModuleName() {
    const ModuleCall* call = ModuleCall::Innermost();
    if (call == nullptr) return nullptr;
    return call->Module() == nullptr ? L"the module being loaded" : ImageName(call->Module());
}

void WriteAddress(const wchar_t* lead, const void* address) {
    const HMODULE module = ModuleAt(address);
    if (module == nullptr) {
        WriteRawLine(L"drafthost:   %s 0x%016I64X, which is no module's\n", lead,
                     reinterpret_cast<std::uint64_t>(address));
        return;
    }
    WriteRawLine(L"drafthost:   %s %s + 0x%I64X\n", lead, ImageName(module),
                 static_cast<std::uint64_t>(static_cast<const BYTE*>(address) -
                                            reinterpret_cast<const BYTE*>(module)));
}

void WriteWho() {
    if (GetCurrentThreadId() != g_hostThread) {
        WriteRawLine(L"drafthost: crash on thread %lu, which isn't the host's\n",
                     GetCurrentThreadId());
    }
    const ModuleCall* call = ModuleCall::Innermost();
    if (call == nullptr) {
        WriteRaw(L"drafthost: crash while no module was called\n");
        return;
    }
    WriteRawLine(L"drafthost: crash in %s, called for %s\n", RunningModuleName(), call->What());
}

/// The innermost frame that lies in the running module; null when there is none.
const void* FrameInRunningModule() {
    const ModuleCall* call = ModuleCall::Innermost();
    if (call == nullptr || call->Module() == nullptr) return nullptr;
    void* frames[62] = {};
    const USHORT count = RtlCaptureStackBackTrace(0, 62, frames, nullptr);
    for (USHORT index = 0; index < count; ++index) {
        if (IsInModule(call->Module(), frames[index])) return frames[index];
    }
    return nullptr;
}

[[noreturn]] void End() {
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(ExitCode::ModuleCrashed));
    for (;;)
        Sleep(INFINITE);
}

[[noreturn]] void ReportAndEnd(const EXCEPTION_RECORD& record, const void* frame) {
    g_reporting = true;
    WriteWho();
    wchar_t what[128];
    DescribeException(record.ExceptionCode, record.NumberParameters, record.ExceptionInformation,
                      what, 128);
    WriteRawLine(L"drafthost:   %s (0x%08lX)\n", what, record.ExceptionCode);
    WriteAddress(L"at", record.ExceptionAddress);
    const HMODULE module = ModuleAt(record.ExceptionAddress);
    if (frame != nullptr && ModuleAt(frame) != module) WriteAddress(L"called from", frame);
    End();
}

LONG CALLBACK NoteException(EXCEPTION_POINTERS* pointers) {
    const EXCEPTION_RECORD& record = *pointers->ExceptionRecord;
    if (g_reporting && IsFatal(record.ExceptionCode)) End();
    // Here rather than in the filter: less of the stack is used up.
    if (record.ExceptionCode == EXCEPTION_STACK_OVERFLOW) ReportAndEnd(record, nullptr);
    if (GetCurrentThreadId() != g_hostThread) return EXCEPTION_CONTINUE_SEARCH;
    if (IsCppException(record.ExceptionCode)) {
        g_throw = {true, record, FrameInRunningModule()};
    } else if (g_inLoaderCall && IsFatal(record.ExceptionCode)) {
        g_hardware = {true, record, FrameInRunningModule()};
    }
    return EXCEPTION_CONTINUE_SEARCH;
}

LONG CALLBACK ReportUnhandled(EXCEPTION_POINTERS* pointers) {
    if (g_reporting) End();
    ReportAndEnd(*pointers->ExceptionRecord, FrameInRunningModule());
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
    }
    const int size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), size)));
    return wide;
}

}  // namespace

void WatchForCrashes() {
    g_watching = true;
    g_hostThread = GetCurrentThreadId();
    ULONG guarantee = stackForReport;
    SetThreadStackGuarantee(&guarantee);
    AddVectoredExceptionHandler(TRUE, NoteException);
    RenewCrashFilter();
}

void RenewCrashFilter() {
    if (g_watching) SetUnhandledExceptionFilter(ReportUnhandled);
}

void ExpectProcessEnd() {
    g_endExpected = true;
}

void BeginLoaderCall() {
    g_hardware = {};
    g_uncaughtBeforeLoaderCall = std::uncaught_exceptions();
    g_inLoaderCall = true;
}

void EndLoaderCall() {
    g_inLoaderCall = false;
    if (g_hardware.isNoted) ReportAndEnd(g_hardware.record, g_hardware.frame);
    if (std::uncaught_exceptions() > g_uncaughtBeforeLoaderCall) {
        ReportAndEnd(g_throw.record, g_throw.frame);
    }
}

void EndAfterException() {
    g_reporting = true;
    const std::wstring what = DescribeCurrentException();
    WriteWho();
    WriteRawLine(L"drafthost:   %s\n", what.c_str());
    if (g_throw.frame != nullptr) WriteAddress(L"thrown at", g_throw.frame);
    End();
}

/// Reports a process end that isn't the host's own doing: a module has called exit or abort.
void ReportUnexpectedEnd() {
    if (!g_watching || g_endExpected || g_reporting) return;
    g_reporting = true;
    const wchar_t* module = RunningModuleName();
    if (module == nullptr) {
        WriteRaw(L"drafthost: crash: the process was ended while no module was called\n");
    } else {
        WriteRawLine(L"drafthost: crash in %s, called for %s\n", module,
                     ModuleCall::Innermost()->What());
        WriteRaw(L"drafthost:   the module ended the process\n");
    }
    End();
}

}  // namespace drafthost

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void* isProcessEnding) {
    if (reason == DLL_PROCESS_DETACH && isProcessEnding != nullptr) {
        drafthost::ReportUnexpectedEnd();
    }
    return TRUE;
}
