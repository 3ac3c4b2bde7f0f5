#include "ui/about_fixture.h"

#include "drafthost/framework/dialog_driver.h"
#include "host/module_handles.h"
#include "install/install_record.h"
#include "ui/about_dialog.h"
#include "ui/module_file.h"

AboutFixture::AboutFixture() {
    g_moduleInstance = ModuleFile();
    ModuleExtensionRecord.m_moduleResource = ModuleFile();
    InstallVersion = L"1.0";
    AfxSetResourceHandle(ModuleFile());
}

AboutFixture::~AboutFixture() {
    AfxSetResourceHandle(nullptr);
    InstallVersion.clear();
    ModuleExtensionRecord.m_moduleResource = nullptr;
    g_moduleInstance = nullptr;
}

int AboutFixture::Show(int initialTab, const std::function<void(HWND dialog)>& look) {
    DialogDriver driver({[&](HWND dialog) {
        look(dialog);
        ClickOk(dialog);
    }});
    AboutDialog(initialTab).DoModal();
    return driver.m_painted;
}

HWND AboutFixture::Descendant(HWND dialog, int id) {
    struct Search {
        int id;
        HWND found;
    } search = {id, nullptr};
    EnumChildWindows(
        dialog,
        [](HWND window, LPARAM parameter) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(parameter);
            if (GetDlgCtrlID(window) == wanted.id) wanted.found = window;
            return wanted.found == nullptr;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::wstring AboutFixture::TextOf(HWND window) {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(
        static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}
