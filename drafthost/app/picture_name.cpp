#include "app/picture_name.h"

namespace drafthost {

namespace {

constexpr std::size_t longestCaption = 60;

bool IsForbidden(wchar_t character) {
    return character < L' ' || std::wstring(L"<>:\"/\\|?*").find(character) != std::wstring::npos;
}

}  // namespace

std::wstring PictureName(int number, const std::wstring& caption) {
    std::wstring name = number < 10 ? L"dialog-0" : L"dialog-";
    name += std::to_wstring(number);
    if (!caption.empty()) name += L"-";
    for (const wchar_t character : caption.substr(0, longestCaption)) {
        name += IsForbidden(character) ? L'_' : character;
    }
    return name + L".png";
}

}  // namespace drafthost
