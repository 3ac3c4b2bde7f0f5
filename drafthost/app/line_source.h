#pragma once

#include <windows.h>

#include <deque>
#include <memory>
#include <optional>
#include <string>

namespace drafthost {

/// Where lines of input come from.
class LineSource {
  public:
    virtual ~LineSource() = default;

    /// The next line without its end; empty at the end of the input.
    virtual std::optional<std::wstring> NextLine() = 0;

    /// Whether the user sees a line while typing it, so that it needs no echo.
    virtual bool ShowsTyping() const = 0;
};

/// The lines of a text: ends are "\n" or "\r\n", and the last one need not have one.
class TextLines : public LineSource {
  public:
    explicit TextLines(const std::wstring& text);
    std::optional<std::wstring> NextLine() override;
    bool ShowsTyping() const override { return false; }

  private:
    std::deque<std::wstring> m_lines;
};

/// The standard input: a console window, or UTF-8 bytes from a pipe or a file, read as they come.
/// A line that isn't valid UTF-8 is taken to be in the ANSI code page. Ctrl+C at a console makes
/// the line an empty one.
class StandardInput : public LineSource {
  public:
    StandardInput();
    std::optional<std::wstring> NextLine() override;
    bool ShowsTyping() const override { return m_isConsole; }

  private:
    std::optional<std::wstring> NextTypedLine();
    bool ReadMore();

    HANDLE m_input;
    bool m_isConsole = false;
    bool m_hasEnded = false;
    bool m_isFirstLine = true;
    std::string m_bytes;  ///< read and not yet given out
};

/// The lines of a script file; null when it can't be read.
std::unique_ptr<LineSource> OpenScript(const std::wstring& path);

}  // namespace drafthost
