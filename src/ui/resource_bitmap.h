#pragma once

#include "ui/gdiplus_owners.h"

/// A bitmap resource as a GDI+ bitmap. Lives in storage of GdipAlloc.
struct ResourceBitmap {
    OwnedBitmap bitmap;
};

struct ResourceBitmapDeleter {
    void operator()(ResourceBitmap* wrapper) const noexcept;
};
using OwnedResourceBitmap = std::unique_ptr<ResourceBitmap, ResourceBitmapDeleter>;

/// Loads the bitmap resource whose id is the low 16 bits of `id`. Empty when there is no such
/// resource or GDI+ doesn't run; the storage of that attempt is then lost.
OwnedResourceBitmap LoadResourceBitmap(HINSTANCE resources, DWORD id);
