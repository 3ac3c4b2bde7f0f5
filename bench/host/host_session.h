#pragma once

#include "e2e/installation.h"
#include "support/test_profile.h"

#include "runtime/control.h"

#include <string>

/// The host in this program, silent. Once in a process.
class RunningHost {
  public:
    /// Throws std::runtime_error when it doesn't start.
    RunningHost();
    RunningHost(const RunningHost&) = delete;
    RunningHost& operator=(const RunningHost&) = delete;
    ~RunningHost();

  private:
    class SilentOutput : public drafthost::TextOutput {
        void Write(const std::wstring&) override {}
    };

    SilentOutput m_output;
    // Settings of an earlier run would make the search path longer each time.
    TestProfile m_profile;
};

/// The host in this program, with an installation, our module and the bare ones beside each other.
/// Begun at the first use, ended with the program.
class HostSession {
  public:
    static HostSession& Instance();
    HostSession(const HostSession&) = delete;
    HostSession& operator=(const HostSession&) = delete;

    std::wstring FirstDrawing() const { return m_installation.FirstDrawing(); }

    /// The module files as they are delivered: without symbols.
    std::wstring OurModule() const { return m_installation.ModulePath(); }
    /// Makes the same calls, and writes as many log lines.
    std::wstring BareModule() const { return Beside(L"bare.arx"); }
    /// As above, without log lines.
    std::wstring SilentBareModule() const { return Beside(L"bare_silent.arx"); }

    /// Whether the settings switch the log on.
    void SwitchLog(bool isOn);

  private:
    HostSession();

    std::wstring Beside(const wchar_t* name) const;

    Installation m_installation;
    RunningHost m_host;
};

/// A loaded module, unloaded at the end. Throws std::runtime_error when it can't be.
class LoadedModule {
  public:
    explicit LoadedModule(const std::wstring& path);
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;
    ~LoadedModule();

  private:
    std::wstring m_path;
};

/// Opens the drawing and closes it again; false when either failed.
bool OpenAndClose(const std::wstring& drawing);
