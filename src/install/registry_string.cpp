#include "install/registry_string.h"

#include "install/registry_text.h"

#include <memory>
#include <type_traits>

namespace {

struct KeyCloser {
    void operator()(HKEY key) const noexcept { RegCloseKey(key); }
};
using OwnedKey = std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser>;

LSTATUS Query(HKEY key, const wchar_t* valueName, DWORD& type, std::wstring& buffer, DWORD& size) {
    return RegQueryValueExW(key, valueName, nullptr, &type, reinterpret_cast<BYTE*>(buffer.data()),
                            &size);
}

}  // namespace

bool ReadRegistryString(HKEY hive, REGSAM access, const wchar_t* keyPath, const wchar_t* valueName,
                        std::wstring& output) {
    HKEY opened = nullptr;
    if (RegOpenKeyExW(hive, keyPath, 0, access, &opened) != ERROR_SUCCESS) return false;
    const OwnedKey key(opened);

    // Meant: 32 characters of room, of which 32 bytes are offered. The zero half behind them
    // terminates whatever fits, so the short path tests neither type nor shape.
    std::wstring buffer(32, L'\0');
    DWORD size = 32;
    DWORD type = REG_NONE;
    LSTATUS status = Query(key.get(), valueName, type, buffer, size);
    if (status == ERROR_MORE_DATA) {
        // Meant: as many characters as the value has bytes, which is twice the room it needs.
        buffer.assign(size, L'\0');
        size *= sizeof(wchar_t);
        status = Query(key.get(), valueName, type, buffer, size);
        if (status == ERROR_SUCCESS && !AcceptRegistryText(type, buffer.data(), size)) {
            status = ERROR_INVALID_DATA;
        }
    }
    if (status != ERROR_SUCCESS) return false;
    output = buffer.c_str();
    return true;
}
