#include "runtime/host/crash_text.h"

#include <cstdio>
#include <cwchar>

namespace drafthost {

namespace {

constexpr unsigned long accessViolation = 0xC0000005;
constexpr unsigned long gccThrow = 0x20474343;
constexpr unsigned long msvcThrow = 0xE06D7363;

struct Name {
    unsigned long code;
    const wchar_t* text;
};

constexpr Name names[] = {
    {accessViolation, L"access violation"},
    {0xC0000006, L"in-page error"},
    {0xC000001D, L"illegal instruction"},
    {0xC0000025, L"attempt to go on after a noncontinuable exception"},
    {0xC000008C, L"array bounds exceeded"},
    {0xC000008E, L"floating-point division by zero"},
    {0xC0000090, L"invalid floating-point operation"},
    {0xC0000094, L"integer division by zero"},
    {0xC0000095, L"integer overflow"},
    {0xC0000096, L"privileged instruction"},
    {0xC00000FD, L"stack overflow"},
    {0xC0000374, L"heap corruption"},
    {0xC0000409, L"fast failure"},
    {0x80000002, L"misaligned data"},
    {0x80000003, L"breakpoint"},
    {gccThrow, L"C++ exception"},
    {msvcThrow, L"C++ exception"},
};

const wchar_t* NameOf(unsigned long code) {
    for (const Name& name : names) {
        if (name.code == code) return name.text;
    }
    return L"exception";
}

const wchar_t* AccessOf(std::uintptr_t kind) {
    return kind == 0 ? L"reading" : kind == 1 ? L"writing" : L"executing";
}

}  // namespace

void DescribeException(unsigned long code, unsigned long parameterCount,
                       const std::uintptr_t* parameters, wchar_t* text, std::size_t capacity) {
    if (code == accessViolation && parameterCount >= 2) {
        _snwprintf(text, capacity, L"%s %s 0x%016I64X (0x%08lX)", NameOf(code),
                   AccessOf(parameters[0]), static_cast<std::uint64_t>(parameters[1]), code);
    } else {
        _snwprintf(text, capacity, L"%s (0x%08lX)", NameOf(code), code);
    }
    text[capacity - 1] = 0;
}

bool IsCppException(unsigned long code) {
    return code == gccThrow || code == msvcThrow;
}

bool IsFatal(unsigned long code) {
    return (code >> 30) == 3 && !IsCppException(code);
}

}  // namespace drafthost
