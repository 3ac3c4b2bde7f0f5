#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>

/// Holds an existing file open for reading, so that others may do with it only what `share` says.
/// The read-only attribute would not do: it stops nobody who runs as administrator.
class FileLock {
  public:
    FileLock(const std::wstring& path, DWORD share)
        : m_file(
              CreateFileW(path.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr)) {
        if (m_file == INVALID_HANDLE_VALUE) throw std::runtime_error("the file can't be locked");
    }
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock() { CloseHandle(m_file); }

  private:
    HANDLE m_file;
};

/// Nobody has the file open.
inline bool IsClosed(const std::wstring& path) {
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    CloseHandle(file);
    return true;
}
