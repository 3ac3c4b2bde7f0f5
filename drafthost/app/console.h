#pragma once

#include "app/line_source.h"
#include "app/options.h"
#include "runtime/control.h"

#include <memory>
#include <vector>

namespace drafthost {

/// The session at the command line: reads lines from its sources, one source after the other, and
/// has the host do what they say.
class Console : private LineInput {
  public:
    explicit Console(const Options& options);
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;
    ~Console() override;

    void AddSource(std::unique_ptr<LineSource> source);

    /// Loads the modules and opens the drawings of the command line; stops at the first failure,
    /// which is told on the standard error.
    ExitCode Begin();

    /// Reads and runs lines until QUIT or the end of the last source.
    ExitCode Run();

    /// Whether the line that runs was typed at a console.
    bool IsLineTyped() const;

  private:
    struct OwnCommand;
    static const OwnCommand g_ownCommands[];

    std::optional<std::wstring> ReadLine(const std::wstring& prompt) override;
    std::optional<std::wstring> ReadStatement();

    // Each of these gives false when the line failed.
    bool Execute(const std::wstring& statement);
    bool ExecuteCommand(const std::wstring& line);
    bool ExecuteModuleCommands(const std::wstring& line);

    // The host's own commands; `rest` is what stood behind the name.
    bool Load(const std::wstring& rest);
    bool Close(const std::wstring& rest);
    bool Environment(const std::wstring& rest);
    bool Help(const std::wstring& rest);
    bool List(const std::wstring& rest);
    bool New(const std::wstring& rest);
    bool Open(const std::wstring& rest);
    bool Quit(const std::wstring& rest);
    bool Switch(const std::wstring& rest);
    bool Unload(const std::wstring& rest);

    /// `rest` without quotation marks, or the answer to the question when it is empty.
    std::wstring Argument(const std::wstring& rest, const std::wstring& question);

    const Options m_options;
    std::vector<std::unique_ptr<LineSource>> m_sources;
    std::size_t m_currentSource = 0;
    bool m_hasQuit = false;
};

}  // namespace drafthost
