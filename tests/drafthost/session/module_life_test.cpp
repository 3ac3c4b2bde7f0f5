// The life of a module from its loading to its end, as its messages tell it.

#include "host_run.h"

#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

using drafthost::ExitCode;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

namespace {

/// What the recorder told and queued expressions printed, without the rest of the transcript.
std::wstring Record(const HostRun& run) {
    std::wstring record;
    std::wstring line;
    for (const wchar_t character : run.Output() + L"\n") {
        if (character != L'\n') {
            line += character;
            continue;
        }
        if (line.find(L'[') == 0 || line.find(L"queued") == 0) record += line + L"\n";
        line.clear();
    }
    return record;
}

/// The option that loads a copy of the fixture module under that path.
std::wstring LoadCopyOption(const std::wstring& module, const std::wstring& path) {
    CopyFileW(ModulePath(module).c_str(), path.c_str(), FALSE);
    return L" --load \"" + path + L"\" ";
}

/// The order of the parts in `text`, each behind the one before.
void ExpectInOrder(const std::wstring& text, const std::vector<std::wstring>& parts) {
    std::size_t start = 0;
    for (const std::wstring& part : parts) {
        const std::size_t found = text.find(part, start);
        EXPECT_NE(found, std::wstring::npos) << testing::PrintToString(part);
        if (found != std::wstring::npos) start = found + part.size();
    }
}

}  // namespace

TEST(ModuleLife, StartsAheadOfTheFirstDrawing) {
    const HostRun run(LoadOption(L"recorder"), L"QUIT\n");

    ExpectInOrder(Record(run),
                  {L"[kInitAppMsg -]", L"[documentCreateStarted Drawing1.dwg]",
                   L"[documentCreated Drawing1.dwg]", L"[documentToBeActivated Drawing1.dwg]",
                   L"[documentBecameCurrent Drawing1.dwg]", L"[documentActivated Drawing1.dwg]",
                   L"[kLoadDwgMsg Drawing1.dwg]", L"queued for Drawing1.dwg"});
}

TEST(ModuleLife, EndsWithTheDrawingsThenQuitThenUnload) {
    const HostRun run(LoadOption(L"recorder"), L"QUIT\n");

    const std::wstring record = Record(run);
    EXPECT_THAT(record.substr(record.find(L"[kPreQuitMsg")),
                L"[kPreQuitMsg Drawing1.dwg]\n"
                L"[kUnloadDwgMsg Drawing1.dwg]\n"
                L"[documentToBeDestroyed Drawing1.dwg]\n"
                L"[documentBecameCurrent -]\n"
                L"[documentDestroyed Drawing1.dwg]\n"
                L"[kQuitMsg -]\n"
                L"[kUnloadAppMsg -]\n");
}

TEST(ModuleLife, ModulesGetADrawingInLoadOrderAndThenTheQueueIsEvaluated) {
    const TempFolder folder;

    const HostRun run(LoadOption(L"recorder") + LoadCopyOption(L"recorder", folder / L"second.arx"),
                      L"QUIT\n");

    EXPECT_THAT(Record(run), HasSubstr(L"[kLoadDwgMsg Drawing1.dwg]\n"
                                       L"[second kLoadDwgMsg Drawing1.dwg]\n"
                                       L"queued for Drawing1.dwg\n"
                                       L"queued for Drawing1.dwg\n"));
    EXPECT_EQ(run.Code(), ExitCode::Success);
}

TEST(ModuleLife, AModuleLoadedLateGetsEveryOpenDrawing) {
    const HostRun run(L"", L"NEW\nAPPLOAD \"" + ModulePath(L"recorder") + L"\"\nQUIT\n");

    ExpectInOrder(Record(run), {L"[kInitAppMsg Drawing2.dwg]", L"[kLoadDwgMsg Drawing1.dwg]",
                                L"[kLoadDwgMsg Drawing2.dwg]", L"queued for Drawing1.dwg",
                                L"queued for Drawing2.dwg", L"[kPreQuitMsg Drawing2.dwg]"});
}

TEST(ModuleLife, ClosingADrawingTellsModuleAndReactor) {
    const HostRun run(LoadOption(L"recorder"), L"NEW\nCLOSE\nQUIT\n");

    ExpectInOrder(Record(run),
                  {L"[kLoadDwgMsg Drawing2.dwg]", L"[kUnloadDwgMsg Drawing2.dwg]",
                   L"[documentToBeDestroyed Drawing2.dwg]", L"[documentToBeActivated Drawing1.dwg]",
                   L"[documentBecameCurrent Drawing1.dwg]", L"[documentActivated Drawing1.dwg]",
                   L"[documentDestroyed Drawing2.dwg]"});
}

TEST(ModuleLife, SwitchingDrawingsTellsTheReactor) {
    const HostRun run(LoadOption(L"recorder"), L"NEW\nSWITCH Drawing1.dwg\nRecHello\nQUIT\n");

    ExpectInOrder(
        run.Output(),
        {L"[kLoadDwgMsg Drawing2.dwg]", L"[documentToBeActivated Drawing1.dwg]",
         L"[documentToBeDeactivated Drawing2.dwg]", L"[documentBecameCurrent Drawing1.dwg]",
         L"[documentActivated Drawing1.dwg]", L"hello from Drawing1.dwg"});
}

TEST(ModuleLife, UnloadingSendsTheDrawingsAndThenTheModulesOwnEnd) {
    const HostRun run(LoadOption(L"recorder"), L"NEW\nUNLOAD Recorder\n(rec-void)\nQUIT\n");

    ExpectInOrder(Record(run), {L"[kUnloadDwgMsg Drawing1.dwg]", L"[kUnloadDwgMsg Drawing2.dwg]",
                                L"[kUnloadAppMsg Drawing2.dwg]"});
    EXPECT_THAT(Record(run), EndsWith(L"[kUnloadAppMsg Drawing2.dwg]\n")) << "not called again";
    EXPECT_TRUE(run.HasLine(ModulePath(L"recorder") + L" unloaded."));
    EXPECT_TRUE(run.HasLine(L"; error: no function definition: REC-VOID"));
}

TEST(ModuleLife, AnUnloadedModuleLoadsAgain) {
    const HostRun run(
        LoadOption(L"recorder"),
        L"UNLOAD recorder.arx\nAPPLOAD \"" + ModulePath(L"recorder") + L"\"\nRecHello\nQUIT\n");

    EXPECT_TRUE(run.HasLine(L"hello from Drawing1.dwg"));
    EXPECT_EQ(run.Code(), ExitCode::Success);
}

TEST(ModuleLife, AModuleThatIsNotUnloadableStays) {
    const Misdeed misdeed(L"locked");

    const HostRun run(LoadOption(L"misbehaving"), L"UNLOAD misbehaving\n(bad)\nQUIT\n");

    EXPECT_TRUE(
        run.HasLine(L"misbehaving.arx can't be unloaded: it hasn't declared itself unloadable."));
    EXPECT_THAT(run.Output(), Not(HasSubstr(L"no function definition")));
    EXPECT_EQ(run.Code(), ExitCode::Success);
}

TEST(ModuleLife, AModuleCantBeUnloadedWhileItRuns) {
    const Misdeed misdeed(L"unload itself");

    const HostRun run(LoadOption(L"misbehaving"), L"bad\nQUIT\n");

    EXPECT_TRUE(run.HasLine(L"misbehaving.arx can't be unloaded: it is running."));
    EXPECT_EQ(run.Code(), ExitCode::Success);
}

TEST(ModuleLife, AModuleMayLoadAndUnloadAnother) {
    const Misdeed misdeed(L"use linker");

    const HostRun run(LoadOption(L"misbehaving") + L" --strict", L"bad\nRecHello\nQUIT\n");

    EXPECT_TRUE(run.HasLine(L"the linker answers: yes yes no no no no yes no"))
        << "loaded, loaded already, missing, none; none of that name, none, unloaded, gone";
    ExpectInOrder(Record(run), {L"[kInitAppMsg Drawing1.dwg]", L"[kLoadDwgMsg Drawing1.dwg]",
                                L"[kUnloadDwgMsg Drawing1.dwg]", L"[kUnloadAppMsg Drawing1.dwg]"});
    EXPECT_THAT(run.Output(), HasSubstr(L"Unknown command \"RecHello\""));
    EXPECT_EQ(run.Code(), ExitCode::Success);
}

TEST(ModuleLife, AModuleMayUnloadAnotherAtItsEnd) {
    const Misdeed misdeed(L"unload another");

    const HostRun run(LoadOption(L"recorder") + LoadOption(L"misbehaving"), L"QUIT\n");

    EXPECT_TRUE(run.HasLine(ModulePath(L"recorder") + L" unloaded."));
    EXPECT_EQ(run.Code(), ExitCode::Success) << run.Errors();
}

TEST(ModuleLife, AModuleUnloadedAheadOfItsTurnHidesNoOtherFromAMessage) {
    const Misdeed misdeed(L"unload in kPreQuitMsg");
    const TempFolder folder;

    const HostRun run(LoadOption(L"recorder") + LoadOption(L"misbehaving") +
                          LoadCopyOption(L"recorder", folder / L"second.arx"),
                      L"QUIT\n");

    ExpectInOrder(Record(run), {L"[kPreQuitMsg Drawing1.dwg]", L"[kUnloadAppMsg Drawing1.dwg]",
                                L"[second kPreQuitMsg Drawing1.dwg]"});
    EXPECT_EQ(run.Code(), ExitCode::Success);
}

TEST(ModuleLife, AModuleLoadedByAnotherInADrawingsMessageGetsThatMessageOnce) {
    const Misdeed misdeed(L"load in kLoadDwgMsg");

    const HostRun run(LoadOption(L"misbehaving"), L"QUIT\n");

    const std::wstring record = Record(run);
    EXPECT_THAT(record, HasSubstr(L"[kLoadDwgMsg"));
    EXPECT_EQ(record.find(L"[kLoadDwgMsg"), record.rfind(L"[kLoadDwgMsg"));
}

TEST(ModuleLife, AtTheEndNoModuleIsLoadedAnyMore) {
    const Misdeed misdeed(L"load at the end");

    const HostRun run(LoadOption(L"misbehaving"), L"QUIT\n");

    EXPECT_TRUE(run.HasLine(ModulePath(L"recorder") + L" can't be loaded: the session is ending."));
    EXPECT_EQ(run.Code(), ExitCode::Success);
}

TEST(ModuleLife, AnUnknownModuleCantBeUnloaded) {
    const HostRun run(L"", L"UNLOAD nothing\nQUIT\n");

    EXPECT_TRUE(run.HasLine(L"No module nothing is loaded."));
}

TEST(ModuleLife, AModuleIsLoadedOnce) {
    const HostRun run(LoadOption(L"recorder"),
                      L"APPLOAD \"" + ModulePath(L"RECORDER") + L"\"\nQUIT\n");

    EXPECT_THAT(run.Output(), HasSubstr(L" is loaded already.\n"));
    EXPECT_EQ(Record(run).find(L"[kInitAppMsg"), Record(run).rfind(L"[kInitAppMsg"));
}

TEST(ModuleLife, ARefusedStartEndsTheHostWithItsOwnCode) {
    const Misdeed misdeed(L"refuse");

    const HostRun run(LoadOption(L"misbehaving"), L"QUIT\n");

    EXPECT_EQ(run.Code(), ExitCode::ModuleRefused);
    EXPECT_EQ(run.Errors(), L"drafthost: " + ModulePath(L"misbehaving") +
                                L" refused to start: its answer to kInitAppMsg was kRetError. It "
                                L"was unloaded.\n");
    EXPECT_EQ(run.Output(), L"");
}

TEST(ModuleLife, ARefusedModuleLeavesNothingBehind) {
    const Misdeed misdeed(L"refuse");

    const HostRun run(L"--verbose",
                      L"APPLOAD \"" + ModulePath(L"misbehaving") + L"\"\nbad\nLIST\nQUIT\n");

    EXPECT_THAT(run.Output(), HasSubstr(L"drafthost: dropped command BAD/Bad of "));
    EXPECT_TRUE(run.HasLine(L"Unknown command \"bad\". HELP lists the commands."));
    EXPECT_THAT(run.Output(), Not(HasSubstr(L"Module: ")));
    EXPECT_EQ(run.Code(), ExitCode::Success);
}

TEST(ModuleLife, AModuleForOneDrawingKeepsTheSecondOneOut) {
    const Misdeed misdeed(L"one drawing");

    const HostRun run(LoadOption(L"misbehaving"), L"NEW\nLIST\nQUIT\n");

    EXPECT_TRUE(
        run.HasLine(L"Drawing2.dwg can't be opened: misbehaving.arx works with one drawing only."));
    EXPECT_THAT(run.Output(), Not(HasSubstr(L"Drawing: ")));
}

TEST(ModuleLife, AModuleForOneDrawingKeepsTheSecondOneOfTheCommandLineOut) {
    const Misdeed misdeed(L"one drawing");
    const TempFolder folder;
    WriteFileBytes(folder / L"a.dwg", "");
    WriteFileBytes(folder / L"b.dwg", "");

    const HostRun run(LoadOption(L"misbehaving") + L"--open \"" + (folder / L"a.dwg") +
                      L"\" --open \"" + (folder / L"b.dwg") + L"\"");

    EXPECT_EQ(run.Code(), ExitCode::FileMissing);
    EXPECT_EQ(run.Errors(),
              L"drafthost: " + (folder / L"b.dwg") +
                  L" can't be opened: misbehaving.arx works with one drawing only.\n");
    EXPECT_THAT(run.Output(), Not(HasSubstr(L"Command: ")));
}

TEST(ModuleLife, AModuleForOneDrawingIsntLoadedIntoTwo) {
    const Misdeed misdeed(L"one drawing");

    const HostRun run(L"", L"NEW\nAPPLOAD \"" + ModulePath(L"misbehaving") + L"\"\nQUIT\n");

    EXPECT_TRUE(run.HasLine(ModulePath(L"misbehaving") +
                            L" can't be loaded while several drawings are open: it works with one "
                            L"only."));
}

TEST(ModuleLife, AModuleIsFoundAlongTheSearchPathAndWithoutItsExtension) {
    const TempFolder folder(L"modules 模块");
    CopyFileW(ModulePath(L"recorder").c_str(), (folder / L"copied.arx").c_str(), FALSE);

    const HostRun run(
        L"", L"ENV ACAD=C:\\nowhere;" + folder.Path() + L"\nAPPLOAD copied\nRecHello\nQUIT\n");

    EXPECT_TRUE(run.HasLine(L"hello from Drawing1.dwg"));
}

namespace {

struct LoadRow {
    const wchar_t* why;
    const wchar_t* module;
    const wchar_t* message;
};

class UnloadableFile : public testing::TestWithParam<LoadRow> {};

}  // namespace

TEST_P(UnloadableFile, IsToldAndEndsTheHost) {
    const HostRun run(LoadOption(GetParam().module), L"QUIT\n");

    EXPECT_EQ(run.Code(), ExitCode::ModuleNotLoaded) << testing::PrintToString(GetParam().why);
    EXPECT_EQ(run.Errors(), L"drafthost: " + ModulePath(GetParam().module) + L" can't be loaded: " +
                                GetParam().message + L"\n");
    EXPECT_EQ(run.Output(), L"");
}

INSTANTIATE_TEST_SUITE_P(
    Each, UnloadableFile,
    testing::Values(
        LoadRow{L"no entry point", L"no_entry_point", L"it doesn't export acrxEntryPoint."},
        LoadRow{L"no version", L"no_api_version", L"it doesn't export acrxGetApiVersion."},
        LoadRow{L"older, told by a function", L"other_generation",
                L"it was made for library generation 16, and this host is of "
                L"generation 17."},
        LoadRow{L"newer, told by the fixed head", L"other_generation_head",
                L"it was made for library generation 18, and this host is of "
                L"generation 17."}));

TEST(UnloadableFile, AFileThatIsNoLibrary) {
    const TempFolder folder;
    WriteFileBytes(folder / L"text.arx", "no library");

    const HostRun run(L"--load \"" + (folder / L"text.arx") + L"\"");

    EXPECT_EQ(run.Code(), ExitCode::ModuleNotLoaded);
    EXPECT_EQ(run.Errors(),
              L"drafthost: " + (folder / L"text.arx") +
                  L" can't be loaded: it is no library for 64-bit Windows (error 193).\n");
    EXPECT_EQ(run.Output(), L"");
}

TEST(UnloadableFile, ALibraryWhoseDllMainRefuses) {
    const Misdeed misdeed(L"refuse attach");

    const HostRun run(LoadOption(L"misbehaving"));

    EXPECT_EQ(run.Code(), ExitCode::ModuleNotLoaded);
    EXPECT_EQ(run.Errors(), L"drafthost: " + ModulePath(L"misbehaving") +
                                L" can't be loaded: its DllMain refused (error 1114).\n");
}

TEST(UnloadableFile, AtThePromptLeavesTheHostAlive) {
    const HostRun run(L"", L"APPLOAD \"" + ModulePath(L"no_entry_point") + L"\"\n(+ 1 1)\nQUIT\n");

    EXPECT_TRUE(run.HasLine(ModulePath(L"no_entry_point") +
                            L" can't be loaded: it doesn't export acrxEntryPoint."))
        << "what goes wrong at the prompt belongs to the transcript";
    EXPECT_EQ(run.Errors(), L"");
    EXPECT_TRUE(run.HasLine(L"2"));
    EXPECT_EQ(run.Code(), ExitCode::Success);
}
