// The command LoadKVT of the built module, in a host session inside this program, so that the
// test can look at the dialog's windows and at the module's calls.

#include "drafthost/framework/dialog_driver.h"
#include "e2e/installation.h"
#include "support/import_hook.h"
#include "ui/approved_picture.h"
#include "ui/image_hooks.h"

#include "runtime/control.h"

#include <afxwin.h>

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>

// gdiplus.h needs windows.h and objidl.h ahead of it.
#include <objidl.h>

#include <gdiplus.h>
#include <winhttp.h>

namespace {

int g_calls = 0;

Gdiplus::GpStatus WINAPI CountStartup(ULONG_PTR*, const Gdiplus::GdiplusStartupInput*,
                                      Gdiplus::GdiplusStartupOutput*) {
    ++g_calls;
    return Gdiplus::GenericError;
}
HINTERNET WINAPI CountRequest(LPCWSTR, DWORD, LPCWSTR, LPCWSTR, DWORD) {
    ++g_calls;
    return nullptr;
}
UINT_PTR WINAPI CountTimer(HWND, UINT_PTR, UINT, TIMERPROC) {
    ++g_calls;
    return 0;
}
BOOL CountWindow(CWnd*, DWORD, LPCWSTR, LPCWSTR, DWORD, int, int, int, int, HWND, HMENU, LPVOID) {
    ++g_calls;
    return FALSE;
}

/// One session for the program: a host's services end with their session.
class AboutInHost : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        m_installation = std::make_unique<Installation>();
        m_installation->Registry().SetVersion(L"2.1.0");
        drafthost::HostOptions options;
        options.profile = profile;
        ASSERT_TRUE(drafthost::StartHost(options));
        ASSERT_EQ(drafthost::NewDrawing(), drafthost::OpenResult::Opened);
        ASSERT_EQ(drafthost::LoadModule(m_installation->ModulePath()),
                  drafthost::LoadResult::Loaded);
    }
    static void TearDownTestSuite() {
        drafthost::ShutDownHost();
        EXPECT_EQ(drafthost::OffenceCount(), 0u);
        RegDeleteTreeW(HKEY_CURRENT_USER,
                       (std::wstring(L"Software\\Drafthost\\Profiles\\") + profile).c_str());
        m_installation.reset();
    }

    static constexpr wchar_t profile[] = L"about test";
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

TEST_F(AboutInHost, NeitherTipNorRequestNorDrawingLibraryIsWoken) {
    HMODULE module = GetModuleHandleW(L"KVTCAD.arx");
    const ImportHook<decltype(&WinHttpOpen)> request(module, nullptr, "WinHttpOpen", &CountRequest);
    const ImportHook<decltype(&SetTimer)> timer(module, nullptr, "SetTimer", &CountTimer);
    const ImportHook<decltype(&CountWindow)> window(
        module, nullptr, "_ZN4CWnd8CreateExEmPKwS1_miiiiP6HWND__P7HMENU__Pv", &CountWindow);
    const ImportHook<decltype(&CountStartup)> startup(RuntimeDll(), nullptr, "GdiplusStartup",
                                                      &CountStartup);
    DialogDriver driver({ClickOk});
    g_calls = 0;

    EXPECT_EQ(drafthost::NewDrawing(), drafthost::OpenResult::Opened);
    EXPECT_EQ(drafthost::RunCommand(L"LoadKVT"), drafthost::CommandResult::Done);

    EXPECT_EQ(driver.m_painted, 1);
    EXPECT_EQ(g_calls, 0);
}

}  // namespace
