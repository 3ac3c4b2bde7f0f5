#include "ui/resource_bitmap.h"

#include <new>

using namespace Gdiplus::DllExports;

void ResourceBitmapDeleter::operator()(ResourceBitmap* wrapper) const noexcept {
    wrapper->~ResourceBitmap();
    GdipFree(wrapper);
}

OwnedResourceBitmap LoadResourceBitmap(HINSTANCE resources, DWORD id) {
    void* const storage = GdipAlloc(sizeof(ResourceBitmap));
    if (storage == nullptr) return nullptr;
    auto* const wrapper = new (storage) ResourceBitmap;

    Gdiplus::GpBitmap* bitmap = nullptr;
    if (GdipCreateBitmapFromResource(resources, MAKEINTRESOURCEW(id & 0xFFFF), &bitmap) !=
        Gdiplus::Ok) {
        return nullptr;  // Meant: the wrapper isn't released; an owner would free it.
    }
    wrapper->bitmap.reset(bitmap);
    return OwnedResourceBitmap(wrapper);
}
