#include "ui/tip_placement.h"

namespace {

/// A negative coordinate becomes 0; else the far edge is brought back onto the screen. Meant: what
/// the second case gives isn't tested again, so a tip larger than the screen can stay negative.
int Clamp(int position, int extent, int screenExtent) {
    if (position < 0) return 0;
    if (position + extent > screenExtent) return screenExtent - extent;
    return position;
}

TipPoint ClampToScreen(TipPoint position, TipSize tip, TipSize screen) {
    return {Clamp(position.x, tip.width, screen.width),
            Clamp(position.y, tip.height, screen.height)};
}

}  // namespace

TipPoint PlaceByCursor(TipPoint cursor, TipSize tip, TipSize screen) {
    constexpr int offset = 15;
    constexpr int roomBelow = 20;  // Meant: more than the offset, which stays 15.

    TipPoint position;
    position.x = cursor.x + tip.width + offset < screen.width ? cursor.x + offset
                                                              : cursor.x - tip.width - offset;
    position.y = cursor.y + tip.height + roomBelow < screen.height ? cursor.y + offset
                                                                   : cursor.y - tip.height - offset;
    return ClampToScreen(position, tip, screen);
}

TipPoint PlaceByItem(TipRect item, TipSize tip, TipSize screen) {
    constexpr int indent = 20;
    constexpr int gap = 2;
    constexpr int roomBelow = 10;

    const int centre = item.left + (item.right - item.left) / 2;
    TipPoint position;
    position.x =
        centre > screen.width - centre ? item.right - tip.width - indent : item.left + indent;
    position.y = item.bottom + tip.height + roomBelow < screen.height ? item.bottom + gap
                                                                      : item.top - tip.height - gap;
    return ClampToScreen(position, tip, screen);
}
