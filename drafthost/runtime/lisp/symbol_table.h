#pragma once

#include "runtime/lisp/cells.h"
#include "runtime/lisp/value.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace drafthost {

/// The symbols of one interpreter by their upper-case names. Its end takes every symbol's value
/// away, and with that cuts the circles of functions that name themselves.
class LispSymbols {
  public:
    LispSymbols() = default;
    LispSymbols(const LispSymbols&) = delete;
    LispSymbols& operator=(const LispSymbols&) = delete;
    ~LispSymbols();

    /// The symbol of that name in any case, made if need be. L"NIL" gives nil, L"T" gives T.
    LispValue Intern(const std::wstring& name);

    /// Null when there is no such symbol yet; nothing is made.
    SymbolCell* Find(const std::wstring& name) const;

    /// All symbols, sorted by name.
    std::vector<LispValue> All() const;

  private:
    std::unordered_map<std::wstring, LispValue> m_symbols;
};

}  // namespace drafthost
