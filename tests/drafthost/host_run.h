#pragma once

#include "support/test_profile.h"

#include "runtime/exit_code.h"

#include <string>

/// Runs drafthost.exe as a user does: options, lines of input, transcript and exit code.
class HostRun {
  public:
    /// `options` is the command line behind the program's name; a profile of the run's own is
    /// added. `input` are lines for the standard input, passed as UTF-8.
    explicit HostRun(const std::wstring& options, const std::wstring& input = L"");

    drafthost::ExitCode Code() const { return m_code; }
    const std::wstring& Output() const { return m_output; }  ///< the standard output
    const std::wstring& Errors() const { return m_errors; }  ///< the standard error

    /// Whether the standard output has this line.
    bool HasLine(const std::wstring& line) const;

    /// What came between the echo of this line of input and the next prompt, without the line end
    /// ahead of that.
    std::wstring Shown(const std::wstring& line) const;

  private:
    TestProfile m_profile;
    drafthost::ExitCode m_code = drafthost::ExitCode::InternalError;
    std::wstring m_output;
    std::wstring m_errors;
};

/// The options that load fixture modules: LoadOption(L"recorder").
std::wstring LoadOption(const std::wstring& module);

/// The full path of a fixture module.
std::wstring ModulePath(const std::wstring& module);

/// For its life the fixture `misbehaving` does this, in the children of this process.
class Misdeed {
  public:
    explicit Misdeed(const std::wstring& misdeed);
    Misdeed(const Misdeed&) = delete;
    Misdeed& operator=(const Misdeed&) = delete;
    ~Misdeed();
};
