// The command LoadKVT of the built module, in a host session inside this program, so that the
// test can look at the dialog's windows and at the module's calls.

#include "drafthost/framework/dialog_driver.h"
#include "e2e/installation.h"
#include "support/child_scenario.h"
#include "support/import_hook.h"
#include "ui/approved_picture.h"
#include "ui/image_hooks.h"

#include "runtime/control.h"

#include <afxwin.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <string>

// gdiplus.h needs windows.h and objidl.h ahead of it.
#include <objidl.h>

#include <gdiplus.h>
#include <winhttp.h>

namespace {

/// One session for the program: a host's services end with their session.
class AboutInHost : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        m_installation = std::make_unique<Installation>();
        m_installation->Registry().SetVersion(L"2.1.0");
        drafthost::HostOptions options;
        options.profile = m_installation->ProfileName();
        ASSERT_TRUE(drafthost::StartHost(options));
        ASSERT_EQ(drafthost::NewDrawing(), drafthost::OpenResult::Opened);
        ASSERT_EQ(drafthost::LoadModule(m_installation->ModulePath()),
                  drafthost::LoadResult::Loaded);
    }
    static void TearDownTestSuite() {
        drafthost::ShutDownHost();
        EXPECT_EQ(drafthost::OffenceCount(), 0u);
        m_installation.reset();
    }

    static std::unique_ptr<Installation> m_installation;
};
std::unique_ptr<Installation> AboutInHost::m_installation;

TEST_F(AboutInHost, LoadKVTShowsTheApprovedDialog) {
    std::unique_ptr<Canvas> shown;
    DialogDriver driver({[&](HWND dialog) {
        shown = CaptureWindow(dialog);
        ClickOk(dialog);
    }});

    EXPECT_EQ(drafthost::RunCommand(L"LoadKVT"), drafthost::CommandResult::Done);

    ASSERT_NE(shown, nullptr);
    EXPECT_TRUE(LookAlike(*shown, *ApprovedPicture()));
    if (HasFailure()) KeepForALook(*shown);
}

TEST_F(AboutInHost, TheSessionGoesOnBehindEachEnd) {
    DialogDriver driver({ClickOk, ClickCloseBox, PressKey(VK_ESCAPE), ClickOk});
    const HINSTANCE resources = AfxGetResourceHandle();

    for (int run = 1; run <= 4; ++run) {
        EXPECT_EQ(drafthost::RunCommand(L"_LoadKVT"), drafthost::CommandResult::Done);
        EXPECT_EQ(driver.m_painted, run);
        EXPECT_EQ(AfxGetResourceHandle(), resources);
    }

    EXPECT_EQ(driver.m_closed, 4);
    EXPECT_EQ(drafthost::OffenceCount(), 0u);
}

// Tips, requests and the drawing library, which nothing of a whole run needs.

int g_calls = 0;

void NoteCall(const char* name) {
    ++g_calls;
    std::fprintf(stderr, "%s\n", name);
}

Gdiplus::GpStatus WINAPI NoteStartup(ULONG_PTR*, const Gdiplus::GdiplusStartupInput*,
                                     Gdiplus::GdiplusStartupOutput*) {
    NoteCall("GdiplusStartup");
    return Gdiplus::GenericError;
}
HINTERNET WINAPI NoteRequest(LPCWSTR, DWORD, LPCWSTR, LPCWSTR, DWORD) {
    NoteCall("WinHttpOpen");
    return nullptr;
}
UINT_PTR WINAPI NoteTimer(HWND, UINT_PTR, UINT, TIMERPROC) {
    NoteCall("SetTimer");
    return 0;
}
BOOL NoteWindow(CWnd*, DWORD, LPCWSTR, LPCWSTR, DWORD, int, int, int, int, HWND, HMENU, LPVOID) {
    NoteCall("CWnd::CreateEx");
    return FALSE;
}

/// Stands in the way of them in the module and behind it.
struct QuietParts {
    explicit QuietParts(HMODULE module)
        : request(module, nullptr, "WinHttpOpen", &NoteRequest),
          timer(module, nullptr, "SetTimer", &NoteTimer),
          window(module, nullptr, "_ZN4CWnd8CreateExEmPKwS1_miiiiP6HWND__P7HMENU__Pv", &NoteWindow),
          startup(RuntimeDll(), nullptr, "GdiplusStartup", &NoteStartup) {}

    ImportHook<decltype(&WinHttpOpen)> request;
    ImportHook<decltype(&SetTimer)> timer;
    ImportHook<decltype(&NoteWindow)> window;
    ImportHook<decltype(&NoteStartup)> startup;
};

bool Imports(HMODULE module, const char* function) {
    try {
        const ImportHook<decltype(&NoteStartup)> hook(module, nullptr, function, &NoteStartup);
        return true;
    } catch (const std::runtime_error&) {
        return false;
    }
}

/// Opens drawings, runs the command, closes and ends; false when a step failed.
bool RunTheWholeSession() {
    DialogDriver driver({ClickOk});
    bool done = drafthost::NewDrawing() == drafthost::OpenResult::Opened;
    done = drafthost::NewDrawing() == drafthost::OpenResult::Opened && done;
    done = drafthost::RunCommand(L"LoadKVT") == drafthost::CommandResult::Done && done;
    done = drafthost::CloseDrawing() && done;
    drafthost::ShutDownHost();
    return done && driver.m_painted == 1 && drafthost::OffenceCount() == 0;
}

// The module is in the process before the host loads it, so that its calls are seen from its start
// on, and it goes with the hooks in place. The exit code is 0 for a quiet run.
CHILD_SCENARIO(WholeRunWithTheCommand) {
    Installation installation;
    drafthost::HostOptions options;
    options.profile = installation.ProfileName();
    bool done = drafthost::StartHost(options);
    const HMODULE module = LoadLibraryW(installation.ModulePath().c_str());
    if (Imports(module, "GdiplusStartup")) NoteCall("GdiplusStartup is imported");
    static_cast<void>(std::make_unique<QuietParts>(module).release());

    const auto loaded = drafthost::LoadModule(installation.ModulePath());
    FreeLibrary(module);  // The host holds it from here on.
    done = RunTheWholeSession() && loaded == drafthost::LoadResult::Loaded && done;

    if (!done) return 1;
    if (GetModuleHandleW(L"KVTCAD.arx") != nullptr) return 2;
    return g_calls == 0 ? 0 : 3;
}

TEST(WholeRun, WakesNeitherTipNorRequestNorDrawingLibrary) {
    const ChildResult child = RunScenario(L"WholeRunWithTheCommand");

    EXPECT_EQ(child.exitCode, 0u) << child.errors;
}

}  // namespace
