#include "runtime/host/command_name.h"

namespace drafthost {

std::wstring WithoutCommandMarks(const std::wstring& typed) {
    const std::size_t start = typed.find_first_not_of(L"'._");
    return start == std::wstring::npos ? std::wstring() : typed.substr(start);
}

std::wstring WithoutTransparentMark(const std::wstring& typed) {
    return !typed.empty() && typed[0] == L'\'' ? typed.substr(1) : typed;
}

}  // namespace drafthost
