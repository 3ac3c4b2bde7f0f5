#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

/// The installation's key in the real registry, 32-bit view: gone at the start, as it was before at
/// the end. Programs that use it name the lock "registry".
class InstallRegistry {
  public:
    InstallRegistry();
    InstallRegistry(const InstallRegistry&) = delete;
    InstallRegistry& operator=(const InstallRegistry&) = delete;
    ~InstallRegistry();

    /// Creates the key without values.
    void CreateKey();
    /// Deletes the key with its values, as at the start.
    void DeleteKey();
    void SetLocation(const std::wstring& location);
    void SetVersion(const std::wstring& version);

    /// Stores `bytes` under `name`. Of a string type, the system adds an uncounted terminator
    /// unless the memory behind the bytes holds a character.
    void SetValue(const wchar_t* name, DWORD type, std::string_view bytes);

    /// As `SetLocation`, but in the 64-bit view, where the module doesn't look. Undone at
    /// the end when there was no key.
    void SetLocationIn64BitView(const std::wstring& location);

  private:
    struct Value {
        std::wstring name;
        DWORD type = REG_NONE;
        std::string bytes;
    };

    bool m_existed = false;
    bool m_made64BitKey = false;
    std::vector<Value> m_values;
};
