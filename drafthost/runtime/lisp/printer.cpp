#include "runtime/lisp/printer.h"

#include "runtime/lisp/cells.h"
#include "runtime/lisp/file_cell.h"
#include "runtime/lisp/number_text.h"

#include <cstdio>
#include <vector>

namespace drafthost {

namespace {

void AppendEscaped(std::wstring& out, wchar_t letter) {
    switch (letter) {
        case L'"':
            out += L"\\\"";
            return;
        case L'\\':
            out += L"\\\\";
            return;
        case L'\n':
            out += L"\\n";
            return;
        case L'\r':
            out += L"\\r";
            return;
        case L'\t':
            out += L"\\t";
            return;
        case L'\x1b':
            out += L"\\e";
            return;
        default:
            break;
    }
    if (letter >= L' ') {
        out += letter;
        return;
    }
    out += L"\\0";
    out += static_cast<wchar_t>(L'0' + letter / 8);
    out += static_cast<wchar_t>(L'0' + letter % 8);
}

std::wstring Quoted(const std::wstring& text) {
    std::wstring quoted = L"\"";
    for (const wchar_t letter : text)
        AppendEscaped(quoted, letter);
    return quoted + L"\"";
}

std::wstring Opaque(const wchar_t* kind, const LispCell* cell, const std::wstring& name) {
    wchar_t address[24];
    std::swprintf(address, std::size(address), L"%016llx",
                  static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(cell)));
    return std::wstring(L"#<") + kind + L" @" + address + L" " + name + L">";
}

std::wstring AtomText(const LispValue& value, bool quotesStrings) {
    switch (value.Kind()) {
        case LispKind::True:
            return L"T";
        case LispKind::Integer:
            return std::to_wstring(value.AsInteger());
        case LispKind::Real:
            return FormatLispReal(value.AsReal());
        case LispKind::String:
            return quotesStrings ? Quoted(value.AsString()) : value.AsString();
        case LispKind::Symbol:
            return SymbolOf(value).name;
        case LispKind::Subr:
            return Opaque(L"SUBR", value.Cell(), CellOf<SubrCell>(value).row.name);
        case LispKind::UserSubr: {
            const std::wstring& name = CellOf<UserSubrCell>(value).name;
            return Opaque(L"USUBR", value.Cell(), name.empty() ? L"-lambda-" : name);
        }
        case LispKind::ExternalSubr:
            return Opaque(L"EXRXSUBR", value.Cell(), CellOf<ExternalSubrCell>(value).name);
        case LispKind::File:
            return L"#<file " + Quoted(CellOf<FileCell>(value).path) + L">";
        case LispKind::CaughtError:
            return L"#<%catch-all-apply-error%>";
        case LispKind::Nil:
        case LispKind::Cons:
            break;
    }
    return L"nil";
}

std::wstring Text(const LispValue& value, bool quotesStrings) {
    std::wstring out;
    std::vector<const LispValue*> rests;  // What still has to be printed of each open list.
    const LispValue* next = &value;
    while (next != nullptr) {
        if (next->IsCons()) {
            out += L'(';
            rests.push_back(&next->Cdr());
            next = &next->Car();
            continue;
        }
        out += AtomText(*next, quotesStrings);
        next = nullptr;
        while (next == nullptr && !rests.empty()) {
            const LispValue& rest = *rests.back();
            if (rest.IsCons()) {
                out += L' ';
                rests.back() = &rest.Cdr();
                next = &rest.Car();
                continue;
            }
            if (!rest.IsNil()) out += L" . " + AtomText(rest, quotesStrings);
            out += L')';
            rests.pop_back();
        }
    }
    return out;
}

}  // namespace

std::wstring LispPrin1(const LispValue& value) {
    return Text(value, true);
}

std::wstring LispPrinc(const LispValue& value) {
    return Text(value, false);
}

}  // namespace drafthost
