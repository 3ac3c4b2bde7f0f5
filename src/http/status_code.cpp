#include "http/status_code.h"

#include <cwchar>

uint32_t ParseStatusCode(const wchar_t* text) {
    return std::wcstoul(text, nullptr, 10);
}
