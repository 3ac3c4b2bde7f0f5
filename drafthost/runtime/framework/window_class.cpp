#include "afxwin.h"

#include <mutex>
#include <set>
#include <string>

namespace {

std::wstring ClassName(UINT style, HCURSOR cursor, HBRUSH background, HICON icon) {
    wchar_t name[96] = {};
    swprintf(name, std::size(name), L"Afx:%x:%p:%p:%p", style, static_cast<void*>(cursor),
             static_cast<void*>(background), static_cast<void*>(icon));
    return name;
}

}  // namespace

LPCTSTR AfxRegisterWndClass(UINT classStyle, HCURSOR cursor, HBRUSH background, HICON icon) {
    static std::mutex mutex;
    static std::set<std::wstring> registered;

    const std::lock_guard<std::mutex> lock(mutex);
    const std::wstring name = ClassName(classStyle, cursor, background, icon);
    const auto [entry, isNew] = registered.insert(name);
    if (!isNew) return entry->c_str();

    WNDCLASSW windowClass = {};
    windowClass.style = classStyle;
    windowClass.lpfnWndProc = ::DefWindowProcW;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hIcon = icon;
    windowClass.hCursor = cursor;
    windowClass.hbrBackground = background;
    windowClass.lpszClassName = entry->c_str();
    if (RegisterClassW(&windowClass) == 0) {
        registered.erase(entry);
        AfxThrowNotSupportedException();
    }
    return entry->c_str();
}
