#include "runtime/lisp/interpreter.h"

#include "runtime/lisp/evaluator.h"
#include "runtime/lisp/reader.h"

namespace drafthost {

namespace {

bool IsExternal(const LispValue& value, const LispExternal& function) {
    return value.Kind() == LispKind::ExternalSubr &&
           CellOf<ExternalSubrCell>(value).function == function;
}

}  // namespace

std::wstring LispOutcome::ErrorLine() const {
    return succeeded || handled ? std::wstring() : L"; error: " + error;
}

LispInterpreter::LispInterpreter(LispHost& host)
    : m_evaluator(std::make_unique<LispEvaluator>(host)) {}

LispInterpreter::~LispInterpreter() = default;

LispOutcome LispInterpreter::Evaluate(const std::wstring& text) {
    return m_evaluator->Run([&] { return m_evaluator->EvaluateText(text); });
}

LispOutcome LispInterpreter::Call(const std::wstring& name,
                                  const std::vector<LispValue>& arguments) {
    return m_evaluator->Run([&] { return m_evaluator->Apply(Symbol(name), arguments); });
}

bool LispInterpreter::IsFunction(const std::wstring& name) const {
    return IsLispFunction(GetSymbol(name));
}

void LispInterpreter::DefineExternal(const std::wstring& name, const LispExternal& function) {
    const LispValue symbol = Symbol(name);
    SetSymbol(name, LispValue::OfNewCell(LispKind::ExternalSubr,
                                         new ExternalSubrCell(LispPrin1(symbol), function)));
}

bool LispInterpreter::UndefineExternal(const std::wstring& name, const LispExternal& function) {
    SymbolCell* symbol = m_evaluator->Symbols().Find(name);
    if (symbol == nullptr || !IsExternal(symbol->value, function)) return false;
    symbol->value = LispValue();
    return true;
}

void LispInterpreter::UndefineExternals(std::uintptr_t owner) {
    for (const LispValue& symbol : m_evaluator->Symbols().All()) {
        LispValue& value = SymbolOf(symbol).value;
        if (value.Kind() == LispKind::ExternalSubr &&
            CellOf<ExternalSubrCell>(value).function.owner == owner) {
            value = LispValue();
        }
    }
}

LispValue LispInterpreter::GetSymbol(const std::wstring& name) const {
    const SymbolCell* symbol = m_evaluator->Symbols().Find(name);
    return symbol == nullptr ? LispValue() : symbol->value;
}

void LispInterpreter::SetSymbol(const std::wstring& name, const LispValue& value) {
    const LispValue symbol = Symbol(name);
    if (symbol.IsSymbol()) SymbolOf(symbol).value = value;
}

LispValue LispInterpreter::Symbol(const std::wstring& name) {
    return m_evaluator->Symbols().Intern(name);
}

void LispInterpreter::Interrupt() noexcept {
    m_evaluator->Interrupt();
}

bool LispInterpreter::IsBusy() const {
    return m_evaluator->IsBusy();
}

bool IsLispTextUnfinished(const std::wstring& text) {
    LispSymbols symbols;
    LispReader reader(text, symbols);
    LispValue expression;
    try {
        while (reader.Next(expression)) {
        }
    } catch (const LispError&) {
        return reader.EndedEarly();
    }
    return false;
}

}  // namespace drafthost
