#pragma once

#include "support/import_hook.h"
#include "ui/gdiplus_api.h"

#include <map>
#include <memory>
#include <string>

/// Stands between the tool tip's drawing and GDI+ for its lifetime: notes each call in the call
/// journal, fails what it is told to fail, and knows what has been made and not yet released. One
/// at a time.
///
/// A note has the function's name and its arguments: numbers as they are, colours in hexadecimal,
/// rectangles in brackets, texts in apostrophes, objects by kind and number ("surface1"), in the
/// order in which they were made. A call that makes an object ends in "-> font1", one that failed
/// in "-> failed".
class GdiplusWatch {
  public:
    GdiplusWatch();
    GdiplusWatch(const GdiplusWatch&) = delete;
    GdiplusWatch& operator=(const GdiplusWatch&) = delete;
    ~GdiplusWatch();

    int failingCall =
        0;  ///< its number, from 1 on; 0: none. A release is carried out all the same.
    const char* failingFunction = "";  ///< fails at every call
    bool failEveryCall = false;        ///< as without GDI+; GdipAlloc and GdipFree work on
    Gdiplus::Status failure = Gdiplus::GenericError;

    int calls = 0;
    int allocations = 0;                        ///< of GdipAlloc that GdipFree hasn't had yet
    std::map<const void*, std::wstring> alive;  ///< objects that were made, with their names

  private:
    struct Hooks;

    std::unique_ptr<Hooks> m_hooks;
};
