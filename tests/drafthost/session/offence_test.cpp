// What a module must not do: drafthost names it and goes on.

#include "host_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using drafthost::ExitCode;
using testing::HasSubstr;
using testing::Not;

namespace {

constexpr const wchar_t* wholeLife = L"bad\n(bad)\nNEW\nCLOSE\nUNLOAD misbehaving\nQUIT\n";

struct Row {
    const wchar_t* misdeed;
    const wchar_t* offence;
};

class Offence : public testing::TestWithParam<Row> {};

}  // namespace

TEST_P(Offence, IsNamedAndTheHostGoesOn) {
    const Misdeed misdeed(GetParam().misdeed);

    const HostRun run(LoadOption(L"misbehaving") + L" --strict", wholeLife);

    EXPECT_THAT(run.Output(), HasSubstr(std::wstring(L"drafthost: offence of misbehaving.arx: ") +
                                        GetParam().offence));
    EXPECT_THAT(run.Output(), HasSubstr(L"Command: QUIT\n"));
    EXPECT_EQ(run.Code(), ExitCode::ModuleOffended);
}

INSTANTIATE_TEST_SUITE_P(
    Each, Offence,
    testing::Values(
        Row{L"leave command", L"command BAD/Bad left behind when it was unloaded\n"},
        Row{L"leave function", L"LISP function bad left defined when Drawing2.dwg was closed\n"},
        Row{L"leave reactor", L"document reactor left behind when it was unloaded\n"},
        Row{L"leave class", L"class LeftClass left behind when it was unloaded\n"},
        Row{L"leave entry", L"system registry entry LeftEntry left behind when it was unloaded\n"},
        Row{L"overwrite linker",
            L"AcRxDictionary::atPut over the host's own entry DynamicLinker\n"},
        Row{L"remove linker", L"AcRxDictionary::remove of the host's own entry DynamicLinker\n"},
        Row{L"push",
            L"pushResourceHandle without popResourceHandle during message kLoadDwgMsg (3)\n"},
        Row{L"pop", L"popResourceHandle without a push\n"},
        Row{L"foreign packet",
            L"AcRxDynamicLinker::unlockApplication with what is no packet of a module\n"},
        Row{L"add twice", L"addReactor of a reactor that was added already\n"},
        Row{L"remove unknown", L"removeReactor of a reactor that wasn't added\n"},
        Row{L"delete unknown", L"deleteAcRxClass of a class that isn't registered\n"},
        Row{L"delete host's", L"deleteAcRxClass of the host's own class AcEdCommandStack\n"},
        Row{L"thread", L"acutPrintf called on thread "},
        Row{L"unknown answer",
            L"answer 7 to message kLoadDwgMsg (3), which is none of the return codes\n"},
        Row{L"unknown answer to a call",
            L"answer 7 to message kInvkSubrMsg (5), LISP function bad, which is none of the return "
            L"codes\n"}));

TEST(Offence, OfAGoodModuleThereIsNone) {
    const HostRun run(LoadOption(L"misbehaving") + L" --strict", wholeLife);

    EXPECT_EQ(run.Code(), ExitCode::Success);
    EXPECT_THAT(run.Output(), Not(HasSubstr(L"offence")));
}

TEST(Offence, WithoutStrictLeavesTheExitCode) {
    const Misdeed misdeed(L"push");

    const HostRun run(LoadOption(L"misbehaving"), L"QUIT\n");

    EXPECT_THAT(run.Output(), HasSubstr(L"drafthost: offence of"));
    EXPECT_EQ(run.Code(), ExitCode::Success);
}

TEST(Offence, OnlyTheFirstOfAModuleIsShown) {
    const Misdeed misdeed(L"push;leave command");

    const HostRun run(LoadOption(L"misbehaving"), wholeLife);

    EXPECT_THAT(run.Output(), HasSubstr(L"pushResourceHandle without"));
    EXPECT_THAT(run.Output(), Not(HasSubstr(L"left behind")));
}

TEST(Offence, EachIsShownInAVerboseSession) {
    const Misdeed misdeed(L"push;leave command");

    const HostRun run(LoadOption(L"misbehaving") + L" --verbose", wholeLife);

    EXPECT_THAT(run.Output(), HasSubstr(L"pushResourceHandle without"));
    EXPECT_THAT(run.Output(), HasSubstr(L"left behind"));
}

TEST(Offence, ALeftCommandIsGoneWithItsModule) {
    const Misdeed misdeed(L"leave command");

    const HostRun run(LoadOption(L"misbehaving"), L"UNLOAD misbehaving\nbad\nQUIT\n");

    EXPECT_TRUE(run.HasLine(L"Unknown command \"bad\". HELP lists the commands."));
    EXPECT_EQ(run.Code(), ExitCode::Success);
}

TEST(Offence, ALeftFunctionIsGoneWithItsModule) {
    const Misdeed misdeed(L"leave function");

    const HostRun run(LoadOption(L"misbehaving"), L"UNLOAD misbehaving\n(bad)\nQUIT\n");

    EXPECT_TRUE(run.HasLine(L"; error: no function definition: BAD"));
    EXPECT_EQ(run.Code(), ExitCode::Success);
}

TEST(Offence, ALeftReactorIsNotCalledAnyMore) {
    const Misdeed misdeed(L"leave reactor");

    const HostRun run(LoadOption(L"misbehaving"), L"UNLOAD misbehaving\nNEW\nCLOSE\nQUIT\n");

    EXPECT_EQ(run.Code(), ExitCode::Success);
}

TEST(Offence, TheHostsOwnEntriesAreThereAgainBehindAModuleThatTookThem) {
    for (const wchar_t* misdeed : {L"overwrite linker", L"remove linker"}) {
        const Misdeed taken(misdeed);

        const HostRun run(LoadOption(L"misbehaving"), L"UNLOAD misbehaving\nAPPLOAD \"" +
                                                          ModulePath(L"recorder") +
                                                          L"\"\nUNLOAD recorder\nRecHello\nQUIT\n");

        EXPECT_EQ(run.Code(), ExitCode::Success) << testing::PrintToString(misdeed);
        EXPECT_TRUE(run.HasLine(ModulePath(L"recorder") + L" unloaded."))
            << "the host's linker took its word that it may go";
    }
}

TEST(Offence, AnEntryThatIsPutBackIsNotLeftBehind) {
    const Misdeed misdeed(L"lend entry");

    const HostRun run(LoadOption(L"misbehaving") + L" --verbose", L"UNLOAD misbehaving\nQUIT\n");

    EXPECT_THAT(run.Output(), HasSubstr(L"over the host's own entry DynamicLinker\n"));
    EXPECT_THAT(run.Output(), Not(HasSubstr(L"left behind")));
}

TEST(Offence, ACallFromAThreadIsRefused) {
    const Misdeed misdeed(L"thread");

    const HostRun run(LoadOption(L"misbehaving"), L"ENV FromThread\nQUIT\n");

    EXPECT_THAT(run.Output(), Not(HasSubstr(L"\nfrom a thread")));
    EXPECT_TRUE(run.HasLine(L"There is no setting FromThread."));
}

TEST(Offence, APushedHandleIsPoppedForTheModule) {
    const Misdeed misdeed(L"push;pop");

    const HostRun run(LoadOption(L"misbehaving") + L" --verbose", L"QUIT\n");

    EXPECT_THAT(run.Output(), Not(HasSubstr(L"offence"))) << "push and pop in one message balance";
}
