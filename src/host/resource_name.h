#pragma once

#include <windows.h>

/// Stands in a table for "no string resource".
inline constexpr UINT noStringResource = 0xFFFFFFFF;

/// A name out of a table: the text given there or, when that is null, the text of a string resource
/// of `instance`, of which 131 characters are kept. Empty when there is no such resource. Refers to
/// `name`, which must outlive it.
class ResourceName {
  public:
    ResourceName(const wchar_t* name, HINSTANCE instance, UINT resourceId);
    ResourceName(const ResourceName&) = delete;
    ResourceName& operator=(const ResourceName&) = delete;

    const wchar_t* Text() const { return m_name != nullptr ? m_name : m_buffer; }

  private:
    const wchar_t* m_name;
    wchar_t m_buffer[132] = {};
};
