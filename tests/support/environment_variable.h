#pragma once

#include <windows.h>

#include <string>

/// Sets a variable for the children that are started in its scope; puts it back at the end.
class EnvironmentVariable {
  public:
    EnvironmentVariable(const std::wstring& name, const std::wstring& value) : m_name(name) {
        wchar_t old[MAX_PATH] = {};
        m_wasSet = GetEnvironmentVariableW(m_name.c_str(), old, MAX_PATH) > 0;
        m_old = old;
        SetEnvironmentVariableW(m_name.c_str(), value.c_str());
    }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;
    ~EnvironmentVariable() {
        SetEnvironmentVariableW(m_name.c_str(), m_wasSet ? m_old.c_str() : nullptr);
    }

  private:
    std::wstring m_name;
    std::wstring m_old;
    bool m_wasSet = false;
};
