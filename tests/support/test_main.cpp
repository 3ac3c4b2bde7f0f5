// The main of every test program: runs the tests, or one scenario for a parent test, and turns a
// hang into the stacks of all threads.

#include "support/child_scenario.h"
#include "support/test_progress.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>
// Needs windows.h ahead of it.
#include <dbghelp.h>
#include <tlhelp32.h>

#include <cstdio>
#include <cwchar>

namespace {

constexpr DWORD hangMilliseconds = 90000;  // Without progress; below ctest's time-out of a program.
constexpr UINT hangExitCode = 99;

const ChildScenario* g_scenarios = nullptr;
HANDLE g_finished = nullptr;
HANDLE g_progress = nullptr;

class ProgressListener : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override { ReportTestProgress(); }
};

void PrintFrame(DWORD64 address) {
    HMODULE module = nullptr;
    wchar_t path[MAX_PATH] = L"?";
    if (GetModuleHandleExW(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            reinterpret_cast<LPCWSTR>(address), &module)) {
        GetModuleFileNameW(module, path, MAX_PATH);
    }
    std::fprintf(stderr, "    %ls + 0x%llx\n", path,
                 static_cast<unsigned long long>(address - reinterpret_cast<DWORD64>(module)));
}

void PrintStack(DWORD threadId) {
    HANDLE thread = OpenThread(THREAD_ALL_ACCESS, FALSE, threadId);
    if (thread == nullptr) return;
    SuspendThread(thread);
    CONTEXT context = {};
    context.ContextFlags = CONTEXT_FULL;
    std::fprintf(stderr, "  thread %lu\n", threadId);
    if (GetThreadContext(thread, &context)) {
        STACKFRAME64 frame = {};
        frame.AddrPC = {context.Rip, 0, AddrModeFlat};
        frame.AddrFrame = {context.Rbp, 0, AddrModeFlat};
        frame.AddrStack = {context.Rsp, 0, AddrModeFlat};
        for (int depth = 0; depth < 40; ++depth) {
            if (!StackWalk64(IMAGE_FILE_MACHINE_AMD64, GetCurrentProcess(), thread, &frame,
                             &context, nullptr, SymFunctionTableAccess64, SymGetModuleBase64,
                             nullptr) ||
                frame.AddrPC.Offset == 0) {
                break;
            }
            PrintFrame(frame.AddrPC.Offset);
        }
    }
    ResumeThread(thread);
    CloseHandle(thread);
}

DWORD WINAPI WatchForHang(void*) {
    const HANDLE events[] = {g_finished, g_progress};
    DWORD reason = WAIT_TIMEOUT;
    do {
        reason = WaitForMultipleObjects(2, events, FALSE, hangMilliseconds);
        if (reason == WAIT_OBJECT_0) return 0;
    } while (reason != WAIT_TIMEOUT);
    std::fprintf(stderr, "a test hangs; stacks of all threads:\n");
    SymInitialize(GetCurrentProcess(), nullptr, TRUE);
    HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 entry = {};
    entry.dwSize = sizeof entry;
    for (BOOL more = Thread32First(snapshot, &entry); more; more = Thread32Next(snapshot, &entry)) {
        if (entry.th32OwnerProcessID == GetCurrentProcessId() &&
            entry.th32ThreadID != GetCurrentThreadId()) {
            PrintStack(entry.th32ThreadID);
        }
    }
    std::fflush(nullptr);
    TerminateProcess(GetCurrentProcess(), hangExitCode);
    return 0;
}

}  // namespace

void ReportTestProgress() {
    SetEvent(g_progress);
}

ChildScenario::ChildScenario(const wchar_t* name, int (*function)())
    : name(name), function(function), next(g_scenarios) {
    g_scenarios = this;
}

ChildResult RunScenario(const std::wstring& name, const ChildOptions& options) {
    return RunChild(OwnCommandLine(L"--scenario " + name), options);
}

int wmain(int argc, wchar_t** argv) {
    if (argc >= 3 && std::wcscmp(argv[1], L"--scenario") == 0) {
        for (const ChildScenario* entry = g_scenarios; entry != nullptr; entry = entry->next) {
            if (std::wcscmp(entry->name, argv[2]) == 0) return entry->function();
        }
        std::fprintf(stderr, "no scenario %ls\n", argv[2]);
        return 98;
    }
    g_finished = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    g_progress = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    HANDLE watcher = CreateThread(nullptr, 0, WatchForHang, nullptr, 0, nullptr);
    testing::InitGoogleMock(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new ProgressListener);
    const int result = RUN_ALL_TESTS();
    SetEvent(g_finished);
    WaitForSingleObject(watcher, INFINITE);
    return result;
}
