#include "runtime/lisp/evaluator.h"

#include "runtime/lisp/function_tables.h"
#include "runtime/lisp/printer.h"
#include "runtime/lisp/reader.h"

#include <utility>

namespace drafthost {

namespace {

/// How many cells an evaluation from outside may add at least, however many there are.
constexpr std::size_t cellsForOneRun = 200000;

/// Puts a variable back at the end of the scope.
template <class Type>
class Restored {
  public:
    Restored(Type& variable, Type value) : m_variable(variable), m_before(variable) {
        variable = value;
    }
    Restored(const Restored&) = delete;
    Restored& operator=(const Restored&) = delete;
    ~Restored() { m_variable = m_before; }

  private:
    Type& m_variable;
    const Type m_before;
};

/// Local variables: each symbol gets its old value back at the end of the scope, the last one
/// first.
class Bindings {
  public:
    Bindings() = default;
    Bindings(const Bindings&) = delete;
    Bindings& operator=(const Bindings&) = delete;
    ~Bindings() {
        for (auto bound = m_bound.rbegin(); bound != m_bound.rend(); ++bound) {
            std::swap(bound->first->value, bound->second);
        }
    }

    void Reserve(std::size_t count) { m_bound.reserve(count); }
    void Bind(SymbolCell& symbol, const LispValue& value) {
        m_bound.emplace_back(&symbol, value);
        std::swap(symbol.value, m_bound.back().second);
    }

  private:
    std::vector<std::pair<SymbolCell*, LispValue>> m_bound;
};

LispError NoFunction(const LispValue& symbol) {
    return LispError(L"no function definition: " + LispPrin1(symbol));
}

LispError BadFunction(const LispValue& value) {
    return LispError(L"bad function: " + LispPrin1(value));
}

bool IsLambdaExpression(const LispValue& value) {
    return value.IsCons() && value.Car().IsSymbol() && SymbolOf(value.Car()).name == L"LAMBDA" &&
           value.Cdr().IsCons();
}

void CheckArgumentCount(std::size_t given, std::size_t minimum, std::size_t maximum) {
    if (given < minimum) throw TooFewArguments();
    if (given > maximum) throw TooManyArguments();
}

}  // namespace

bool IsLispFunction(const LispValue& value) {
    return value.Kind() == LispKind::Subr || value.Kind() == LispKind::UserSubr ||
           value.Kind() == LispKind::ExternalSubr || IsLambdaExpression(value);
}

LispEvaluator::LispEvaluator(LispHost& host) : m_host(host) {
    DefineSpecialForms(*this);
    DefineNumberFunctions(*this);
    DefinePointFunctions(*this);
    DefineComparisonFunctions(*this);
    DefinePredicates(*this);
    DefineListFunctions(*this);
    DefineMappingFunctions(*this);
    DefineSortingFunctions(*this);
    DefineStringFunctions(*this);
    DefineStringSearchFunctions(*this);
    DefineSymbolFunctions(*this);
    DefineErrorFunctions(*this);
    DefineOutputFunctions(*this);
    DefineFileFunctions(*this);
    DefineInputFunctions(*this);
    DefineEnvironmentFunctions(*this);
    DefineModuleFunctions(*this);
    DefineFileSystemFunctions(*this);
    DefineRegistryFunctions(*this);
    DefineBlackboardFunctions(*this);
    DefineUnitFunctions(*this);
}

LispOutcome LispEvaluator::Run(const std::function<LispValue()>& work) {
    if (m_running == 0) {
        m_stackLimit.Measure();
        m_interrupted = false;
        EnsureLispCells(cellsForOneRun);
    }
    const Restored<int> running(m_running, m_running + 1);
    const Restored<int> notCaught(m_catchDepth, 0);
    LispOutcome outcome;
    try {
        outcome.value = work();
    } catch (LispError& error) {
        TellErrorFunction(error);
        outcome.succeeded = false;
        outcome.error = error.message;
        outcome.handled = error.teller == LispError::Teller::ErrorFunction;
        // An evaluation around this one ends too.
        if (error.cause == LispError::Cause::Interruption && m_running > 1) m_interrupted = true;
    }
    return outcome;
}

LispValue LispEvaluator::EvaluateText(const std::wstring& text) {
    LispReader reader(text, m_symbols);
    LispValue expression;
    LispValue result;
    while (reader.Next(expression))
        result = Evaluate(expression);
    return result;
}

LispValue LispEvaluator::Evaluate(const LispValue& expression) {
    if (expression.IsSymbol()) return SymbolOf(expression).value;
    return expression.IsCons() ? EvaluateCall(expression) : expression;
}

LispValue LispEvaluator::EvaluateAll(const std::vector<LispValue>& expressions, std::size_t first) {
    LispValue result;
    for (std::size_t at = first; at < expressions.size(); ++at)
        result = Evaluate(expressions[at]);
    return result;
}

LispValue LispEvaluator::EvaluateCall(const LispValue& expression) {
    CheckLimits();
    const LispValue& head = expression.Car();
    const LispValue callable = Callable(head.IsCons() ? Evaluate(head) : head);
    std::vector<LispValue> arguments;
    const LispValue* rest = &expression.Cdr();
    const bool evaluates =
        callable.Kind() != LispKind::Subr || !CellOf<SubrCell>(callable).row.isSpecialForm;
    for (; rest->IsCons(); rest = &rest->Cdr()) {
        arguments.push_back(evaluates ? Evaluate(rest->Car()) : rest->Car());
    }
    if (!rest->IsNil()) throw BadArgumentType(L"listp", expression);
    if (!evaluates) return CallSubr(CellOf<SubrCell>(callable).row, arguments);
    return ApplyCallable(callable, arguments);
}

LispValue LispEvaluator::Callable(const LispValue& function) {
    LispValue callable = function.IsSymbol() ? SymbolOf(function).value : function;
    switch (callable.Kind()) {
        case LispKind::Subr:
        case LispKind::UserSubr:
        case LispKind::ExternalSubr:
            return callable;
        case LispKind::Cons:
            if (!IsLambdaExpression(callable)) throw BadFunction(callable);
            return Evaluate(callable);
        case LispKind::Nil:
            if (function.IsSymbol()) throw NoFunction(function);
            throw BadFunction(callable);
        default:
            throw BadFunction(callable);
    }
}

LispValue LispEvaluator::Apply(const LispValue& function, const std::vector<LispValue>& arguments) {
    CheckLimits();
    return ApplyCallable(Callable(function), arguments);
}

LispValue LispEvaluator::ApplyCallable(const LispValue& callable,
                                       const std::vector<LispValue>& arguments) {
    if (callable.Kind() == LispKind::UserSubr) {
        return CallUserSubr(CellOf<UserSubrCell>(callable), arguments);
    }
    if (callable.Kind() == LispKind::ExternalSubr) {
        return m_host.CallExternal(CellOf<ExternalSubrCell>(callable).function, arguments);
    }
    const LispFunctionRow& row = CellOf<SubrCell>(callable).row;
    if (!row.isSpecialForm) return CallSubr(row, arguments);
    // As in (apply 'and list): the values mustn't be evaluated once more.
    std::vector<LispValue> quoted;
    quoted.reserve(arguments.size());
    for (const LispValue& argument : arguments)
        quoted.push_back(Quoted(argument));
    return CallSubr(row, quoted);
}

LispValue LispEvaluator::CallSubr(const LispFunctionRow& row,
                                  const std::vector<LispValue>& arguments) {
    CheckArgumentCount(arguments.size(), row.minimum,
                       row.maximum < 0 ? arguments.size() : row.maximum);
    return row.function(*this, arguments);
}

LispValue LispEvaluator::CallUserSubr(const UserSubrCell& function,
                                      const std::vector<LispValue>& arguments) {
    CheckArgumentCount(arguments.size(), function.parameters.size(), function.parameters.size());
    Bindings bindings;
    bindings.Reserve(function.parameters.size() + function.locals.size());
    for (std::size_t at = 0; at < arguments.size(); ++at) {
        bindings.Bind(SymbolOf(function.parameters[at]), arguments[at]);
    }
    for (const LispValue& local : function.locals)
        bindings.Bind(SymbolOf(local), LispValue());
    try {
        return EvaluateAll(function.body);
    } catch (LispError& error) {
        TellErrorFunction(error);  // The local variables still have their values.
        throw;
    }
}

LispValue LispEvaluator::EvaluateWith(SymbolCell& symbol, const LispValue& value,
                                      const std::vector<LispValue>& body, std::size_t first) {
    Bindings bindings;
    bindings.Bind(symbol, value);
    try {
        return EvaluateAll(body, first);
    } catch (LispError& error) {
        TellErrorFunction(error);
        throw;
    }
}

LispValue LispEvaluator::ApplyAndCatch(const LispValue& function,
                                       const std::vector<LispValue>& arguments) {
    const Restored<int> caught(m_catchDepth, m_catchDepth + 1);
    try {
        return Apply(function, arguments);
    } catch (const LispError& error) {
        if (error.cause == LispError::Cause::Interruption) throw;
        return LispValue::OfNewCell(LispKind::CaughtError, new CaughtErrorCell(error.message));
    }
}

LispValue LispEvaluator::MakeFunction(const std::wstring& name, const LispValue& parameters,
                                      std::vector<LispValue> body) {
    auto* cell = new UserSubrCell;
    LispValue function = LispValue::OfNewCell(LispKind::UserSubr, cell);
    cell->name = name;
    cell->body = std::move(body);
    std::vector<LispValue>* names = &cell->parameters;
    const LispValue* rest = &parameters;
    for (; rest->IsCons(); rest = &rest->Cdr()) {
        const LispValue& symbol = rest->Car();
        if (!symbol.IsSymbol()) break;
        if (SymbolOf(symbol).name != L"/") {
            names->push_back(symbol);
        } else if (names == &cell->parameters) {
            names = &cell->locals;
        } else {
            break;
        }
    }
    if (!rest->IsNil()) throw LispError(L"bad formal argument list: " + LispPrin1(parameters));
    return function;
}

void LispEvaluator::CheckInterruption() {
    if (m_interrupted && m_interrupted.exchange(false)) {
        throw FunctionCancelled(LispError::Cause::Interruption);
    }
}

void LispEvaluator::CheckLimits() {
    CheckInterruption();
    if (m_stackLimit.IsReached()) throw LispError(L"internal stack limit reached");
}

void LispEvaluator::Define(const LispFunctionRow& row) {
    SymbolOf(m_symbols.Intern(row.name)).value =
        LispValue::OfNewCell(LispKind::Subr, new SubrCell(row));
}

LispValue LispEvaluator::Quoted(const LispValue& value) {
    return LispValue::List({m_symbols.Intern(L"QUOTE"), value});
}

void LispEvaluator::TellErrorFunction(LispError& error) {
    if (error.teller != LispError::Teller::Undecided || m_catchDepth > 0 || m_inErrorFunction) {
        return;
    }
    error.teller = LispError::Teller::Host;
    const SymbolCell* symbol = m_symbols.Find(L"*error*");
    if (symbol == nullptr || !IsLispFunction(symbol->value)) return;
    const LispValue function = symbol->value;
    const StackLimit::Extension extension(m_stackLimit);
    const Restored<bool> inErrorFunction(m_inErrorFunction, true);
    try {
        Apply(function, {LispValue::String(error.message)});
        error.teller = LispError::Teller::ErrorFunction;
    } catch (const LispError& inner) {
        if (inner.cause == LispError::Cause::Exit) {
            error.teller = LispError::Teller::ErrorFunction;
        } else {
            error.message = L"An error has occurred inside the *error* function: " + inner.message;
        }
    }
}

}  // namespace drafthost
