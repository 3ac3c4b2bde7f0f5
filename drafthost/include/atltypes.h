#pragma once

#include <windows.h>

/// A `POINT` that is made from its two numbers.
class CPoint : public POINT {
  public:
    CPoint() : POINT{0, 0} {}
    CPoint(int pointX, int pointY) : POINT{pointX, pointY} {}
    CPoint(POINT point) : POINT(point) {}

    friend bool operator==(const CPoint& left, const POINT& right) {
        return left.x == right.x && left.y == right.y;
    }
};

/// A `RECT` with its usual questions, which passes for a `RECT*` where Win32 wants one.
class CRect : public RECT {
  public:
    CRect() : RECT{0, 0, 0, 0} {}
    CRect(int leftEdge, int topEdge, int rightEdge, int bottomEdge)
        : RECT{leftEdge, topEdge, rightEdge, bottomEdge} {}
    CRect(const RECT& rectangle) : RECT(rectangle) {}

    operator LPRECT() { return this; }
    operator LPCRECT() const { return this; }

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    CPoint TopLeft() const { return {static_cast<int>(left), static_cast<int>(top)}; }
};
