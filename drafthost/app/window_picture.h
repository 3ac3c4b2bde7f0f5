#pragma once

#include <windows.h>

#include <string>

namespace drafthost {

/// Saves what the window shows, with its frame and caption, as a PNG file of 24 bits; replaces a
/// file that is there. The window must be on the screen. False: the picture or the file couldn't be
/// made.
bool SaveWindowPicture(HWND window, const std::wstring& path);

}  // namespace drafthost
