// The built module in the host's runtime.

#include "soak/soak.h"

#include "drafthost/framework/dialog_driver.h"
#include "e2e/installation.h"
#include "support/child_process.h"
#include "support/test_profile.h"

#include "runtime/control.h"

#include <gtest/gtest.h>

#include <atlstr.h>

#include <windows.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

class SilentOutput : public drafthost::TextOutput {
    void Write(const std::wstring&) override {}
};

/// Rounds with the log on leave a file open each. There are more of them than the C runtime allows
/// at first, and its tables, which grow by some blocks now and then and never shrink, get their
/// size here.
void MakeRoomForOpenFiles() {
    constexpr int mostFiles = 1000;
    ASSERT_EQ(_setmaxstdio(mostFiles), mostFiles);
    std::vector<std::FILE*> files;
    while (std::FILE* const file = std::fopen("NUL", "r"))
        files.push_back(file);
    ASSERT_GT(files.size(), 900u);
    for (std::FILE* const file : files)
        std::fclose(file);
}

/// One session for all: a host's services begin and end once in a process. The module is as it
/// ships, since each load would read its debug information, too.
class HostSoak : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        // The module logs there, some lines a round; the C runtime is shared with it. Without a
        // buffer each character would be a call of the system.
        ASSERT_NE(std::freopen("NUL", "w", stderr), nullptr);
        ASSERT_EQ(std::setvbuf(stderr, nullptr, _IOFBF, 4096), 0);
        MakeRoomForOpenFiles();
        // A host has these loaded anyway; the rounds are not to load them again each time.
        for (const wchar_t* library :
             {L"gdiplus.dll", L"winhttp.dll", L"msimg32.dll", L"dbghelp.dll", L"comctl32.dll"}) {
            ASSERT_NE(LoadLibraryW(library), nullptr);
        }
        static SilentOutput output;
        drafthost::SetTextOutput(&output);
        drafthost::HostOptions options;
        m_profile = std::make_unique<TestProfile>();
        options.profile = m_profile->Name();
        ASSERT_TRUE(drafthost::StartHost(options));
    }
    static void TearDownTestSuite() {
        drafthost::ShutDownHost();
        EXPECT_EQ(drafthost::OffenceCount(), 0u);
        m_profile.reset();
    }

    HostSoak() {
        const std::wstring stripped = ProgramFolder() + L"\\stripped\\KVTCAD.arx";
        if (!CopyFileW(stripped.c_str(), installation.ModulePath().c_str(), FALSE)) {
            throw std::runtime_error("no stripped module");
        }
    }

    static std::unique_ptr<TestProfile> m_profile;
    Installation installation;
};
std::unique_ptr<TestProfile> HostSoak::m_profile;

void Load(const Installation& installation) {
    if (drafthost::LoadModule(installation.ModulePath()) != drafthost::LoadResult::Loaded) {
        throw std::runtime_error("the module was not loaded");
    }
}

void Unload() {
    if (drafthost::UnloadModule(L"KVTCAD.arx") != drafthost::UnloadResult::Unloaded) {
        throw std::runtime_error("the module was not unloaded");
    }
}

TEST_F(HostSoak, LoadingAndUnloadingWithTheLogOff) {
    // All of them each time: a load is where a module leaks first.
    Soak("loads and unloads, log off", 1000, [&] {
        Load(installation);
        Unload();
    });
}

/// What a load with the log on leaves behind: the log library's objects for its four files, each
/// with its path and the platform's record of its lock, and the one file that is written, open and
/// with the C runtime's buffer.
ResourceCounts LogOf(const Installation& installation) {
    constexpr long long fileObject = 216;
    constexpr long long lockRecord = 48;
    constexpr long long streamBuffer = 4096;
    const long long folderLength = CStringA(installation.LogFolder().c_str()).GetLength();
    ResourceCounts left;
    for (const char* const file :
         {"/KVTCAD.INFO", "/KVTCAD.WARNING", "/KVTCAD.ERROR", "/KVTCAD.FATAL"}) {
        const long long path = folderLength + static_cast<long long>(std::strlen(file)) + 1;
        left.heapBlocks += 3;
        left.heapBytes += fileObject + path + lockRecord;
    }
    left.heapBlocks += 1;
    left.heapBytes += streamBuffer;
    left.kernelHandles = 1;
    return left;
}

// Meant: the module never shuts the log library down.
TEST_F(HostSoak, LoadingAndUnloadingWithTheLogOnLeavesTheLogBehind) {
    installation.EnableLog();

    Soak(
        "loads and unloads, log on", SoakRounds(200),
        [&] {
            Load(installation);
            Unload();
        },
        LogOf(installation));
}

TEST_F(HostSoak, ARefusedStart) {
    installation.Registry().SetLocation(installation.Folder() + L"\\elsewhere");

    Soak("refused starts", SoakRounds(1000), [&] {
        ASSERT_EQ(drafthost::LoadModule(installation.ModulePath()), drafthost::LoadResult::Refused);
    });
}

TEST_F(HostSoak, OpeningAndClosingDrawings) {
    Load(installation);

    Soak("drawings", SoakRounds(10000), [&] {
        ASSERT_EQ(drafthost::OpenDrawing(installation.FirstDrawing()),
                  drafthost::OpenResult::Opened);
        ASSERT_TRUE(drafthost::CloseDrawing());
    });

    Unload();
}

// The contexts that its picture leaves unreleased go with the dialog's window.
TEST_F(HostSoak, TheAboutDialog) {
    Load(installation);
    ASSERT_EQ(drafthost::NewDrawing(), drafthost::OpenResult::Opened);

    Soak("times LoadKVT", SoakRounds(1000), [] {
        DialogDriver driver({ChooseOk});
        ASSERT_EQ(drafthost::RunCommand(L"LoadKVT"), drafthost::CommandResult::Done);
        ASSERT_EQ(driver.m_painted, 1);
    });

    ASSERT_TRUE(drafthost::CloseDrawing());
    Unload();
}

}  // namespace
