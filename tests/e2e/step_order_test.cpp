// The order of what the built module does at its start and at a drawing, told by its own calls, in
// a host session inside this program.

#include "e2e/installation.h"
#include "support/call_journal.h"
#include "support/import_hook.h"

#include "runtime/control.h"

#include <gtest/gtest.h>

#include <acdocman.h>
#include <aced.h>

#include <windows.h>

#include <algorithm>
#include <memory>

namespace {

using Calls = std::vector<std::wstring>;

decltype(&RegOpenKeyExW) g_realOpenKey = nullptr;
decltype(&FindFirstFileW) g_realFind = nullptr;

LSTATUS WINAPI RecordOpenKey(HKEY hive, LPCWSTR path, DWORD options, REGSAM access, PHKEY key) {
    const bool hasCommand = !drafthost::RegisteredCommands().empty();
    CallJournal::Add(hasCommand ? L"open key behind the commands" : L"open key");
    return g_realOpenKey(hive, path, options, access, key);
}

HANDLE WINAPI RecordFind(LPCWSTR path, LPWIN32_FIND_DATAW data) {
    CallJournal::Add(L"probe " + std::wstring(path));
    return g_realFind(path, data);
}

int RecordSetEnv(const wchar_t*, const wchar_t*) {
    CallJournal::Add(L"acedSetEnv");
    return RTNORM;
}

int RecordPrint(const wchar_t*, ...) {
    CallJournal::Add(L"acutPrintf");
    return RTNORM;
}

int RecordQueue(const wchar_t*) {
    CallJournal::Add(L"ads_queueexpr");
    return RTNORM;
}

int RecordDefun(const wchar_t* name, short code) {
    CallJournal::Add(L"acedDefun " + std::wstring(name) + L" " + std::to_wstring(code));
    return RTNORM;
}

/// The calls of a module image, recorded.
class RecordedModule {
  public:
    explicit RecordedModule(HMODULE image)
        : m_openKey(image, "ADVAPI32.dll", "RegOpenKeyExW", &RecordOpenKey),
          m_find(image, "KERNEL32.dll", "FindFirstFileW", &RecordFind),
          m_setEnv(image, "drafthost17.dll", "_Z10acedSetEnvPKwS0_", &RecordSetEnv),
          m_print(image, "drafthost17.dll", "_Z10acutPrintfPKwz", &RecordPrint),
          m_queue(image, "drafthost17.dll", "_Z13ads_queueexprPKw", &RecordQueue),
          m_defun(image, "drafthost17.dll", "_Z9acedDefunPKws", &RecordDefun) {
        g_realOpenKey = m_openKey.Original();
        g_realFind = m_find.Original();
        CallJournal::Clear();
    }

  private:
    ImportHook<decltype(&RegOpenKeyExW)> m_openKey;
    ImportHook<decltype(&FindFirstFileW)> m_find;
    ImportHook<decltype(&acedSetEnv)> m_setEnv;
    ImportHook<decltype(&acutPrintf)> m_print;
    ImportHook<decltype(&ads_queueexpr)> m_queue;
    ImportHook<decltype(&acedDefun)> m_defun;
};

int g_allocations = 0;
void* (*g_realNew)(size_t) = nullptr;

void* CountNew(size_t size) {
    ++g_allocations;
    return g_realNew(size);
}

/// Is told behind the module, so that it sees what the module has made of an event.
class LaterReactor : public AcApDocManagerReactor {
  public:
    LaterReactor() { acDocManagerPtr()->addReactor(this); }
    ~LaterReactor() override { acDocManagerPtr()->removeReactor(this); }

    void documentCreateStarted(AcApDocument*) override { Note(L"create started"); }
    void documentCreated(AcApDocument*) override { Note(L"created"); }
    void documentBecameCurrent(AcApDocument*) override { Note(L"became current"); }
    void documentToBeActivated(AcApDocument*) override { Note(L"to be activated"); }
    void documentToBeDeactivated(AcApDocument*) override { Note(L"to be deactivated"); }
    void documentActivated(AcApDocument*) override { Note(L"activated"); }

  private:
    static void Note(const wchar_t* event) {
        CallJournal::Add(g_allocations == 0 ? event : std::wstring(event) + L", noticed");
    }
};

std::wstring WithSlashes(std::wstring path) {
    std::replace(path.begin(), path.end(), L'\\', L'/');
    return path;
}

/// One session for all: a host's services begin and end once in a process.
class StepOrder : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        m_installation = std::make_unique<Installation>();
        drafthost::HostOptions options;
        options.profile = m_installation->ProfileName();
        ASSERT_TRUE(drafthost::StartHost(options));
    }
    static void TearDownTestSuite() {
        drafthost::ShutDownHost();
        EXPECT_EQ(drafthost::OffenceCount(), 0u);
        m_installation.reset();
    }

    ~StepOrder() override {
        while (drafthost::CloseDrawing()) {
        }
        FreeLibrary(m_image);  // The host still holds it.
        EXPECT_EQ(drafthost::UnloadModule(L"KVTCAD.arx"), drafthost::UnloadResult::Unloaded);
    }

    /// What the module does at each drawing.
    static Calls DrawingSteps() {
        return {L"probe " + WithSlashes(m_installation->LispPath()), L"ads_queueexpr",
                L"acedDefun GetKVTPath 0"};
    }
    static void LoadModule() {
        EXPECT_EQ(drafthost::LoadModule(m_installation->ModulePath()),
                  drafthost::LoadResult::Loaded);
    }
    static void NewDrawing() { EXPECT_EQ(drafthost::NewDrawing(), drafthost::OpenResult::Opened); }

    static std::unique_ptr<Installation> m_installation;
    /// Held ahead of its start, so that its calls can be recorded from there on.
    const HMODULE m_image = LoadLibraryW(m_installation->ModulePath().c_str());
};
std::unique_ptr<Installation> StepOrder::m_installation;

}  // namespace

TEST_F(StepOrder, TheStartRegistersThenSetsUpThenGreetsAndADrawingQueuesThenDefines) {
    const RecordedModule recorded(m_image);

    LoadModule();
    EXPECT_EQ(CallJournal::Take(),
              (Calls{L"open key behind the commands", L"open key behind the commands",
                     L"probe " + m_installation->Location(), L"acedSetEnv", L"acutPrintf"}));
    NewDrawing();
    EXPECT_EQ(CallJournal::Take(), DrawingSteps());
    NewDrawing();
    EXPECT_EQ(CallJournal::Take(), DrawingSteps());
}

TEST_F(StepOrder, OfADrawingsEventsTheModuleTakesNoNotice) {
    const RecordedModule recorded(m_image);
    LoadModule();
    NewDrawing();
    const LaterReactor reactor;
    const ImportHook<decltype(g_realNew)> allocation(m_image, "libstdc++-6.dll", "_Znwy",
                                                     &CountNew);
    g_realNew = allocation.Original();
    g_allocations = 0;
    CallJournal::Clear();

    NewDrawing();

    Calls expected = {L"create started",    L"created",        L"to be activated",
                      L"to be deactivated", L"became current", L"activated"};
    for (const std::wstring& step : DrawingSteps())
        expected.push_back(step);
    EXPECT_EQ(CallJournal::Calls(), expected);
    EXPECT_GT(g_allocations, 0) << "those of the message, which show that they are seen";
}
