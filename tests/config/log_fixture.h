#pragma once

#include "support/child_scenario.h"
#include "support/environment_variable.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// The log is brought up once in a process, so its tests run in children and judge them by their
/// files, stderr and exit code. The module is a DLL in the child's working folder.
class LogTest : public testing::Test {
  protected:
    LogTest();

    /// Runs the scenario with the module's folder as the working folder.
    ChildResult Run(const std::wstring& scenario) const;

    std::wstring Logs() const { return m_folder / L"Logs"; }
    std::wstring InfoLog() const { return m_folder / L"Logs\\KVTCAD.INFO.log"; }

    /// What is in the folder, sorted.
    static std::vector<std::wstring> NamesIn(const std::wstring& folder);

    /// The file's lines without their line ends, which must all be CR LF.
    static std::vector<std::string> LinesOf(const std::wstring& path);

    /// The messages alone: neither header lines nor prefixes.
    static std::vector<std::string> MessagesOf(const std::wstring& path);

    static size_t CountOf(const std::string& text, const std::string& part);

    /// Some names have a character whose second byte in code page 936 is a backslash.
    const TempFolder m_folder{L"KVT 乗 日志 log"};
    /// Where a file with one of the library's stock names would end up.
    const EnvironmentVariable m_temp{L"TMP", m_folder / L"temp"};
};

/// A regular expression for the prefix of an INFO line and the blank behind it.
constexpr char infoPattern[] = "\\[INFO    [0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{6}\\] ";

/// In a child: the folder of the module.
std::wstring WorkingFolder();

/// In a child: what the host's start message does, as far as the log needs it.
void LoadModule();
