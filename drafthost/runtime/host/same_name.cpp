#include "runtime/host/same_name.h"

#include <windows.h>

namespace drafthost {

bool IsSameName(const std::wstring& left, const std::wstring& right) {
    return CompareStringOrdinal(left.c_str(), static_cast<int>(left.size()), right.c_str(),
                                static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

}  // namespace drafthost
