#pragma once

#include "support/child_process.h"
#include "support/install_registry.h"
#include "support/occurrences.h"
#include "support/temp_folder.h"
#include "support/test_profile.h"

#include <string>
#include <vector>

/// What a run of drafthost in an installation gave.
struct InstallationRun {
    unsigned long exitCode = 0;
    std::wstring console;  ///< its output, from UTF-8, lines ended by "\n" alone
    std::string errors;    ///< bytes of stderr, where the log library writes too
};

/// A complete installation in a folder of its own, with the registry values that name it, a module
/// file beside which the logs go, and two drawings. Everything is gone at the end.
///
///     <folder>\install\config.xml, Support\KVTCAD.vlx
///     <folder>\module\KVTCAD.arx
///     <folder>\drawings\first.dwg, second.dwg
class Installation {
  public:
    /// `folderName` becomes part of every path. Without config.xml; the LISP application prints
    /// "[application in <drawing> from <location>]".
    explicit Installation(const std::wstring& folderName = L"kvt installation");
    Installation(const Installation&) = delete;
    Installation& operator=(const Installation&) = delete;

    InstallRegistry& Registry() { return m_registry; }
    std::wstring Location() const { return m_folder / L"install"; }
    std::wstring ConfigPath() const { return Location() + L"\\config.xml"; }
    std::wstring LispPath() const { return Location() + L"\\Support\\KVTCAD.vlx"; }
    std::wstring ModulePath() const { return m_folder / L"module\\KVTCAD.arx"; }
    std::wstring LogFolder() const { return m_folder / L"module\\Logs"; }
    std::wstring LogPath() const { return LogFolder() + L"\\KVTCAD.INFO.log"; }
    std::wstring FirstDrawing() const { return m_folder / L"drawings\\first.dwg"; }
    std::wstring SecondDrawing() const { return m_folder / L"drawings\\second.dwg"; }
    std::wstring Folder() const { return m_folder.Path(); }

    /// Switches the log on by the setting that the module looks for.
    void EnableLog();

    /// Runs drafthost with the module, the drawings (none: one new drawing) and `lines` as its
    /// input, under a profile of this installation's own, which lasts from run to run. An offence
    /// of the module gives exit code 15. `directory` empty: the caller's.
    InstallationRun Run(const std::vector<std::wstring>& drawings, const std::wstring& lines = {},
                        const std::wstring& directory = {});

    /// As above without the module and with other arguments, blanks between them.
    InstallationRun RunHost(const std::wstring& arguments, const std::wstring& lines,
                            const std::wstring& directory = {});

    /// For a host in this program: the profile of the runs above.
    const std::wstring& ProfileName() const { return m_profile.Name(); }

    /// The profile's value of the setting, as the last run left it.
    std::wstring Setting(const std::wstring& name) const { return m_profile.Stored(name); }

    /// What the log files hold, line by line, without the header lines and the bracketed prefix.
    std::vector<std::string> LogMessages() const;

  private:
    TempFolder m_folder;
    InstallRegistry m_registry;
    TestProfile m_profile;
};

/// `text` as LISP writes and prints it: in quotes, each backslash doubled.
std::wstring LispLiteral(std::wstring text);
