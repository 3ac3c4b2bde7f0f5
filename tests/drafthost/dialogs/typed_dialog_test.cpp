// A dialog that a line typed at a real console opens.

#include "host_run.h"
#include "support/child_scenario.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <filesystem>

namespace {

/// Types the text at the console of this process.
void Type(HANDLE consoleInput, const std::wstring& text) {
    for (const wchar_t character : text) {
        INPUT_RECORD key = {};
        key.EventType = KEY_EVENT;
        key.Event.KeyEvent.bKeyDown = TRUE;
        key.Event.KeyEvent.wRepeatCount = 1;
        key.Event.KeyEvent.wVirtualKeyCode = character == L'\r' ? VK_RETURN : 0;
        key.Event.KeyEvent.uChar.UnicodeChar = character;
        DWORD written = 0;
        WriteConsoleInputW(consoleInput, &key, 1, &written);
    }
}

/// Closes drafthost's dialog as a person does, once it is left to one; false when none comes up.
bool CloseDialog(HANDLE drafthost, const std::wstring& picture) {
    for (int round = 0; round < 2000; ++round) {
        const HWND dialog = FindWindowW(nullptr, L"form");
        if (dialog != nullptr && std::filesystem::exists(picture)) {
            // Comes back when drafthost is done with the picture and with any answer of its own.
            SendMessageW(dialog, WM_NULL, 0, 0);
            return PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0) != FALSE;
        }
        if (WaitForSingleObject(drafthost, 10) != WAIT_TIMEOUT) break;
    }
    return false;
}

// In a process of its own, which gets a console; the standard output stays the test's pipe.
CHILD_SCENARIO(TypesTheCommandOfADialog) {
    const TestProfile profile;
    const TempFolder pictures;
    SECURITY_ATTRIBUTES inheritable = {sizeof inheritable, nullptr, TRUE};
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    FreeConsole();
    AllocConsole();
    startup.hStdInput = CreateFileW(L"CONIN$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ,
                                    &inheritable, OPEN_EXISTING, 0, nullptr);
    Type(startup.hStdInput, L"Form\rQUIT\r");
    std::wstring line = L"\"" + ProgramFolder() + L"\\drafthost.exe\" --profile \"" +
                        profile.Name() + L"\"" + LoadOption(L"dialogs") + L"--capture \"" +
                        pictures.Path() + L"\"";
    PROCESS_INFORMATION process = {};
    CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                   &process);

    if (!CloseDialog(process.hProcess, pictures / L"dialog-01-form.png"))
        TerminateProcess(process.hProcess, 1);

    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD exitCode = 0;
    GetExitCodeProcess(process.hProcess, &exitCode);
    return static_cast<int>(exitCode);
}

}  // namespace

TEST(TypedDialog, IsLeftToThePerson) {
    const ChildResult child = RunScenario(L"TypesTheCommandOfADialog");

    EXPECT_FALSE(child.timedOut);
    EXPECT_EQ(child.exitCode, 0u) << child.errors;
    EXPECT_NE(child.output.find("the dialog gives 2"), std::string::npos) << child.output;
}
