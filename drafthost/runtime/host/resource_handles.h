#pragma once

#include <windows.h>

#include <vector>

namespace drafthost {

/// The stack behind `pushResourceHandle` and `popResourceHandle`. The handle on top is what the
/// framework's `AfxGetResourceHandle` gives.
class ResourceHandles {
  public:
    void Push(HINSTANCE handle);
    /// False when nothing was pushed.
    bool Pop();
    /// Pops down to `depth` entries.
    void PopTo(std::size_t depth);
    std::size_t Depth() const { return m_before.size(); }

  private:
    std::vector<HINSTANCE> m_before;  ///< what was current at each push
};

}  // namespace drafthost
