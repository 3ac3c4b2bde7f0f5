#pragma once

#include "runtime/lisp/symbol_table.h"
#include "runtime/lisp/value.h"

#include <cstddef>
#include <string>
#include <vector>

namespace drafthost {

/// Reads expressions from LISP text one after the other. Lists may be nested to any depth.
///
/// Comments are ";" to the end of the line and ";|" to "|;". In strings the escapes are \\ \" \e \n
/// \r \t, three octal digits and \U+ with four hexadecimal ones; another letter stands for itself.
class LispReader {
  public:
    /// Both must live as long as the reader.
    LispReader(const std::wstring& text, LispSymbols& symbols);

    /// The next expression in `expression`; false at the end of the text. Throws LispError for what
    /// can't be read, and is then of no further use.
    bool Next(LispValue& expression);

    /// After an error: the text just ended too early, so more of it could mend it.
    bool EndedEarly() const { return m_endedEarly; }

  private:
    struct OpenList;

    void SkipBlanks();
    void SkipBlockComment();
    bool ReadPiece(std::vector<OpenList>& open, LispValue& value);
    LispValue Closed(std::vector<OpenList>& open);
    LispValue ReadString();
    wchar_t ReadEscape();
    bool ReadWord(std::vector<OpenList>& open, LispValue& value);
    [[noreturn]] void FailAtEnd(const wchar_t* message);

    const std::wstring& m_text;
    LispSymbols& m_symbols;
    std::size_t m_at = 0;
    bool m_endedEarly = false;
};

}  // namespace drafthost
