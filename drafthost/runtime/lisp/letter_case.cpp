#include "runtime/lisp/letter_case.h"

#include <windows.h>

namespace drafthost {

std::wstring ToUpperCase(std::wstring text) {
    CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

std::wstring ToLowerCase(std::wstring text) {
    CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

}  // namespace drafthost
