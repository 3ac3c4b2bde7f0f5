// What every drawing brings, and the command.

#include "e2e/installation.h"

#include <gtest/gtest.h>

#include <filesystem>

TEST(Drawing, EachOneLoadsTheApplicationWhichGetsItsDirectory) {
    Installation installation;

    const InstallationRun run =
        installation.Run({installation.FirstDrawing(), installation.SecondDrawing()});

    const std::wstring from = L" from " + installation.Location() + L"]";
    EXPECT_EQ(Occurrences(run.console, L"[application in first.dwg" + from), 1u);
    EXPECT_EQ(Occurrences(run.console, L"[application in second.dwg" + from), 1u);
}

TEST(Drawing, OpenedLaterLoadsTheApplicationAsWell) {
    Installation installation;

    const InstallationRun run = installation.Run({installation.FirstDrawing()},
                                                 L"OPEN " + installation.SecondDrawing() + L"\n");

    EXPECT_EQ(Occurrences(run.console, L"[application in second.dwg from "), 1u);
    EXPECT_EQ(run.exitCode, 0u);
}

TEST(Drawing, GetKVTPathIgnoresItsArguments) {
    Installation installation;

    const InstallationRun run =
        installation.Run({installation.FirstDrawing()}, L"(getkvtpath 1 nil)\n");

    EXPECT_EQ(Occurrences(run.console, L"\n" + LispLiteral(installation.Location()) + L"\n"), 1u);
}

TEST(Drawing, AMissingApplicationIsSilentAndTheFunctionIsDefined) {
    Installation installation;
    std::filesystem::remove(installation.LispPath());

    const InstallationRun run =
        installation.Run({installation.FirstDrawing()}, L"(strlen (getkvtpath))\n");

    EXPECT_EQ(run.exitCode, 0u);
    EXPECT_EQ(run.console.find(L"error"), std::wstring::npos);
    const std::wstring length = std::to_wstring(installation.Location().size());
    EXPECT_EQ(Occurrences(run.console, L"\n" + length + L"\n"), 1u);
}

TEST(Drawing, ADirectoryOfTheApplicationsNameQueuesNothing) {
    Installation installation;
    std::filesystem::remove(installation.LispPath());
    std::filesystem::create_directory(installation.LispPath());

    const InstallationRun run = installation.Run({installation.FirstDrawing()});

    EXPECT_EQ(run.exitCode, 0u);
    EXPECT_EQ(run.console.find(L"error"), std::wstring::npos);
}

TEST(Drawing, TheApplicationFindsFilesThroughTheSearchPathOfTheModule) {
    Installation installation;
    WriteFileBytes(installation.Location() + L"\\R17x\\x64\\standard.txt", "x");

    const InstallationRun run = installation.Run(
        {installation.FirstDrawing()}, L"(if (findfile \"standard.txt\") \"found it\")\n");

    EXPECT_EQ(Occurrences(run.console, L"\"found it\"\n"), 1u);
}

TEST(Drawing, AfterUnloadingTheModuleTheFunctionIsGone) {
    Installation installation;

    const InstallationRun run =
        installation.Run({installation.FirstDrawing()}, L"UNLOAD KVTCAD.arx\n(getkvtpath)\n");

    EXPECT_NE(run.console.find(L"no function definition: GETKVTPATH"), std::wstring::npos);
    EXPECT_EQ(run.exitCode, 0u) << "the host had nothing to take away";
}
