#include "runtime/host/offences.h"
#include "runtime/host/text_output.h"

#include "acutads.h"

#include <cstdarg>
#include <cstdio>
#include <cwchar>

namespace {

/// By the C runtime's rules, in which "%s" takes wide text; false for a format that it refuses.
bool Format(const wchar_t* format, va_list arguments, std::wstring& text) {
    va_list counting;
    va_copy(counting, arguments);
    const int length = _vscwprintf(format, counting);
    va_end(counting);
    if (length < 0) return false;
    text.resize(static_cast<std::size_t>(length) + 1);
    _vsnwprintf(text.data(), text.size(), format, arguments);
    text.pop_back();
    return true;
}

}  // namespace

int acutPrintf(const ACHAR* format, ...) {
    if (!drafthost::IsHostThread(L"acutPrintf")) return RTERROR;
    if (format == nullptr) return RTERROR;
    std::wstring text;
    va_list arguments;
    va_start(arguments, format);
    const bool formatted = Format(format, arguments, text);
    va_end(arguments);
    if (!formatted) return RTERROR;
    drafthost::Print(text);
    return RTNORM;
}
