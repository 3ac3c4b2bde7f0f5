// The order of what the built module does at its start and at a drawing, told by its own calls, in
// a host session inside this program.

#include "e2e/installation.h"
#include "support/call_journal.h"
#include "support/import_hook.h"

#include "runtime/control.h"

#include <gtest/gtest.h>

#include <aced.h>

#include <windows.h>

#include <algorithm>

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

std::wstring WithSlashes(std::wstring path) {
    std::replace(path.begin(), path.end(), L'\\', L'/');
    return path;
}

}  // namespace

TEST(StepOrder, TheStartRegistersThenSetsUpThenGreetsAndADrawingQueuesThenDefines) {
    Installation installation;
    drafthost::HostOptions options;
    options.profile = L"step order test";
    ASSERT_TRUE(drafthost::StartHost(options));
    const HMODULE image = LoadLibraryW(installation.ModulePath().c_str());
    ASSERT_NE(image, nullptr);
    const Calls drawing = {L"probe " + WithSlashes(installation.LispPath()), L"ads_queueexpr",
                           L"acedDefun GetKVTPath 0"};
    const Calls start = {L"open key behind the commands", L"open key behind the commands",
                         L"probe " + installation.Location(), L"acedSetEnv", L"acutPrintf"};
    {
        const RecordedModule recorded(image);

        EXPECT_EQ(drafthost::LoadModule(installation.ModulePath()), drafthost::LoadResult::Loaded);
        EXPECT_EQ(CallJournal::Take(), start);
        EXPECT_EQ(drafthost::NewDrawing(), drafthost::OpenResult::Opened);
        EXPECT_EQ(CallJournal::Take(), drawing);
        EXPECT_EQ(drafthost::NewDrawing(), drafthost::OpenResult::Opened);
        EXPECT_EQ(CallJournal::Take(), drawing);
    }
    FreeLibrary(image);  // The host still holds it.
    drafthost::ShutDownHost();
    EXPECT_EQ(drafthost::OffenceCount(), 0u);
}
