#pragma once

#include "support/child_scenario.h"
#include "support/environment_variable.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// A new folder with a module in it. The log is brought up once in a process, so its tests run in
/// children, which have this folder as their working folder, and judge them by their files, stderr
/// and exit code.
class ModuleFolder {
  public:
    ModuleFolder();

    ChildResult Run(const std::wstring& scenario) const;

    std::wstring operator/(const std::wstring& relative) const { return m_folder / relative; }
    const std::wstring& Path() const { return m_folder.Path(); }
    std::wstring Logs() const { return m_folder / L"Logs"; }
    std::wstring InfoLog() const { return m_folder / L"Logs\\KVTCAD.INFO.log"; }

  private:
    /// Some names have a character whose second byte in code page 936 is a backslash.
    const TempFolder m_folder{L"KVT 乗 日志 log"};
    /// Where a file with one of the library's stock names would end up.
    const EnvironmentVariable m_temp{L"TMP", m_folder / L"temp"};
};

class LogTest : public testing::Test {
  protected:
    const ModuleFolder m_folder;
};

/// What is in the folder, sorted.
std::vector<std::wstring> NamesIn(const std::wstring& folder);

/// The file's lines without their line ends, which must all be CR LF.
std::vector<std::string> LinesOf(const std::wstring& path);

/// The messages alone: neither header lines nor prefixes.
std::vector<std::string> MessagesOf(const std::wstring& path);

/// The text with a 9 for each digit, for what tells the time.
std::string WithNines(std::string text);

/// The prefix of an INFO line with nines, and the blank behind it.
constexpr char infoPrefix[] = "[INFO    99:99:99.999999] ";

/// In a child: the folder of the module.
std::wstring WorkingFolder();

/// In a child: what the host's start message does, as far as the log needs it.
void LoadModule();
