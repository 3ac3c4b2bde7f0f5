// The module's start, seen from outside: the built KVTCAD.arx in drafthost.

#include "e2e/installation.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <filesystem>

namespace {

const std::wstring stars(55, L'*');
const std::wstring refusal = L"\n《KVT CAD辅助设计软件》可能没有正确安装";
constexpr unsigned long refusedExitCode = 13;

/// Holds a file open without sharing, so that nobody else can open it at all.
class LockedFile {
  public:
    explicit LockedFile(const std::wstring& path)
        : m_file(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                             FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;
    ~LockedFile() { CloseHandle(m_file); }

  private:
    HANDLE m_file;
};

/// The drive that `with_drive` has made for this program, without config.xml at the start and at
/// the end: a path without a drive lands in its root when it is the current one.
class OwnDrive {
  public:
    OwnDrive() { DeleteFileW(configPath); }
    OwnDrive(const OwnDrive&) = delete;
    OwnDrive& operator=(const OwnDrive&) = delete;
    ~OwnDrive() { DeleteFileW(configPath); }

    static constexpr wchar_t root[] = L"R:\\";
    static constexpr wchar_t configPath[] = L"R:\\config.xml";
};

void ExpectRefused(const InstallationRun& run) {
    EXPECT_EQ(run.exitCode, refusedExitCode);
    EXPECT_EQ(Occurrences(run.console, refusal), 1u) << "console without the refusal";
    EXPECT_EQ(run.console.find(stars), std::wstring::npos) << "a banner was printed";
}

void ExpectStarted(const InstallationRun& run) {
    EXPECT_EQ(run.exitCode, 0u);
    EXPECT_EQ(Occurrences(run.console, L"\n欢迎使用《KVT CAD辅助设计软件》"), 1u);
    EXPECT_EQ(run.console.find(refusal), std::wstring::npos) << "the start was refused";
}

}  // namespace

TEST(Start, PrintsTheBannerOnceAndNeverAtADrawing) {
    Installation installation;

    const InstallationRun run =
        installation.Run({installation.FirstDrawing(), installation.SecondDrawing()});

    ExpectStarted(run);
    EXPECT_EQ(Occurrences(run.console, L"\n" + stars +
                                           L"\n欢迎使用《KVT CAD辅助设计软件》2026.1 \n"
                                           L"官方网站:"),
              1u);
    EXPECT_EQ(Occurrences(run.console, L"\n技术支持:"), 1u);
    EXPECT_EQ(Occurrences(run.console, L"\n\n" + stars), 1u);
    EXPECT_EQ(Occurrences(run.console, L"[application in "), 2u);
}

TEST(Start, IsRefusedWithoutLocation) {
    Installation installation;
    installation.Registry().DeleteKey();
    installation.Registry().SetVersion(L"2026.1");
    OwnDrive drive;

    const InstallationRun run = installation.Run({}, {}, OwnDrive::root);

    ExpectRefused(run);
}

TEST(Start, WithoutLocationStillLoadsAndWritesConfigAtTheDrivesRoot) {
    Installation installation;
    installation.Registry().DeleteKey();
    installation.Registry().SetVersion(L"2026.1");
    OwnDrive drive;

    installation.Run({}, {}, OwnDrive::root);

    EXPECT_NE(ReadFileBytes(OwnDrive::configPath).find("<Config"), std::string::npos);
}

TEST(Start, WithoutLocationLogsTheTwoFixedTextsWithNothingBetween) {
    Installation installation;
    installation.Registry().DeleteKey();
    installation.Registry().SetVersion(L"2026.1");
    OwnDrive drive;
    WriteFileBytes(OwnDrive::configPath, "<Config><EnableLog/></Config>");

    installation.Run({}, {}, OwnDrive::root);

    const std::vector<std::string> log = installation.LogMessages();
    ASSERT_EQ(log.size(), 4u);
    EXPECT_EQ(log[0], "读取 SOFTWARE\\Brennvik\\KVT CAD辅助设计软件\\Location = ");
    EXPECT_EQ(log[2], "安装目录 -不存在");
    EXPECT_EQ(log[3], "读取配置-成功");
}

TEST(Start, IsRefusedWithoutVersionAlthoughNothingElseNeedsIt) {
    Installation installation;
    installation.Registry().DeleteKey();
    installation.Registry().SetLocation(installation.Location());

    const InstallationRun run = installation.Run({});

    ExpectRefused(run);
}

TEST(Start, IsRefusedWithoutTheKeyAndBothTextsStayEmpty) {
    Installation installation;
    installation.Registry().DeleteKey();
    OwnDrive drive;
    WriteFileBytes(OwnDrive::configPath, "<Config><EnableLog/></Config>");

    const InstallationRun run = installation.Run({}, {}, OwnDrive::root);

    ExpectRefused(run);
    const std::vector<std::string> log = installation.LogMessages();
    ASSERT_EQ(log.size(), 4u);
    EXPECT_EQ(log[0], "读取 SOFTWARE\\Brennvik\\KVT CAD辅助设计软件\\Location = ");
    EXPECT_EQ(log[1], "读取 SOFTWARE\\Brennvik\\KVT CAD辅助设计软件\\Version = ");
}

TEST(Start, LooksInThe32BitViewAlone) {
    Installation installation;
    installation.Registry().DeleteKey();
    installation.Registry().SetVersion(L"2026.1");
    installation.Registry().SetLocationIn64BitView(installation.Location());
    OwnDrive drive;

    const InstallationRun run = installation.Run({}, {}, OwnDrive::root);

    ExpectRefused(run);
}

TEST(Start, IsRefusedWhenTheLocationIsNotThere) {
    Installation installation;
    installation.Registry().SetLocation(installation.Folder() + L"\\elsewhere");

    const InstallationRun run = installation.Run({});

    ExpectRefused(run);
}

TEST(Start, IsRefusedWhenConfigCanNeitherBeReadNorWritten) {
    Installation installation;
    LockedFile lock(installation.ConfigPath());

    const InstallationRun run = installation.Run({});

    ExpectRefused(run);
}

TEST(Start, ARefusedStartAtThePromptLeavesTheHostThere) {
    Installation installation;
    installation.Registry().SetLocation(installation.Folder() + L"\\elsewhere");

    const InstallationRun run =
        installation.RunHost({}, L"APPLOAD " + installation.ModulePath() + L"\n(+ 40 2)\n");

    EXPECT_EQ(Occurrences(run.console, refusal), 1u);
    EXPECT_EQ(Occurrences(run.console, L"\n42\n"), 1u);
    EXPECT_EQ(run.console.find(L"[application in "), std::wstring::npos);
    EXPECT_EQ(run.exitCode, 0u);
}

// Meant: the module doesn't take its commands back; the host does so for it.
TEST(Start, ARefusedStartLeavesTheCommandToTheHost) {
    Installation installation;
    installation.Registry().SetLocation(installation.Folder() + L"\\elsewhere");

    const InstallationRun run =
        installation.RunHost(L"--verbose --load \"" + installation.ModulePath() + L"\"", {});

    EXPECT_EQ(Occurrences(run.console, L"drafthost: dropped command KVTCAD/LoadKVT of "), 1u);
}

TEST(Start, IsRefusedWhenTheLocationIsAPlainFile) {
    Installation installation;
    const std::wstring file = installation.Folder() + L"\\plain";
    WriteFileBytes(file, "a file");
    installation.Registry().SetLocation(file);

    const InstallationRun run = installation.Run({});

    ExpectRefused(run);
}

TEST(Start, WorksAtALocationWithBlanksAndChineseCharacters) {
    Installation installation(L"安装 目录 测试");

    const InstallationRun run = installation.Run({installation.FirstDrawing()});

    ExpectStarted(run);
    EXPECT_EQ(Occurrences(run.console,
                          L"[application in first.dwg from " + installation.Location() + L"]"),
              1u);
}

// Meant: the banner is the format itself, so a percent sign in the version is read as one.
TEST(Start, APercentSignInTheVersionBecomesPartOfTheFormat) {
    Installation installation;
    installation.Registry().SetVersion(L"100%%");

    const InstallationRun run = installation.Run({});

    ExpectStarted(run);
    EXPECT_EQ(Occurrences(run.console, L"《KVT CAD辅助设计软件》100% \n"), 1u);
}

// Meant: the Support directory is in no entry.
TEST(Start, PutsTheInstallationAtTheHeadOfTheSearchPath) {
    Installation installation;
    const std::wstring entries =
        installation.Location() + L";" + installation.Location() + L"\\R17x\\x64;";

    installation.Run({});
    const std::wstring once = installation.Setting(L"ACAD");
    installation.Run({});

    EXPECT_EQ(once.compare(0, entries.size(), entries), 0);
    EXPECT_EQ(once.find(installation.Location() + L"\\Support"), std::wstring::npos);
    EXPECT_EQ(installation.Setting(L"ACAD"), once) << "a second start made the path grow";
}

TEST(Start, AddsOnlyTheEntriesThatTheSearchPathLacks) {
    Installation installation;
    const std::wstring second = installation.Location() + L";";
    const std::wstring first = installation.Location() + L"\\R17x\\x64;";
    struct Row {
        const char* why;
        std::wstring before;
        std::wstring added;
    };
    const Row rows[] = {
        {"neither: the one that is looked for later stands first", L"C:\\other", second + first},
        {"the first only", first + L"C:\\other", second},
        {"the second only", L"C:\\other;" + second, first},
        {"the first as a last item without its semicolon",
         L"C:\\other;" + first.substr(0, first.size() - 1), second + first},
    };
    for (const Row& row : rows) {
        installation.RunHost({}, L"(setenv \"ACAD\" " + LispLiteral(row.before) + L")\n");
        ASSERT_EQ(installation.Setting(L"ACAD"), row.before) << row.why;

        installation.Run({});

        EXPECT_EQ(installation.Setting(L"ACAD"), row.added + row.before) << row.why;
    }
}

TEST(Start, ARefusedStartLeavesTheSearchPathAlone) {
    Installation installation;
    installation.Registry().SetLocation(installation.Folder() + L"\\elsewhere");

    installation.Run({});

    EXPECT_EQ(installation.Setting(L"ACAD").find(installation.Folder()), std::wstring::npos);
}
