#include "support/test_profile.h"

#include <windows.h>

TestProfile::TestProfile() {
    static unsigned count = 0;
    m_name = L"Test " + std::to_wstring(GetCurrentProcessId()) + L" " + std::to_wstring(++count);
}

TestProfile::~TestProfile() {
    // Result ignored: where no host has run there is no key.
    RegDeleteTreeW(HKEY_CURRENT_USER, KeyPath().c_str());
}

std::wstring TestProfile::Stored(const std::wstring& setting) const {
    wchar_t value[4096] = {};
    DWORD bytes = sizeof value - sizeof(wchar_t);
    RegGetValueW(HKEY_CURRENT_USER, (KeyPath() + L"\\Environment").c_str(), setting.c_str(),
                 RRF_RT_REG_SZ, nullptr, value, &bytes);
    return value;
}

std::wstring TestProfile::KeyPath() const {
    return L"Software\\Drafthost\\Profiles\\" + m_name;
}
