#include "support/install_registry.h"

#include <stdexcept>

namespace {

constexpr wchar_t keyPath[] = L"SOFTWARE\\Brennvik\\KVT CAD辅助设计软件";

/// Whether the key had to be created for it.
bool StoreValue(REGSAM view, const wchar_t* name, DWORD type, const void* data, size_t size) {
    HKEY key = nullptr;
    DWORD disposition = 0;
    if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, keyPath, 0, nullptr, 0, KEY_WRITE | view, nullptr, &key,
                        &disposition) != ERROR_SUCCESS) {
        throw std::runtime_error("the installation's key can't be created");
    }
    const LSTATUS status = name == nullptr
                               ? ERROR_SUCCESS
                               : RegSetValueExW(key, name, 0, type, static_cast<const BYTE*>(data),
                                                static_cast<DWORD>(size));
    RegCloseKey(key);
    if (status != ERROR_SUCCESS) throw std::runtime_error("the value can't be stored");
    return disposition == REG_CREATED_NEW_KEY;
}

bool StoreText(REGSAM view, const wchar_t* name, const std::wstring& text) {
    return StoreValue(view, name, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

}  // namespace

InstallRegistry::InstallRegistry() {
    HKEY key = nullptr;
    m_existed = RegOpenKeyExW(HKEY_LOCAL_MACHINE, keyPath, 0, KEY_READ | KEY_WOW64_32KEY, &key) ==
                ERROR_SUCCESS;
    if (!m_existed) return;
    for (DWORD index = 0;; ++index) {
        wchar_t name[256] = {};
        DWORD nameLength = 256;
        Value value;
        value.bytes.resize(65536);
        DWORD size = static_cast<DWORD>(value.bytes.size());
        if (RegEnumValueW(key, index, name, &nameLength, nullptr, &value.type,
                          reinterpret_cast<BYTE*>(value.bytes.data()), &size) != ERROR_SUCCESS) {
            break;
        }
        value.name = name;
        value.bytes.resize(size);
        m_values.push_back(value);
    }
    RegCloseKey(key);
    DeleteKey();
}

InstallRegistry::~InstallRegistry() {
    if (m_made64BitKey) RegDeleteKeyExW(HKEY_LOCAL_MACHINE, keyPath, KEY_WOW64_64KEY, 0);
    DeleteKey();
    if (!m_existed) return;
    CreateKey();
    for (const Value& value : m_values)
        SetValue(value.name.c_str(), value.type, value.bytes);
}

void InstallRegistry::CreateKey() {
    StoreValue(KEY_WOW64_32KEY, nullptr, REG_NONE, nullptr, 0);
}

void InstallRegistry::DeleteKey() {
    RegDeleteKeyExW(HKEY_LOCAL_MACHINE, keyPath, KEY_WOW64_32KEY, 0);
}

void InstallRegistry::SetLocation(const std::wstring& location) {
    StoreText(KEY_WOW64_32KEY, L"Location", location);
}

void InstallRegistry::SetVersion(const std::wstring& version) {
    StoreText(KEY_WOW64_32KEY, L"Version", version);
}

void InstallRegistry::SetValue(const wchar_t* name, DWORD type, std::string_view bytes) {
    StoreValue(KEY_WOW64_32KEY, name, type, bytes.data(), bytes.size());
}

void InstallRegistry::SetLocationIn64BitView(const std::wstring& location) {
    m_made64BitKey |= StoreText(KEY_WOW64_64KEY, L"Location", location);
}
