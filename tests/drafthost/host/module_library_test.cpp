// What a host tells of a file that the system doesn't load.

#include "runtime/control.h"
#include "support/child_process.h"
#include "support/import_hook.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace {

DWORD g_error = ERROR_SUCCESS;

HMODULE WINAPI FailToLoad(const wchar_t*, HANDLE, DWORD) {
    SetLastError(g_error);
    return nullptr;
}

}  // namespace

// Not every system gives each of these errors: Wine loads a library that lacks a function.
TEST(LoadModule, TellsWhyTheSystemDoesntLoadIt) {
    struct Row {
        DWORD error;
        const wchar_t* reason;
    };
    constexpr Row rows[] = {
        {ERROR_BAD_EXE_FORMAT, L"it is no library for 64-bit Windows (error 193)."},
        {ERROR_MOD_NOT_FOUND, L"a library that it needs is missing (error 126)."},
        {ERROR_PROC_NOT_FOUND, L"a library that it needs lacks a function (error 127)."},
        {ERROR_DLL_INIT_FAILED, L"its DllMain refused (error 1114)."},
        {ERROR_ACCESS_DENIED, L"the system doesn't load it (error 5)."},
    };
    const TempFolder folder;
    const std::wstring path = folder / L"module.arx";
    WriteFileBytes(path, "");
    const ImportHook<decltype(&LoadLibraryExW)> hook(GetModuleHandleW(L"drafthost17.dll"),
                                                     "KERNEL32.dll", "LoadLibraryExW", &FailToLoad);
    for (const Row& row : rows) {
        g_error = row.error;
        std::wstring problem;

        EXPECT_EQ(drafthost::LoadModule(path, &problem), drafthost::LoadResult::NotLoaded);

        EXPECT_EQ(problem, path + L" can't be loaded: " + row.reason);
    }
}

TEST(LoadModule, TellsThatALibraryIsMissing) {
    const std::wstring path = ProgramFolder() + L"\\needs_library.arx";
    std::wstring problem;

    EXPECT_EQ(drafthost::LoadModule(path, &problem), drafthost::LoadResult::NotLoaded);

    EXPECT_EQ(problem, path + L" can't be loaded: a library that it needs is missing (error 126).");
}
