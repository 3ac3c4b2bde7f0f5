#pragma once

#include "ui/gdiplus_api.h"

#include <memory>

/// Owners of GDI+ objects, one for each release function. An empty owner releases nothing.

struct GraphicsDeleter {
    void operator()(Gdiplus::GpGraphics* graphics) const noexcept {
        Gdiplus::DllExports::GdipDeleteGraphics(graphics);
    }
};
using OwnedGraphics = std::unique_ptr<Gdiplus::GpGraphics, GraphicsDeleter>;

struct FontDeleter {
    void operator()(Gdiplus::GpFont* font) const noexcept {
        Gdiplus::DllExports::GdipDeleteFont(font);
    }
};
using OwnedFont = std::unique_ptr<Gdiplus::GpFont, FontDeleter>;

struct BrushDeleter {
    void operator()(Gdiplus::GpBrush* brush) const noexcept {
        Gdiplus::DllExports::GdipDeleteBrush(brush);
    }
};
using OwnedBrush = std::unique_ptr<Gdiplus::GpBrush, BrushDeleter>;

struct StringFormatDeleter {
    void operator()(Gdiplus::GpStringFormat* format) const noexcept {
        Gdiplus::DllExports::GdipDeleteStringFormat(format);
    }
};
using OwnedStringFormat = std::unique_ptr<Gdiplus::GpStringFormat, StringFormatDeleter>;

struct BitmapDisposer {
    void operator()(Gdiplus::GpBitmap* bitmap) const noexcept {
        Gdiplus::DllExports::GdipDisposeImage(bitmap);
    }
};
using OwnedBitmap = std::unique_ptr<Gdiplus::GpBitmap, BitmapDisposer>;
