#include "host/resource_name.h"

#include <iterator>

ResourceName::ResourceName(const wchar_t* name, HINSTANCE instance, UINT resourceId)
    : m_name(name) {
    if (name != nullptr) return;
    // Result ignored: a missing resource leaves the buffer empty.
    LoadStringW(instance, resourceId, m_buffer, static_cast<int>(std::size(m_buffer)));
}
