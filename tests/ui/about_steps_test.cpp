// The order of the About dialog's steps, seen in its calls of the framework and the platform.

#include "ui/about_dialog.h"

#include "drafthost/framework/dialog_driver.h"
#include "host/fake_doc_manager.h"
#include "host/load_kvt_command.h"
#include "host/module_handles.h"
#include "support/call_journal.h"
#include "support/import_hook.h"
#include "ui/about_fixture.h"
#include "ui/image_hooks.h"
#include "ui/module_file.h"

#include <acdocman.h>
#include <afxdd_.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Steps = std::vector<std::wstring>;

// Members of framework classes as imported: the object comes as the first argument.

using OnInitDialogFunction = BOOL (*)(CAdUiBaseDialog*);
using ExchangeFunction = void (*)(CWnd*, CDataExchange*);
using SetTabFunction = void (*)(CAdUiTabMainDialog*, CAdUiTab*);
using AddTabFunction = int (*)(CAdUiTabMainDialog*, int, LPCWSTR, UINT, CAdUiTabChildDialog*);
using SetActiveTabFunction = BOOL (*)(CAdUiTab*, int);
using LoadFunction = void (*)(CImage*, HINSTANCE, UINT);

OnInitDialogFunction g_onInitDialog = nullptr;
ExchangeFunction g_exchange = nullptr;
SetTabFunction g_setTab = nullptr;
AddTabFunction g_addTab = nullptr;
SetActiveTabFunction g_setActiveTab = nullptr;
LoadFunction g_load = nullptr;
decltype(&DDX_Control) g_bindControl = nullptr;
decltype(&SetWindowTextW) g_setWindowText = nullptr;
decltype(&InvalidateRect) g_invalidateRect = nullptr;
decltype(&UpdateWindow) g_updateWindow = nullptr;
int g_addTabResult = 0;  ///< what AddTab is made to give, behind its real work

BOOL NoteOnInitDialog(CAdUiBaseDialog* dialog) {
    CallJournal::Add(dialog->IsKindOf(RUNTIME_CLASS(AboutPage)) ? L"page: base" : L"dialog: base");
    return g_onInitDialog(dialog);
}
void NoteExchange(CWnd* window, CDataExchange* exchange) {
    CallJournal::Add(window->IsKindOf(RUNTIME_CLASS(AboutPage)) ? L"page: base's DoDataExchange"
                                                                : L"dialog: base's DoDataExchange");
    g_exchange(window, exchange);
}
void NoteSetTab(CAdUiTabMainDialog* dialog, CAdUiTab* tab) {
    CallJournal::Add(L"dialog: SetAcadTabPointer " + std::to_wstring(tab->GetDlgCtrlID()));
    g_setTab(dialog, tab);
}
int NoteAddTab(CAdUiTabMainDialog* dialog, int index, LPCWSTR name, UINT templateId,
               CAdUiTabChildDialog* page) {
    CallJournal::Add(L"dialog: AddTab " + std::to_wstring(index) + L" " + name + L" " +
                     std::to_wstring(templateId));
    g_addTab(dialog, index, name, templateId, page);
    return g_addTabResult;
}
BOOL NoteSetActiveTab(CAdUiTab* tab, int index) {
    CallJournal::Add(L"dialog: SetActiveTab " + std::to_wstring(index));
    return g_setActiveTab(tab, index);
}
void NoteLoad(CImage* image, HINSTANCE instance, UINT id) {
    CallJournal::Add(std::wstring(L"page: LoadFromResource ") +
                     (instance == g_moduleInstance ? L"module" : L"another") + L" " +
                     std::to_wstring(id));
    g_load(image, instance, id);
}
void NoteBindControl(CDataExchange* exchange, int id, CWnd& control) {
    CallJournal::Add(L"DDX_Control " + std::to_wstring(id));
    g_bindControl(exchange, id, control);
}
BOOL WINAPI NoteSetWindowText(HWND window, LPCWSTR text) {
    CallJournal::Add(L"page: SetWindowText " + std::to_wstring(GetDlgCtrlID(window)));
    return g_setWindowText(window, text);
}
BOOL WINAPI NoteInvalidateRect(HWND window, const RECT* rectangle, BOOL erase) {
    CallJournal::Add(L"page: InvalidateRect " + std::to_wstring(GetDlgCtrlID(window)) +
                     (rectangle == nullptr ? L" all" : L" part") + (erase ? L" erasing" : L""));
    return g_invalidateRect(window, rectangle, erase);
}
BOOL WINAPI NoteUpdateWindow(HWND window) {
    CallJournal::Add(L"page: UpdateWindow " + std::to_wstring(GetDlgCtrlID(window)));
    return g_updateWindow(window);
}

/// Every framework and platform call of the two classes goes to the journal.
class AboutSteps : public AboutFixture {
  protected:
    AboutSteps() {
        CallJournal::Clear();
        g_onInitDialog = m_onInitDialog.Original();
        g_exchange = m_exchange.Original();
        g_setTab = m_setTab.Original();
        g_addTab = m_addTab.Original();
        g_setActiveTab = m_setActiveTab.Original();
        g_load = m_load.Original();
        g_bindControl = m_bindControl.Original();
        g_setWindowText = m_setWindowText.Original();
        g_invalidateRect = m_invalidateRect.Original();
        g_updateWindow = m_updateWindow.Original();
        g_addTabResult = 0;
    }

    const ImportHook<OnInitDialogFunction> m_onInitDialog{
        nullptr, "_ZN15CAdUiBaseDialog12OnInitDialogEv", &NoteOnInitDialog};
    const ImportHook<ExchangeFunction> m_exchange{
        nullptr, "_ZN4CWnd14DoDataExchangeEP13CDataExchange", &NoteExchange};
    const ImportHook<SetTabFunction> m_setTab{
        nullptr, "_ZN18CAdUiTabMainDialog17SetAcadTabPointerEP8CAdUiTab", &NoteSetTab};
    const ImportHook<AddTabFunction> m_addTab{
        nullptr, "_ZN18CAdUiTabMainDialog6AddTabEiPKwjP19CAdUiTabChildDialog", &NoteAddTab};
    const ImportHook<SetActiveTabFunction> m_setActiveTab{nullptr, "_ZN8CAdUiTab12SetActiveTabEi",
                                                          &NoteSetActiveTab};
    const ImportHook<LoadFunction> m_load{nullptr, "_ZN6CImage16LoadFromResourceEP11HINSTANCE__j",
                                          &NoteLoad};
    const ImportHook<decltype(&DDX_Control)> m_bindControl{
        nullptr, "_Z11DDX_ControlP13CDataExchangeiR4CWnd", &NoteBindControl};
    const ImportHook<decltype(&SetWindowTextW)> m_setWindowText{nullptr, "SetWindowTextW",
                                                                &NoteSetWindowText};
    const ImportHook<decltype(&InvalidateRect)> m_invalidateRect{nullptr, "InvalidateRect",
                                                                 &NoteInvalidateRect};
    const ImportHook<decltype(&UpdateWindow)> m_updateWindow{nullptr, "UpdateWindow",
                                                             &NoteUpdateWindow};
};

TEST_F(AboutSteps, AreTakenInOrder) {
    DialogDriver driver({ClickOk});
    AboutDialog dialog(0);

    dialog.DoModal();

    const Steps steps = {L"dialog: base", L"dialog: base's DoDataExchange", L"DDX_Control 105",
                         L"dialog: SetAcadTabPointer 105", L"dialog: AddTab 0 关于 130",
                         L"page: base", L"page: base's DoDataExchange", L"DDX_Control 125",
                         L"page: SetWindowText 124", L"page: LoadFromResource module 133",
                         L"page: InvalidateRect 125 all erasing", L"page: UpdateWindow 125",
                         L"dialog: SetActiveTab 0",
                         // OK: the framework goes over the controls once more.
                         L"dialog: base's DoDataExchange", L"DDX_Control 105"};
    EXPECT_EQ(CallJournal::Calls(), steps);
}

struct RemainderRow {
    const char* why;
    int initialTab;
    int addTabResult;
    const wchar_t* active;
};
constexpr RemainderRow remainders[] = {
    {"one tab: all go to it", 7, 0, L"dialog: SetActiveTab 0"},
    {"within", 1, 2, L"dialog: SetActiveTab 1"},
    {"the count itself", 3, 2, L"dialog: SetActiveTab 0"},
    {"beyond the last wraps", 7, 2, L"dialog: SetActiveTab 1"},
    {"signed remainder", -5, 2, L"dialog: SetActiveTab -2"},
};

TEST_F(AboutSteps, TheTabIsTheRemainderByTheCount) {
    for (const RemainderRow& row : remainders) {
        SCOPED_TRACE(row.why);
        CallJournal::Clear();
        g_addTabResult = row.addTabResult;

        Show(row.initialTab, [](HWND) {});

        EXPECT_EQ(CallJournal::Count(row.active), 1);
    }
}

// The end of the dialog.

using DestructorFunction = void (*)(void*);
DestructorFunction g_endWindow = nullptr;
DestructorFunction g_endImage = nullptr;
std::vector<std::uintptr_t> g_ended;  ///< addresses of windows' objects, now gone
size_t g_endedBeforeImage = 0;

void NoteEndOfWindow(void* window) {
    g_ended.push_back(reinterpret_cast<std::uintptr_t>(window));
    g_endWindow(window);
}
void NoteEndOfImage(void* image) {
    g_endedBeforeImage = g_ended.size();
    g_endImage(image);
}

TEST_F(AboutSteps, TheEndGoesFromTheLogoToTheDialog) {
    const ImportHook<DestructorFunction> endWindow(nullptr, "_ZN4CWndD2Ev", &NoteEndOfWindow);
    const ImportHook<DestructorFunction> endImage(nullptr, "_ZN6CImageD1Ev", &NoteEndOfImage);
    g_endWindow = endWindow.Original();
    g_endImage = endImage.Original();
    g_ended.clear();
    auto dialog = std::make_unique<AboutDialog>(0);
    const auto object = reinterpret_cast<std::uintptr_t>(dialog.get());

    dialog.reset();

    // In the object the dialog's base, the tab, the page and the page's logo follow one another.
    ASSERT_EQ(g_ended.size(), 4u);
    EXPECT_TRUE(std::is_sorted(g_ended.rbegin(), g_ended.rend())) << "logo, page, tab, dialog";
    EXPECT_EQ(g_ended.back(), object);
    EXPECT_EQ(g_endedBeforeImage, 0u);
}

// The opening sequence of the command.

/// Stands for the host's document manager.
class JournalDocumentManager : public FakeDocManager {
  public:
    void pushResourceHandle(HINSTANCE handle) override {
        CallJournal::Add(handle == ModuleExtensionRecord.m_moduleResource ? L"push module"
                                                                          : L"push another");
        AfxSetResourceHandle(handle);
    }
    void popResourceHandle() override {
        CallJournal::Add(L"pop");
        AfxSetResourceHandle(nullptr);
    }
};

AcApDocManager* GiveDocumentManager() {
    static JournalDocumentManager manager;
    CallJournal::Add(L"acDocManagerPtr");
    return &manager;
}

using ConstructorFunction = void (*)(CAcUiTabMainDialog*, UINT, CWnd*, HINSTANCE);
using PageConstructorFunction = void (*)(CAcUiTabChildDialog*, CWnd*, HINSTANCE);
ConstructorFunction g_constructor = nullptr;
PageConstructorFunction g_pageConstructor = nullptr;
decltype(&DeleteObject) g_deleteObject = nullptr;

void NoteConstructor(CAcUiTabMainDialog* dialog, UINT templateId, CWnd* parent,
                     HINSTANCE resources) {
    CallJournal::Add(L"construct " + std::to_wstring(templateId) +
                     (parent == nullptr ? L", no parent" : L", a parent") +
                     (resources == nullptr ? L", no resources" : L", resources"));
    g_constructor(dialog, templateId, parent, resources);
}
void NotePageConstructor(CAcUiTabChildDialog* page, CWnd* parent, HINSTANCE resources) {
    CallJournal::Add(std::wstring(L"construct page") +
                     (parent == nullptr ? L", no parent" : L", a parent") +
                     (resources == nullptr ? L", no resources" : L", resources"));
    g_pageConstructor(page, parent, resources);
}
void ThrowingConstructor(CAcUiTabMainDialog*, UINT, CWnd*, HINSTANCE) {
    throw std::runtime_error("no dialog");
}
BOOL ThrowingOnInitDialog(CAdUiBaseDialog*) {
    throw std::runtime_error("in the dialog");
}

BOOL WINAPI NoteDeleteObject(HGDIOBJ object) {
    DIBSECTION section = {};
    if (GetObjectW(object, sizeof section, &section) != 0 && section.dsBmih.biWidth == 237) {
        CallJournal::Add(L"logo deleted");
    }
    return g_deleteObject(object);
}

constexpr char constructorName[] = "_ZN18CAcUiTabMainDialogC2EjP4CWndP11HINSTANCE__";

class AboutCommand : public AboutFixture {
  protected:
    AboutCommand() {
        AfxSetResourceHandle(nullptr);
        CallJournal::Clear();
        g_constructor = m_constructor.Original();
        g_pageConstructor = m_pageConstructor.Original();
        g_deleteObject = m_deleteObject.Original();
    }

    const ImportHook<decltype(&acDocManagerPtr)> m_manager{nullptr, "_Z15acDocManagerPtrv",
                                                           &GiveDocumentManager};
    const ImportHook<ConstructorFunction> m_constructor{nullptr, constructorName, &NoteConstructor};
    const ImportHook<PageConstructorFunction> m_pageConstructor{
        nullptr, "_ZN19CAcUiTabChildDialogC2EP4CWndP11HINSTANCE__", &NotePageConstructor};
    const ImportHook<decltype(&DeleteObject)> m_deleteObject{RuntimeDll(), nullptr, "DeleteObject",
                                                             &NoteDeleteObject};
};

const Steps openingSequence = {L"acDocManagerPtr",
                               L"push module",
                               L"construct 104, no parent, no resources",
                               L"construct page, no parent, no resources",
                               L"shown",
                               L"logo deleted",
                               L"acDocManagerPtr",
                               L"pop"};

DialogDriver::Action NoteAnd(const DialogDriver::Action& action) {
    return [action](HWND dialog) {
        CallJournal::Add(L"shown");
        action(dialog);
    };
}

TEST_F(AboutCommand, PopsTheHandleWhenTheDialogIsGone) {
    DialogDriver driver({NoteAnd(ClickOk)});

    LoadKVTCommand();

    EXPECT_EQ(CallJournal::Calls(), openingSequence);
}

TEST_F(AboutCommand, DoesTheSameAfterTheCloseBox) {
    DialogDriver driver({NoteAnd(ClickCloseBox)});

    LoadKVTCommand();

    EXPECT_EQ(CallJournal::Calls(), openingSequence);
}

TEST_F(AboutCommand, BuildsANewDialogEachTime) {
    std::vector<std::wstring> texts;
    const auto look = NoteAnd([&](HWND dialog) {
        texts.push_back(TextOf(Descendant(dialog, 124)));
        ClickOk(dialog);
    });
    DialogDriver driver({look, look});

    LoadKVTCommand();
    LoadKVTCommand();

    Steps twice = openingSequence;
    twice.insert(twice.end(), openingSequence.begin(), openingSequence.end());
    EXPECT_EQ(CallJournal::Calls(), twice);
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_EQ(texts[0], texts[1]);
}

TEST_F(AboutCommand, PopsTheHandleWhenTheConstructorThrows) {
    const ImportHook<ConstructorFunction> failure(nullptr, constructorName, &ThrowingConstructor);

    EXPECT_THROW(LoadKVTCommand(), std::runtime_error);

    const Steps steps = {L"acDocManagerPtr", L"push module", L"acDocManagerPtr", L"pop"};
    EXPECT_EQ(CallJournal::Calls(), steps);
}

TEST_F(AboutCommand, PopsTheHandleWhenTheRunThrows) {
    const ImportHook<OnInitDialogFunction> failure(nullptr, "_ZN15CAdUiBaseDialog12OnInitDialogEv",
                                                   &ThrowingOnInitDialog);

    EXPECT_THROW(LoadKVTCommand(), std::runtime_error);

    const Steps steps = {L"acDocManagerPtr",
                         L"push module",
                         L"construct 104, no parent, no resources",
                         L"construct page, no parent, no resources",
                         L"acDocManagerPtr",
                         L"pop"};
    EXPECT_EQ(CallJournal::Calls(), steps);
}

}  // namespace
