#include "runtime/lisp/symbol_table.h"

#include "runtime/lisp/letter_case.h"

#include <algorithm>

namespace drafthost {

LispSymbols::~LispSymbols() {
    for (auto& entry : m_symbols)
        SymbolOf(entry.second).value = LispValue();
}

LispValue LispSymbols::Intern(const std::wstring& name) {
    std::wstring upper = ToUpperCase(name);
    if (upper == L"NIL") return LispValue();
    if (upper == L"T") return LispValue::True();
    const auto found = m_symbols.find(upper);
    if (found != m_symbols.end()) return found->second;
    LispValue symbol = LispValue::OfNewCell(LispKind::Symbol, new SymbolCell(upper));
    m_symbols.emplace(std::move(upper), symbol);
    return symbol;
}

SymbolCell* LispSymbols::Find(const std::wstring& name) const {
    const auto found = m_symbols.find(ToUpperCase(name));
    return found == m_symbols.end() ? nullptr : &SymbolOf(found->second);
}

std::vector<LispValue> LispSymbols::All() const {
    std::vector<LispValue> symbols;
    symbols.reserve(m_symbols.size());
    for (const auto& entry : m_symbols)
        symbols.push_back(entry.second);
    std::sort(symbols.begin(), symbols.end(), [](const LispValue& left, const LispValue& right) {
        return SymbolOf(left).name < SymbolOf(right).name;
    });
    return symbols;
}

}  // namespace drafthost
