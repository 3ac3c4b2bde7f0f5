#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace drafthost {

struct KeyCloser {
    void operator()(HKEY key) const noexcept { RegCloseKey(key); }
};

/// An open key of the registry, closed at the end.
using OwnedKey = std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser>;

}  // namespace drafthost
