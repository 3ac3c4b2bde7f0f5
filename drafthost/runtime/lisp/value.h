#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace drafthost {

class LispCell;

enum class LispKind {
    Nil,
    True,          ///< T; not a Symbol here, though `(type T)` says SYM
    Integer,       ///< 32 bits with a sign
    Real,          ///< double
    String,        ///< UTF-16
    Symbol,        ///< of one interpreter; the one without a name is what `(princ)` gives
    Cons,          ///< a pair: lists and dotted pairs
    Subr,          ///< built in
    UserSubr,      ///< made by `defun` or `lambda`
    ExternalSubr,  ///< defined by a module
    File,          ///< what `open` gives
    CaughtError    ///< what `vl-catch-all-apply` gives for an error
};

/// One LISP value; cheap to copy.
///
/// Pairs and strings can't be changed once made, so values form no cycles but those through a
/// symbol's value, and the interpreter cuts these at its end. Cells are counted without locks: the
/// values of one interpreter are for one thread at a time. A value may outlive its interpreter.
///
/// `String`, `Cons` and `List` throw LispError when there are too many cells or letters.
class LispValue {
  public:
    LispValue() = default;  ///< nil
    LispValue(const LispValue& other) noexcept;
    LispValue(LispValue&& other) noexcept;
    LispValue& operator=(LispValue other) noexcept;
    ~LispValue();

    static LispValue True();
    static LispValue Boolean(bool isTrue);  ///< T or nil
    static LispValue Integer(std::int32_t integer);
    static LispValue Real(double real);
    static LispValue String(std::wstring text);  ///< up to four million letters
    static LispValue Cons(LispValue car, LispValue cdr);
    static LispValue List(const std::vector<LispValue>& items);
    /// With `tail` behind the items; what is no list makes the last pair a dotted one.
    static LispValue List(const std::vector<LispValue>& items, LispValue tail);
    /// Takes over one new cell, for the evaluator's own kinds.
    static LispValue OfNewCell(LispKind kind, LispCell* cell);

    LispKind Kind() const { return m_kind; }
    bool IsNil() const { return m_kind == LispKind::Nil; }
    bool IsInteger() const { return m_kind == LispKind::Integer; }
    bool IsReal() const { return m_kind == LispKind::Real; }
    bool IsNumber() const { return IsInteger() || IsReal(); }
    bool IsString() const { return m_kind == LispKind::String; }
    bool IsSymbol() const { return m_kind == LispKind::Symbol; }
    bool IsCons() const { return m_kind == LispKind::Cons; }

    /// Each of these is for its own kind only.
    std::int32_t AsInteger() const { return m_payload.integer; }
    const std::wstring& AsString() const;
    const LispValue& Car() const;
    const LispValue& Cdr() const;
    /// For both kinds of number.
    double AsReal() const { return IsInteger() ? m_payload.integer : m_payload.real; }

    /// The items of a list, without the last cdr of a dotted one; none for what is no list.
    std::vector<LispValue> Items() const;

    /// The same value in the sense of `eq`: the same cell, or equal integers, reals or strings.
    bool IsSame(const LispValue& other) const;

    /// Null for nil, T and numbers.
    LispCell* Cell() const;

  private:
    friend class DoomedCells;

    union Payload {
        LispCell* cell;
        std::int32_t integer;
        double real;
    };

    LispKind m_kind = LispKind::Nil;
    Payload m_payload = {nullptr};  ///< the member that belongs to the kind
};

/// How many strings, symbols, pairs and functions exist in the process: what a test for leaks
/// compares. Beyond a million no more strings and pairs are made, so that a runaway program
/// doesn't take all memory.
std::size_t LiveLispCells();

/// Lets that many more strings and pairs be made, even if the bound has to rise for it.
void EnsureLispCells(std::size_t count);

}  // namespace drafthost
