#include "runtime/lisp/arguments.h"
#include "runtime/lisp/evaluator.h"
#include "runtime/lisp/function_tables.h"
#include "runtime/lisp/letter_case.h"

#include <algorithm>

namespace drafthost {

namespace {

using Arguments = std::vector<LispValue>;

/// An optional place in a text, from 0; 0 when it isn't given.
std::size_t StartArgument(const Arguments& arguments, std::size_t index) {
    if (arguments.size() <= index || arguments[index].IsNil()) return 0;
    if (IntegerArgument(arguments[index]) < 0) {
        throw BadArgumentValue(L"non-negative:", arguments[index]);
    }
    return arguments[index].AsInteger();
}

LispValue PlaceOrNil(std::size_t place) {
    return place == std::wstring::npos ? LispValue()
                                       : LispValue::Integer(static_cast<std::int32_t>(place));
}

wchar_t CodeArgument(const LispValue& value) {
    const std::int32_t code = IntegerArgument(value);
    if (code < 0 || code > 0xFFFF) throw BadArgumentValue(L"character code:", value);
    return static_cast<wchar_t>(code);
}

LispValue Search(LispEvaluator&, const Arguments& arguments) {
    const std::wstring& pattern = StringArgument(arguments[0]);
    return PlaceOrNil(StringArgument(arguments[1]).find(pattern, StartArgument(arguments, 2)));
}

LispValue Substitute(LispEvaluator&, const Arguments& arguments) {
    const std::wstring& replacement = StringArgument(arguments[0]);
    const std::wstring& pattern = StringArgument(arguments[1]);
    std::wstring text = StringArgument(arguments[2]);
    const std::size_t found = text.find(pattern, StartArgument(arguments, 3));
    if (found != std::wstring::npos) text.replace(found, pattern.size(), replacement);
    return LispValue::String(std::move(text));
}

/// `arguments` are the characters to take away and the text.
LispValue Trim(const Arguments& arguments, bool left, bool right) {
    const std::wstring& letters = StringArgument(arguments[0]);
    const std::wstring& text = StringArgument(arguments[1]);
    const std::size_t first = left ? text.find_first_not_of(letters) : 0;
    const std::size_t last = right ? text.find_last_not_of(letters) : text.size() - 1;
    if (text.empty() || first == std::wstring::npos || last == std::wstring::npos) {
        return LispValue::String(L"");
    }
    return LispValue::String(text.substr(first, last - first + 1));
}

LispValue TrimBoth(LispEvaluator&, const Arguments& arguments) {
    return Trim(arguments, true, true);
}

LispValue TrimLeft(LispEvaluator&, const Arguments& arguments) {
    return Trim(arguments, true, false);
}

LispValue TrimRight(LispEvaluator&, const Arguments& arguments) {
    return Trim(arguments, false, true);
}

/// With a last argument other than nil the search goes from the end.
LispValue Position(LispEvaluator&, const Arguments& arguments) {
    const wchar_t letter = CodeArgument(arguments[0]);
    const std::wstring& text = StringArgument(arguments[1]);
    const std::size_t start = StartArgument(arguments, 2);
    const bool fromEnd = arguments.size() == 4 && !arguments[3].IsNil();
    if (!fromEnd) return PlaceOrNil(text.find(letter, start));
    const std::size_t found = text.rfind(letter);
    return found == std::wstring::npos || found < start ? LispValue() : PlaceOrNil(found);
}

LispValue Element(LispEvaluator&, const Arguments& arguments) {
    const std::wstring& text = StringArgument(arguments[0]);
    const std::int32_t place = IntegerArgument(arguments[1]);
    if (place < 0 || static_cast<std::size_t>(place) >= text.size()) {
        throw BadArgumentValue(L"place in the string:", arguments[1]);
    }
    return LispValue::Integer(text[place]);
}

/// How many characters of the two texts agree; places and the ignoring of case are optional.
LispValue Mismatch(LispEvaluator&, const Arguments& arguments) {
    std::wstring left = StringArgument(arguments[0]);
    std::wstring right = StringArgument(arguments[1]);
    if (arguments.size() == 5 && !arguments[4].IsNil()) {
        left = ToUpperCase(left);
        right = ToUpperCase(right);
    }
    left.erase(0, StartArgument(arguments, 2));
    right.erase(0, StartArgument(arguments, 3));
    const auto differing = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    return LispValue::Integer(static_cast<std::int32_t>(differing.first - left.begin()));
}

LispValue Translate(LispEvaluator&, const Arguments& arguments) {
    const std::wstring& from = StringArgument(arguments[0]);
    const std::wstring& to = StringArgument(arguments[1]);
    std::wstring text = StringArgument(arguments[2]);
    for (wchar_t& letter : text) {
        const std::size_t found = from.find(letter);
        if (found < to.size()) letter = to[found];
    }
    return LispValue::String(std::move(text));
}

constexpr LispFunctionRow rows[] = {
    {L"VL-STRING-SEARCH", Search, 2, 3},        {L"VL-STRING-SUBST", Substitute, 3, 4},
    {L"VL-STRING-TRIM", TrimBoth, 2, 2},        {L"VL-STRING-LEFT-TRIM", TrimLeft, 2, 2},
    {L"VL-STRING-RIGHT-TRIM", TrimRight, 2, 2}, {L"VL-STRING-POSITION", Position, 2, 4},
    {L"VL-STRING-ELT", Element, 2, 2},          {L"VL-STRING-MISMATCH", Mismatch, 2, 5},
    {L"VL-STRING-TRANSLATE", Translate, 3, 3},
};

}  // namespace

void DefineStringSearchFunctions(LispEvaluator& evaluator) {
    for (const LispFunctionRow& row : rows)
        evaluator.Define(row);
}

}  // namespace drafthost
