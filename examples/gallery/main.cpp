// Shows what tool tips can do.

#include "gallery_window.h"
#include "gdiplus_session.h"

#include <windows.h>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
    const GdiplusSession gdiplus;
    if (!gdiplus.Started()) return 1;

    GalleryWindow window;
    if (!window.Create()) return 1;
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (CWnd::WalkPreTranslateTree(window, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}
