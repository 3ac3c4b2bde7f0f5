#include "runtime/host/resource_handles.h"

#include "afxext.h"

namespace drafthost {

void ResourceHandles::Push(HINSTANCE handle) {
    m_before.push_back(AfxGetResourceHandle());
    AfxSetResourceHandle(handle);
}

bool ResourceHandles::Pop() {
    if (m_before.empty()) return false;
    AfxSetResourceHandle(m_before.back());
    m_before.pop_back();
    return true;
}

void ResourceHandles::PopTo(std::size_t depth) {
    while (m_before.size() > depth)
        Pop();
}

}  // namespace drafthost
