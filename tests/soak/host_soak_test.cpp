// Nothing grows: the built module in the host's runtime, round after round in one process.

#include "soak/soak_rounds.h"

#include "e2e/installation.h"

#include "runtime/control.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <cstdio>
#include <stdexcept>

namespace {

class SilentOutput : public drafthost::TextOutput {
    void Write(const std::wstring&) override {}
};

/// One session for the program: the host's services begin and end once in a process.
class HostSession : public testing::Environment {
    void SetUp() override {
        // The module logs there, some lines a round; the C runtime is shared with it. Without a
        // buffer each character would be a call of the system.
        ASSERT_NE(std::freopen("NUL", "w", stderr), nullptr);
        ASSERT_EQ(std::setvbuf(stderr, nullptr, _IOFBF, 4096), 0);
        // A host has these loaded anyway; the rounds are not to load them again each time.
        for (const wchar_t* library :
             {L"gdiplus.dll", L"winhttp.dll", L"msimg32.dll", L"dbghelp.dll", L"comctl32.dll"}) {
            ASSERT_NE(LoadLibraryW(library), nullptr);
        }
        drafthost::SetTextOutput(&m_output);
        drafthost::HostOptions options;
        options.profile = L"soak";
        ASSERT_TRUE(drafthost::StartHost(options));
    }
    void TearDown() override { drafthost::ShutDownHost(); }

    SilentOutput m_output;
};

const testing::Environment* const g_session = testing::AddGlobalTestEnvironment(new HostSession);

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

}  // namespace

TEST(HostLeaks, LoadingAndUnloadingWithTheLogOff) {
    Installation installation;

    ExpectNoGrowth(1000, [&] {
        Load(installation);
        Unload();
    });
}

// Meant: the module never shuts the log library down, so each load leaves its open log file and the
// library's own blocks behind; just these, and as many in the last round as in the first.
TEST(HostLeaks, LoadingAndUnloadingWithTheLogOnLeavesTheLogBehind) {
    Installation installation;
    installation.EnableLog();
    const auto round = [&] {
        Load(installation);
        Unload();
    };

    const ResourceCounts left = GrowthOfARound(round);

    EXPECT_EQ(left.kernelHandles, 1u) << "the log file";
    EXPECT_LE(left.heapBlocks, 20u);
    ExpectNoGrowth(SoakRounds(200), round, left);
}

TEST(HostLeaks, ARefusedStart) {
    Installation installation;
    installation.Registry().SetLocation(installation.Folder() + L"\\elsewhere");

    ExpectNoGrowth(SoakRounds(1000), [&] {
        ASSERT_EQ(drafthost::LoadModule(installation.ModulePath()), drafthost::LoadResult::Refused);
    });
}

TEST(HostLeaks, OpeningAndClosingDrawings) {
    Installation installation;
    Load(installation);

    ExpectNoGrowth(SoakRounds(10000), [&] {
        ASSERT_EQ(drafthost::OpenDrawing(installation.FirstDrawing()),
                  drafthost::OpenResult::Opened);
        ASSERT_TRUE(drafthost::CloseDrawing());
    });
    Unload();
}
