#pragma once

#include "runtime/lisp/host.h"
#include "runtime/lisp/value.h"

#include <cstddef>
#include <string>
#include <vector>

namespace drafthost {

class LispEvaluator;

/// The cells whose last reference is gone: freed one by one, so that a list of any length or depth
/// needs no deep recursion.
class DoomedCells {
  public:
    /// Gives up the reference that `value` holds; `value` is nil afterwards.
    void Release(LispValue& value);
    void FreeAll();

  private:
    LispCell* m_first = nullptr;
};

/// What a value refers to, with the number of values that do.
class LispCell {
  public:
    LispCell();
    LispCell(const LispCell&) = delete;
    LispCell& operator=(const LispCell&) = delete;
    virtual ~LispCell();

    /// Gives up the references to other cells, ahead of the destructor.
    virtual void ReleaseParts(DoomedCells&) {}

  private:
    friend class LispValue;
    friend class DoomedCells;

    std::size_t m_references = 1;
    LispCell* m_nextDoomed = nullptr;
};

struct StringCell : LispCell {
    explicit StringCell(std::wstring text) : text(std::move(text)) {}

    const std::wstring text;
};

struct ConsCell : LispCell {
    ConsCell(LispValue car, LispValue cdr) : car(std::move(car)), cdr(std::move(cdr)) {}
    void ReleaseParts(DoomedCells& doomed) override;

    LispValue car;
    LispValue cdr;
};

struct SymbolCell : LispCell {
    explicit SymbolCell(std::wstring name) : name(std::move(name)) {}
    void ReleaseParts(DoomedCells& doomed) override;

    const std::wstring name;  ///< upper case
    LispValue value;
};

/// A built-in function gets its arguments evaluated, a special form gets them as they stand.
using LispFunction = LispValue (*)(LispEvaluator& evaluator,
                                   const std::vector<LispValue>& arguments);

/// One built-in function as the tables have it.
struct LispFunctionRow {
    const wchar_t* name;
    LispFunction function;
    int minimum = 0;   ///< fewest arguments
    int maximum = -1;  ///< most arguments; -1: any number
    bool isSpecialForm = false;
};

struct SubrCell : LispCell {
    explicit SubrCell(const LispFunctionRow& row) : row(row) {}

    const LispFunctionRow row;
};

struct UserSubrCell : LispCell {
    void ReleaseParts(DoomedCells& doomed) override;

    std::wstring name;                  ///< empty for a lambda
    std::vector<LispValue> parameters;  ///< symbols
    std::vector<LispValue> locals;      ///< symbols
    std::vector<LispValue> body;
};

struct ExternalSubrCell : LispCell {
    ExternalSubrCell(std::wstring name, const LispExternal& function)
        : name(std::move(name)), function(function) {}

    const std::wstring name;
    const LispExternal function;
};

struct CaughtErrorCell : LispCell {
    explicit CaughtErrorCell(std::wstring message) : message(std::move(message)) {}

    const std::wstring message;
};

/// The cell of a value of just that kind.
template <class Cell>
Cell& CellOf(const LispValue& value) {
    return *static_cast<Cell*>(value.Cell());
}

inline SymbolCell& SymbolOf(const LispValue& value) {
    return CellOf<SymbolCell>(value);
}

}  // namespace drafthost
