#pragma once

#include <filesystem>
#include <string>

/// A new, empty folder under the user's temporary folder; deleted with all it holds at the end.
class TempFolder {
  public:
    /// `name` becomes part of the folder's name: give one with blanks or Chinese characters where
    /// that matters.
    explicit TempFolder(const std::wstring& name = L"kvt test");
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder();

    /// Absolute, with backslashes, without one at the end.
    const std::wstring& Path() const { return m_path; }

    /// `Path()`, a backslash and `relative`.
    std::wstring operator/(const std::wstring& relative) const { return m_path + L"\\" + relative; }

  private:
    std::wstring m_path;
};

/// The file's bytes; empty when it can't be opened.
std::string ReadFileBytes(const std::wstring& path);

/// Creates or replaces the file, its parent folders too.
void WriteFileBytes(const std::wstring& path, const std::string& bytes);
