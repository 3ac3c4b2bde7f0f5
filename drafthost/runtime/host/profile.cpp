#include "runtime/host/profile.h"

#include "runtime/host/same_name.h"
#include "runtime/lisp/owned_key.h"

#include <windows.h>

#include <vector>

namespace drafthost {

namespace {

std::wstring g_profile = L"Default";

std::wstring KeyPath() {
    return L"Software\\Drafthost\\Profiles\\" + g_profile + L"\\Environment";
}

OwnedKey OpenForReading() {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, KeyPath().c_str(), 0, KEY_READ, &key) != 0) return {};
    return OwnedKey(key);
}

std::wstring TextOf(const std::vector<wchar_t>& buffer, DWORD bytes) {
    std::wstring text(buffer.data(), bytes / sizeof(wchar_t));
    return text.substr(0, text.find(L'\0'));
}

std::optional<std::wstring> ReadValue(HKEY key, const std::wstring& name) {
    DWORD type = 0;
    DWORD bytes = 0;
    if (RegQueryValueExW(key, name.c_str(), nullptr, &type, nullptr, &bytes) != 0 ||
        type != REG_SZ) {
        return {};
    }
    std::vector<wchar_t> buffer(bytes / sizeof(wchar_t) + 1);
    if (RegQueryValueExW(key, name.c_str(), nullptr, nullptr,
                         reinterpret_cast<BYTE*>(buffer.data()), &bytes) != 0) {
        return {};
    }
    return TextOf(buffer, bytes);
}

/// The folder "Support" beside the program.
std::wstring DefaultSearchPath() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring program = path;
    return program.substr(0, program.rfind(L'\\')) + L"\\Support;";
}

std::optional<std::wstring> ProcessVariable(const std::wstring& name) {
    const DWORD size = GetEnvironmentVariableW(name.c_str(), nullptr, 0);
    if (size == 0) return {};
    std::wstring value(size, L'\0');
    value.resize(GetEnvironmentVariableW(name.c_str(), value.data(), size));
    return value;
}

}  // namespace

bool SelectProfile(const std::wstring& name) {
    if (name.empty() || name.size() > 64 || name.find(L'\\') != std::wstring::npos) return false;
    g_profile = name;
    return true;
}

const std::wstring& ProfileName() {
    return g_profile;
}

std::optional<std::wstring> GetSetting(const std::wstring& name) {
    if (name.empty()) return {};
    if (const OwnedKey key = OpenForReading()) {
        if (auto value = ReadValue(key.get(), name)) return value;
    }
    if (IsSameName(name, L"ACAD")) return DefaultSearchPath();
    return ProcessVariable(name);
}

bool SetSetting(const std::wstring& name, const std::wstring& value) {
    if (name.empty()) return false;
    HKEY opened = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, KeyPath().c_str(), 0, nullptr, 0, KEY_WRITE, nullptr,
                        &opened, nullptr) != 0) {
        return false;
    }
    const OwnedKey key(opened);
    return RegSetValueExW(key.get(), name.c_str(), 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(value.c_str()),
                          static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))) == 0;
}

std::map<std::wstring, std::wstring> AllSettings() {
    std::map<std::wstring, std::wstring> settings;
    bool hasSearchPath = false;
    if (const OwnedKey key = OpenForReading()) {
        wchar_t name[16384] = {};
        DWORD size = 16384;
        for (DWORD index = 0;
             RegEnumValueW(key.get(), index, name, &size, nullptr, nullptr, nullptr, nullptr) == 0;
             ++index, size = 16384) {
            if (const auto value = ReadValue(key.get(), name)) {
                settings[name] = *value;
                hasSearchPath = hasSearchPath || IsSameName(name, L"ACAD");
            }
        }
    }
    if (!hasSearchPath) settings[L"ACAD"] = DefaultSearchPath();
    return settings;
}

}  // namespace drafthost
