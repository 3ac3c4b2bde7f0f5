#include "gallery_window.h"

#include "gallery_ids.h"

#include <memory>
#include <string>

namespace {

constexpr int clientWidth = 640;
constexpr int clientHeight = 400;
constexpr DWORD idlePeriod = 4000;
constexpr RECT paintedRect = {420, 150, 600, 230};

const wchar_t latinText[] =
    L"A tip wraps its text at a width that its owner sets, here 260 pixels. It stands on a "
    L"gradient from the left to the right, with a light and a dark shadow that change places in "
    L"the fade.";
const wchar_t chineseText[] =
    L"提示窗口会按照所有者设定的宽度自动换行。背景是从左到右的水平渐变，文字带有浮雕效果，"
    L"淡入时亮影与暗影互换位置；左侧图片的底色不会画出来。";

HFONT GuiFont() {
    static const HFONT font = CreateFontW(-12, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                                          DEFAULT_CHARSET, 0, 0, 0, 0, L"MS Shell Dlg");
    return font;
}

}  // namespace

BEGIN_MESSAGE_MAP(GalleryWindow, CWnd)
ON_WM_PAINT()
ON_WM_DESTROY()
END_MESSAGE_MAP()

BOOL GalleryWindow::Create() {
    constexpr DWORD style = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
    RECT frame = {0, 0, clientWidth, clientHeight};
    AdjustWindowRect(&frame, style, FALSE);
    const LPCWSTR className = AfxRegisterWndClass(0, LoadCursorW(nullptr, IDC_ARROW),
                                                  reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1));
    const int width = frame.right - frame.left;
    const int height = frame.bottom - frame.top;
    if (!CreateEx(0, className, L"Tool tip gallery", style,
                  (GetSystemMetrics(SM_CXSCREEN) - width) / 2,
                  (GetSystemMetrics(SM_CYSCREEN) - height) / 2, width, height, nullptr, nullptr)) {
        return FALSE;
    }
    AddButtons();
    AddOverlap();
    AddLongTexts();
    AddCorners();
    m_settings.CreateEx(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, CRect(20, 360, 620, 385), this,
                        0);
    ::SendMessageW(m_settings, WM_SETFONT, reinterpret_cast<WPARAM>(GuiFont()), FALSE);
    ShowSettings();
    ShowWindow(SW_SHOW);
    ShowCorners(true);
    return TRUE;
}

void GalleryWindow::AddExhibit(CWnd* parent, const wchar_t* className, const wchar_t* caption,
                               DWORD style, const RECT& rect, const wchar_t* tipText,
                               DWORD imageId) {
    m_exhibits.emplace_back();
    Exhibit& exhibit = m_exhibits.back();
    exhibit.tipText = tipText;
    exhibit.imageId = imageId;
    exhibit.control.CreateEx(0, className, caption, WS_CHILD | WS_VISIBLE | style, rect, parent, 0);
    ::SendMessageW(exhibit.control, WM_SETFONT, reinterpret_cast<WPARAM>(GuiFont()), FALSE);
}

void GalleryWindow::AddButtons() {
    AddExhibit(this, L"BUTTON", L"Text and picture", 0, {20, 20, 160, 50},
               L"A button's tip: text at the right of a picture", IDB_SIGN);
    AddExhibit(this, L"BUTTON", L"Text alone", 0, {180, 20, 320, 50},
               L"No picture: the text starts 7 pixels from the edge", IDB_NONE);
    AddExhibit(this, L"BUTTON", L"Picture alone", 0, {340, 20, 480, 50}, L"", IDB_SIGN);
    AddExhibit(this, L"EDIT", L"An edit field", WS_BORDER, {500, 22, 620, 48},
               L"Any control can have a tip", IDB_NONE);
    m_field = &m_exhibits.back().control;
}

void GalleryWindow::AddOverlap() {
    // The button is added first, so it wins over the field that it lies in.
    AddExhibit(this, L"BUTTON", L"In front, added first", 0, {60, 170, 220, 200},
               L"The entry that was added first wins where two overlap", IDB_SIGN);
    AddExhibit(this, L"STATIC", L"A field behind the button",
               SS_NOTIFY | WS_BORDER | WS_CLIPSIBLINGS, {20, 80, 380, 230},
               L"The field behind the button has a tip of its own", IDB_NONE);
}

void GalleryWindow::AddLongTexts() {
    AddExhibit(this, L"BUTTON", L"Long Latin text", 0, {20, 260, 300, 290}, latinText, IDB_SIGN);
    AddExhibit(this, L"BUTTON", L"长中文说明", 0, {340, 260, 620, 290}, chineseText, IDB_SIGN);
}

void GalleryWindow::AddCorners() {
    constexpr int width = 120;
    constexpr int height = 30;
    const int right = GetSystemMetrics(SM_CXSCREEN) - width;
    const int bottom = GetSystemMetrics(SM_CYSCREEN) - height;
    const POINT places[] = {{0, 0}, {right, 0}, {0, bottom}, {right, bottom}};
    const LPCWSTR className = AfxRegisterWndClass(0, LoadCursorW(nullptr, IDC_ARROW));
    for (int i = 0; i < 4; ++i) {
        m_corners[i].CreateEx(WS_EX_TOOLWINDOW, className, L"", WS_POPUP, places[i].x, places[i].y,
                              width, height, m_hWnd, nullptr);
        AddExhibit(&m_corners[i], L"BUTTON", L"A corner", 0, {0, 0, width, height},
                   L"At the edge of the screen a tip goes to the other side of the cursor",
                   IDB_SIGN);
    }
}

BOOL GalleryWindow::PreTranslateMessage(MSG* message) {
    if (message->message == WM_MOUSEMOVE) RelayMouseMove();
    if (message->message == WM_KEYDOWN && OnKey(*message)) return TRUE;
    return CWnd::PreTranslateMessage(message);
}

void GalleryWindow::RelayMouseMove() {
    EnsureTip();
    if (m_tip != nullptr) m_tip->RelayMouseMove();
}

/// Makes the tip when there is none. A set-up that throws leaves none, and the next mouse move
/// tries again.
void GalleryWindow::EnsureTip() {
    if (m_tip != nullptr) return;
    try {
        m_tip = new CustomToolTipPlus(m_hWnd, GetModuleHandleW(nullptr));
        FillTip();
    } catch (...) {
        delete m_tip;
        m_tip = nullptr;
    }
}

void GalleryWindow::FillTip() {
    m_tip->m_maxTextWidth = 260;
    m_tip->m_idlePeriod = m_idle ? idlePeriod : 0;
    m_tip->m_anchorToItem = m_anchor;
    m_tip->m_fadeEnabled = m_fade;
    for (Exhibit& exhibit : m_exhibits) {
        auto content = std::make_unique<TipDataPlus>(exhibit.tipText, exhibit.imageId);
        if (m_tip->AddTip(&exhibit.control, content.get())) {
            static_cast<void>(content.release());  // The tip owns it from here on.
        }
    }
    auto content =
        std::make_unique<TipDataPlus>(L"This one belongs to a painted rectangle", IDB_SIGN);
    if (m_tip->AddTip(paintedRect, content.get())) static_cast<void>(content.release());
}

bool GalleryWindow::OnKey(const MSG& message) {
    if (message.hwnd == m_field->m_hWnd && message.wParam != VK_ESCAPE) return false;
    switch (message.wParam) {
        case 'F':
            m_fade = !m_fade;
            if (m_tip != nullptr) m_tip->m_fadeEnabled = m_fade;
            break;
        case 'A':
            m_anchor = !m_anchor;
            if (m_tip != nullptr) m_tip->m_anchorToItem = m_anchor;
            break;
        case 'I':
            m_idle = !m_idle;
            if (m_tip != nullptr) m_tip->m_idlePeriod = m_idle ? idlePeriod : 0;
            break;
        case 'E':
            ShowCorners(!m_cornersShown);
            break;
        case VK_ESCAPE:
            ::PostMessageW(m_hWnd, WM_CLOSE, 0, 0);
            break;
        default:
            return false;
    }
    ShowSettings();
    return true;
}

void GalleryWindow::ShowSettings() {
    const auto text = [](bool on, const wchar_t* yes, const wchar_t* no) { return on ? yes : no; };
    const std::wstring line =
        std::wstring(L"F: fade ") + text(m_fade, L"on", L"off") + L"    A: placed by the " +
        text(m_anchor, L"item", L"cursor") + L"    I: goes " +
        text(m_idle, L"after 4 s at rest", L"only when left") + L"    E: corners " +
        text(m_cornersShown, L"shown", L"hidden") + L"    Esc: close";
    m_settings.SetWindowText(line.c_str());
}

void GalleryWindow::ShowCorners(bool show) {
    m_cornersShown = show;
    for (CWnd& corner : m_corners)
        corner.ShowWindow(show ? SW_SHOWNA : SW_HIDE);
}

void GalleryWindow::OnPaint() {
    CPaintDC dc(this);
    const HBRUSH brush = CreateHatchBrush(HS_BDIAGONAL, RGB(70, 110, 160));
    FillRect(dc, &paintedRect, brush);
    FrameRect(dc, &paintedRect, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    DeleteObject(brush);
}

void GalleryWindow::OnDestroy() {
    // The tip has no parent that would take it along.
    delete m_tip;
    m_tip = nullptr;
    PostQuitMessage(0);
}
