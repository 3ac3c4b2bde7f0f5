#pragma once

// GDI+ with its flat functions, as every user of it here includes it.

#include <windows.h>

#include <objidl.h>

#include <algorithm>
#include <initializer_list>

// The header below calls min and max, which NOMINMAX takes away as macros.
namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus

#include <gdiplus.h>
