#include "runtime/framework/dialog_template.h"

#include <cstring>

namespace {

/// The head of an extended template, which no header of the platform declares.
#pragma pack(push, 1)
struct ExtendedHead {
    WORD version;
    WORD signature;  ///< 0xFFFF tells the extended form
    DWORD helpId;
    DWORD extendedStyle;
    DWORD style;
    WORD itemCount;
    short x;
    short y;
};
#pragma pack(pop)

}  // namespace

DialogTemplateHead ReadDialogTemplateHead(const DLGTEMPLATE* dialogTemplate) {
    ExtendedHead extended;
    std::memcpy(&extended, dialogTemplate, sizeof extended);
    if (extended.signature == 0xFFFF) return {extended.style, extended.x, extended.y};
    return {dialogTemplate->style, dialogTemplate->x, dialogTemplate->y};
}

bool IsPlaceOpen(const DialogTemplateHead& head) {
    constexpr DWORD placed = WS_CHILD | DS_ABSALIGN | DS_CENTER | DS_CENTERMOUSE;
    return (head.style & placed) == 0 && head.x == 0 && head.y == 0;
}
