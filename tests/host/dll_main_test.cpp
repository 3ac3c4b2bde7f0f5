#include "host/dll_main.h"

#include "host/module_handles.h"
#include "support/call_journal.h"
#include "support/import_hook.h"

#include <gtest/gtest.h>

#include <acui.h>

#include <new>
#include <utility>

namespace {

using Calls = std::vector<std::wstring>;

const HINSTANCE module = reinterpret_cast<HINSTANCE>(static_cast<ULONG_PTR>(0x7770000));
const HINSTANCE hostResource = reinterpret_cast<HINSTANCE>(static_cast<ULONG_PTR>(0x5550000));

BOOL g_initAnswer = TRUE;

BOOL RecordInit(AFX_EXTENSION_MODULE& record, HMODULE instance) {
    CallJournal::Add(L"AfxInitExtensionModule");
    EXPECT_EQ(&record, &ModuleExtensionRecord.m_extensionModule);
    EXPECT_EQ(instance, module);
    EXPECT_EQ(g_moduleInstance, module);  // It comes before everything else.
    return g_initAnswer;
}

void RecordTerm(AFX_EXTENSION_MODULE& record, BOOL all) {
    CallJournal::Add(L"AfxTermExtensionModule");
    EXPECT_EQ(&record, &ModuleExtensionRecord.m_extensionModule);
    EXPECT_EQ(all, FALSE);
    EXPECT_NE(ModuleExtensionRecord.m_attached, 0);
}

bool g_failNextAllocation = false;
bool g_failAfterResourceHandle = false;

HINSTANCE RecordResourceHandle() {
    CallJournal::Add(L"AfxGetResourceHandle");
    g_failNextAllocation = g_failAfterResourceHandle;
    return hostResource;
}

void RecordInitAcUi() {
    CallJournal::Add(L"InitAcUiDLL");
}

using MakeLibrary = void (*)(CDynLinkLibrary*, AFX_EXTENSION_MODULE&, BOOL);

void RecordLibrary(CDynLinkLibrary*, AFX_EXTENSION_MODULE& record, BOOL system) {
    CallJournal::Add(L"CDynLinkLibrary");
    EXPECT_EQ(&record, &ModuleExtensionRecord.m_extensionModule);
    EXPECT_EQ(system, FALSE);
    EXPECT_EQ(ModuleExtensionRecord.m_moduleResource, module);  // It is there by now.
}

class DllMainTest : public testing::Test {
  protected:
    DllMainTest() {
        CallJournal::Clear();
        g_initAnswer = TRUE;
    }
    ~DllMainTest() override {
        ModuleExtensionRecord = ModuleExtension();
        g_moduleInstance = nullptr;
    }

    static BOOL Run(DWORD reason) { return DllMain(module, reason, nullptr); }

  private:
    ImportHook<decltype(&AfxInitExtensionModule)> m_init{
        "drafthost17.dll", "_Z22AfxInitExtensionModuleR20AFX_EXTENSION_MODULEP11HINSTANCE__",
        &RecordInit};
    ImportHook<decltype(&AfxTermExtensionModule)> m_term{
        "drafthost17.dll", "_Z22AfxTermExtensionModuleR20AFX_EXTENSION_MODULEi", &RecordTerm};
    ImportHook<decltype(&AfxGetResourceHandle)> m_resource{
        "drafthost17.dll", "_Z20AfxGetResourceHandlev", &RecordResourceHandle};
    ImportHook<decltype(&InitAcUiDLL)> m_acUi{"drafthost17.dll", "_Z11InitAcUiDLLv",
                                              &RecordInitAcUi};
    ImportHook<MakeLibrary> m_library{
        "drafthost17.dll", "_ZN15CDynLinkLibraryC1ER20AFX_EXTENSION_MODULEi", &RecordLibrary};
};

const Calls fullAttach = {L"AfxInitExtensionModule", L"AfxGetResourceHandle", L"CDynLinkLibrary",
                          L"InitAcUiDLL"};

void* (*g_realNew)(size_t) = nullptr;

void* FailOnce(size_t size) {
    if (std::exchange(g_failNextAllocation, false)) throw std::bad_alloc();
    return g_realNew(size);
}

}  // namespace

TEST_F(DllMainTest, AttachJoinsTheFrameworkInOrder) {
    EXPECT_EQ(Run(DLL_PROCESS_ATTACH), TRUE);

    EXPECT_EQ(CallJournal::Calls(), fullAttach);
    EXPECT_EQ(g_moduleInstance, module);
    EXPECT_EQ(ModuleExtensionRecord.m_attached, TRUE);
    EXPECT_EQ(ModuleExtensionRecord.m_defaultResource, hostResource);
    EXPECT_EQ(ModuleExtensionRecord.m_moduleResource, module);
}

TEST_F(DllMainTest, TheFrameworksAnswerIsKeptAsItIs) {
    g_initAnswer = 7;

    Run(DLL_PROCESS_ATTACH);

    EXPECT_EQ(ModuleExtensionRecord.m_attached, 7);
}

TEST_F(DllMainTest, AFrameworkThatRefusesStopsNeitherTheLoadNorTheInterfaceLibrary) {
    g_initAnswer = FALSE;

    EXPECT_EQ(Run(DLL_PROCESS_ATTACH), TRUE);

    EXPECT_EQ(CallJournal::Calls(), (Calls{L"AfxInitExtensionModule", L"InitAcUiDLL"}));
    EXPECT_EQ(g_moduleInstance, module);
    EXPECT_EQ(ModuleExtensionRecord.m_attached, 0);
    EXPECT_EQ(ModuleExtensionRecord.m_defaultResource, nullptr);
    EXPECT_EQ(ModuleExtensionRecord.m_moduleResource, nullptr);
}

TEST_F(DllMainTest, ASecondAttachSetsTheHandleAndReadiesTheInterfaceLibraryOnly) {
    Run(DLL_PROCESS_ATTACH);
    CallJournal::Clear();
    g_moduleInstance = nullptr;

    EXPECT_EQ(Run(DLL_PROCESS_ATTACH), TRUE);

    EXPECT_EQ(CallJournal::Calls(), Calls{L"InitAcUiDLL"});
    EXPECT_EQ(g_moduleInstance, module);
}

TEST_F(DllMainTest, AFailedAllocationOfTheChainsObjectIsPassedOver) {
    ImportHook<void* (*)(size_t)> allocate("libstdc++-6.dll", "_Znwy", &FailOnce);
    g_realNew = allocate.Original();
    g_failAfterResourceHandle = true;

    EXPECT_EQ(Run(DLL_PROCESS_ATTACH), TRUE);

    g_failAfterResourceHandle = false;
    EXPECT_EQ(CallJournal::Calls(),
              (Calls{L"AfxInitExtensionModule", L"AfxGetResourceHandle", L"InitAcUiDLL"}));
    EXPECT_EQ(ModuleExtensionRecord.m_attached, TRUE);
    EXPECT_EQ(ModuleExtensionRecord.m_moduleResource, module);
}

TEST_F(DllMainTest, DetachLeavesTheFrameworkOnce) {
    Run(DLL_PROCESS_ATTACH);
    CallJournal::Clear();

    EXPECT_EQ(Run(DLL_PROCESS_DETACH), TRUE);
    EXPECT_EQ(Run(DLL_PROCESS_DETACH), TRUE);

    EXPECT_EQ(CallJournal::Calls(), Calls{L"AfxTermExtensionModule"});
    EXPECT_EQ(ModuleExtensionRecord.m_attached, 0);
}

TEST_F(DllMainTest, ADetachWithoutAttachDoesNothing) {
    EXPECT_EQ(Run(DLL_PROCESS_DETACH), TRUE);

    EXPECT_EQ(CallJournal::Calls(), Calls{});
}

TEST_F(DllMainTest, OtherReasonsDoNothing) {
    for (const DWORD reason : {static_cast<DWORD>(DLL_THREAD_ATTACH),
                               static_cast<DWORD>(DLL_THREAD_DETACH), 4ul, 0xFFFFFFFFul}) {
        EXPECT_EQ(Run(reason), TRUE) << reason;
    }

    EXPECT_EQ(CallJournal::Calls(), Calls{});
    EXPECT_EQ(g_moduleInstance, nullptr);
}

TEST_F(DllMainTest, AnAttachAfterADetachJoinsAgain) {
    Run(DLL_PROCESS_ATTACH);
    Run(DLL_PROCESS_DETACH);
    CallJournal::Clear();

    Run(DLL_PROCESS_ATTACH);

    EXPECT_EQ(CallJournal::Calls(), fullAttach);
}

TEST(ModuleExtension, HasItsFieldsInTheFixedOrder) {
    EXPECT_EQ(offsetof(ModuleExtension, m_attached), 0u);
    EXPECT_EQ(offsetof(ModuleExtension, m_defaultResource), 8u);
    EXPECT_EQ(offsetof(ModuleExtension, m_moduleResource), 16u);
    EXPECT_EQ(offsetof(ModuleExtension, m_extensionModule), 24u);
    EXPECT_EQ(sizeof(ModuleExtension::m_attached), 4u);
}
