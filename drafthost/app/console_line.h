#pragma once

#include <string>
#include <vector>

namespace drafthost {

/// What kind of input a line begins.
enum class LineKind {
    Empty,    ///< nothing, or a comment behind ";"
    Lisp,     ///< an expression: "(" or a quotation ahead
    Value,    ///< "!NAME": the value of a symbol
    Command,  ///< anything else
};

LineKind KindOfLine(const std::wstring& line);

/// Without blanks at both ends.
std::wstring Trimmed(const std::wstring& text);

/// A command line's first word and what stands behind it, both trimmed. The word is in upper case.
struct CommandLine {
    std::wstring word;
    std::wstring rest;
};

CommandLine SplitCommandLine(const std::wstring& line);

/// The words between blanks.
std::vector<std::wstring> Words(const std::wstring& line);

/// Without the pair of quotation marks around a path.
std::wstring Unquoted(const std::wstring& text);

}  // namespace drafthost
