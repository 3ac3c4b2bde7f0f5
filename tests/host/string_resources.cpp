#include "host/string_resources.h"

namespace {

int WINAPI LoadText(HINSTANCE instance, UINT id, LPWSTR buffer, int capacity) {
    const std::wstring text = StringResources::Text(instance, id);
    lstrcpynW(buffer, text.c_str(), capacity);
    return static_cast<int>(text.size());
}

}  // namespace

StringResources::StringResources() : m_load("USER32.dll", "LoadStringW", &LoadText) {}

std::wstring StringResources::Text(HINSTANCE instance, UINT id) {
    return L"text " + std::to_wstring(id) + L" of " +
           std::to_wstring(reinterpret_cast<ULONG_PTR>(instance));
}
