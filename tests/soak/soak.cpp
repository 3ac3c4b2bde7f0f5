#include "soak/soak.h"

#include "support/leak_rounds.h"
#include "support/planted_leaks.h"

#include "runtime/control.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>
#include <vector>

// What all soaks of the program share: one session of the host, leaks planted ahead of it, and the
// lines that are printed.

namespace {

constexpr int plantedOfAKind = 10;
constexpr wchar_t profile[] = L"soak";

int g_soaks = 0;
int g_rounds = 0;

class SilentOutput : public drafthost::TextOutput {
    void Write(const std::wstring&) override {}
};

/// A counter that sees no leak would pass every soak, so each has to show one here.
class PlantedLeaksAhead : public testing::Environment {
    void SetUp() override {
        for (const PlantedLeak& leak : PlantedLeaks()) {
            const ResourceCounts growth = ExpectGrowth(plantedOfAKind, leak.plant, leak.shows);
            leak.mend();
            ASSERT_FALSE(testing::Test::HasFailure()) << leak.name;
            std::cout << "planted: " << plantedOfAKind << " of " << leak.name << ": " << growth
                      << std::endl;
        }
    }
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

/// One session for the program: the host's services begin and end once in a process.
class HostSession : public testing::Environment {
    void SetUp() override {
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
        drafthost::SetTextOutput(&m_output);
        drafthost::HostOptions options;
        options.profile = profile;
        ASSERT_TRUE(drafthost::StartHost(options));
    }
    void TearDown() override {
        drafthost::ShutDownHost();
        EXPECT_EQ(drafthost::OffenceCount(), 0u);
        RegDeleteTreeW(HKEY_CURRENT_USER,
                       (std::wstring(L"Software\\Drafthost\\Profiles\\") + profile).c_str());
        const bool passed = testing::UnitTest::GetInstance()->Passed();
        std::cout << g_soaks << " soaks, " << g_rounds << " rounds: "
                  << (passed ? "nothing grew but what is wanted" : "FAILED, see above")
                  << std::endl;
    }

    SilentOutput m_output;
};

const char* Verdict(const ResourceCounts& growth, const ResourceCounts& wanted) {
    if (!(growth == wanted)) return ", FAILED";
    return wanted == ResourceCounts() ? "" : ", as wanted";
}

// Set up in this order, whatever the order of the tests.
const testing::Environment* const g_leaks =
    testing::AddGlobalTestEnvironment(new PlantedLeaksAhead);
const testing::Environment* const g_session = testing::AddGlobalTestEnvironment(new HostSession);

}  // namespace

int SoakRounds(int full) {
    const char* form = std::getenv("KVT_SOAK");
    return form != nullptr && std::strcmp(form, "full") == 0 ? full : full / 10;
}

void Soak(const char* what, int rounds, const std::function<void()>& round,
          const ResourceCounts& wanted) {
    const ULONGLONG start = GetTickCount64();
    int done = 0;
    const ResourceCounts growth = ExpectGrowth(
        rounds,
        [&] {
            round();
            ++done;
        },
        wanted);
    const int counted = (done - warmUpRounds) / rounds;
    const ULONGLONG seconds = (GetTickCount64() - start + 500) / 1000;
    std::cout << rounds << " " << what << " (" << seconds << " s): " << growth
              << Verdict(growth, wanted * rounds);
    if (counted > 1) std::cout << ", counted " << counted << " times";
    std::cout << std::endl;
    ++g_soaks;
    g_rounds += rounds;
}
