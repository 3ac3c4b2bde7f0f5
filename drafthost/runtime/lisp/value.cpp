#include "runtime/lisp/value.h"

#include "runtime/lisp/cells.h"
#include "runtime/lisp/error.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace drafthost {

namespace {

constexpr std::size_t mostCells = 1000000;
constexpr std::size_t mostLetters = 0x400000;

std::atomic<std::size_t> g_liveCells{0};
std::atomic<std::size_t> g_cellLimit{mostCells};

void CheckCellLimit() {
    if (LiveLispCells() >= g_cellLimit.load(std::memory_order_relaxed)) {
        throw LispError(L"insufficient node space");
    }
}

bool HasCell(LispKind kind) {
    return kind != LispKind::Nil && kind != LispKind::True && kind != LispKind::Integer &&
           kind != LispKind::Real;
}

}  // namespace

std::size_t LiveLispCells() {
    return g_liveCells.load(std::memory_order_relaxed);
}

void EnsureLispCells(std::size_t count) {
    g_cellLimit = std::max(mostCells, LiveLispCells() + count);
}

LispCell::LispCell() {
    g_liveCells.fetch_add(1, std::memory_order_relaxed);
}

LispCell::~LispCell() {
    g_liveCells.fetch_sub(1, std::memory_order_relaxed);
}

void ConsCell::ReleaseParts(DoomedCells& doomed) {
    doomed.Release(car);
    doomed.Release(cdr);
}

void SymbolCell::ReleaseParts(DoomedCells& doomed) {
    doomed.Release(value);
}

void UserSubrCell::ReleaseParts(DoomedCells& doomed) {
    for (std::vector<LispValue>* part : {&parameters, &locals, &body}) {
        for (LispValue& value : *part)
            doomed.Release(value);
    }
}

void DoomedCells::Release(LispValue& value) {
    LispCell* cell = value.Cell();
    value.m_kind = LispKind::Nil;
    if (cell == nullptr || --cell->m_references != 0) return;
    cell->m_nextDoomed = m_first;
    m_first = cell;
}

void DoomedCells::FreeAll() {
    while (m_first != nullptr) {
        LispCell* cell = m_first;
        m_first = cell->m_nextDoomed;
        cell->ReleaseParts(*this);
        delete cell;
    }
}

LispValue::LispValue(const LispValue& other) noexcept
    : m_kind(other.m_kind), m_payload(other.m_payload) {
    if (HasCell(m_kind)) ++m_payload.cell->m_references;
}

LispValue::LispValue(LispValue&& other) noexcept
    : m_kind(std::exchange(other.m_kind, LispKind::Nil)), m_payload(other.m_payload) {}

LispValue& LispValue::operator=(LispValue other) noexcept {
    std::swap(m_kind, other.m_kind);
    std::swap(m_payload, other.m_payload);
    return *this;
}

LispValue::~LispValue() {
    if (!HasCell(m_kind)) return;
    DoomedCells doomed;
    doomed.Release(*this);
    doomed.FreeAll();
}

LispValue LispValue::True() {
    LispValue value;
    value.m_kind = LispKind::True;
    return value;
}

LispValue LispValue::Boolean(bool isTrue) {
    return isTrue ? True() : LispValue();
}

LispValue LispValue::Integer(std::int32_t integer) {
    LispValue value;
    value.m_kind = LispKind::Integer;
    value.m_payload.integer = integer;
    return value;
}

LispValue LispValue::Real(double real) {
    LispValue value;
    value.m_kind = LispKind::Real;
    value.m_payload.real = real;
    return value;
}

LispValue LispValue::String(std::wstring text) {
    if (text.size() > mostLetters) throw LispError(L"insufficient string space");
    CheckCellLimit();
    return OfNewCell(LispKind::String, new StringCell(std::move(text)));
}

LispValue LispValue::Cons(LispValue car, LispValue cdr) {
    CheckCellLimit();
    return OfNewCell(LispKind::Cons, new ConsCell(std::move(car), std::move(cdr)));
}

LispValue LispValue::List(const std::vector<LispValue>& items) {
    return List(items, {});
}

LispValue LispValue::List(const std::vector<LispValue>& items, LispValue tail) {
    LispValue list = std::move(tail);
    for (auto item = items.rbegin(); item != items.rend(); ++item)
        list = Cons(*item, list);
    return list;
}

LispValue LispValue::OfNewCell(LispKind kind, LispCell* cell) {
    LispValue value;
    value.m_kind = kind;
    value.m_payload.cell = cell;
    return value;
}

const std::wstring& LispValue::AsString() const {
    return CellOf<StringCell>(*this).text;
}

const LispValue& LispValue::Car() const {
    return CellOf<ConsCell>(*this).car;
}

const LispValue& LispValue::Cdr() const {
    return CellOf<ConsCell>(*this).cdr;
}

std::vector<LispValue> LispValue::Items() const {
    std::vector<LispValue> items;
    for (const LispValue* rest = this; rest->IsCons(); rest = &rest->Cdr()) {
        items.push_back(rest->Car());
    }
    return items;
}

bool LispValue::IsSame(const LispValue& other) const {
    if (m_kind != other.m_kind) return false;
    switch (m_kind) {
        case LispKind::Nil:
        case LispKind::True:
            return true;
        case LispKind::Integer:
            return m_payload.integer == other.m_payload.integer;
        case LispKind::Real:
            return m_payload.real == other.m_payload.real;
        case LispKind::String:
            return m_payload.cell == other.m_payload.cell || AsString() == other.AsString();
        default:
            return m_payload.cell == other.m_payload.cell;
    }
}

LispCell* LispValue::Cell() const {
    return HasCell(m_kind) ? m_payload.cell : nullptr;
}

}  // namespace drafthost
