#pragma once

/// A point, a size and a rectangle in pixels, y downwards. A rectangle's right and bottom edges lie
/// outside of it.
struct TipPoint {
    int x;
    int y;
};

struct TipSize {
    int width;
    int height;
};

struct TipRect {
    int left;
    int top;
    int right;
    int bottom;
};

/// Where a tip goes that follows the cursor: right of and below it where the screen has room, else
/// left of or above it. `screen` is the primary screen, whose top left corner is 0, 0; a cursor
/// outside of it still puts the tip onto it.
TipPoint PlaceByCursor(TipPoint cursor, TipSize tip, TipSize screen);

/// As above, for a tip that keeps to the rectangle of its item: below it where the screen has room,
/// else above it; at its left edge, or at its right edge when the item lies in the right half.
TipPoint PlaceByItem(TipRect item, TipSize tip, TipSize screen);
