#include "dialog_driver.h"

#include <utility>

DialogDriver::DialogDriver(std::vector<Action> actions)
    : m_actions(std::move(actions)), m_before(drafthost::SetModalDialogWatch(this)) {}

DialogDriver::~DialogDriver() {
    drafthost::SetModalDialogWatch(m_before);
}

void DialogDriver::OnPainted(HWND dialog) {
    const size_t index = static_cast<size_t>(m_painted++);
    if (index < m_actions.size()) {
        m_actions[index](dialog);
    } else {
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    }
}

void ClickOk(HWND dialog) {
    PostMessageW(GetDlgItem(dialog, IDOK), BM_CLICK, 0, 0);
}

void ChooseOk(HWND dialog) {
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
}

void ClickCancel(HWND dialog) {
    PostMessageW(GetDlgItem(dialog, IDCANCEL), BM_CLICK, 0, 0);
}

void ClickCloseBox(HWND dialog) {
    PostMessageW(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
}

DialogDriver::Action PressKey(WPARAM key) {
    return [key](HWND dialog) {
        const HWND focus = GetFocus();
        PostMessageW(focus != nullptr ? focus : dialog, WM_KEYDOWN, key, 1);
    };
}
