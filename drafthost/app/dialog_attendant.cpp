#include "app/dialog_attendant.h"

#include "app/picture_name.h"
#include "app/window_picture.h"
#include "runtime/control.h"

namespace drafthost {

namespace {

std::wstring CaptionOf(HWND window) {
    wchar_t caption[256] = {};
    GetWindowTextW(window, caption, 256);
    return caption;
}

void Answer(HWND dialog, DialogAnswer answer) {
    if (answer == DialogAnswer::Ok) {
        PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED),
                     reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDOK)));
    } else {
        PostMessageW(dialog, WM_CLOSE, 0, 0);
    }
}

}  // namespace

DialogAttendant::DialogAttendant(const Settings& settings)
    : m_settings(settings), m_deadline(settings.deadline), m_before(SetModalDialogWatch(this)) {}

DialogAttendant::~DialogAttendant() {
    SetModalDialogWatch(m_before);
}

void DialogAttendant::OnOpening() {
    m_dialogs.push_back(State::Opening);
    Watch();
}

void DialogAttendant::OnPainted(HWND dialog) {
    m_dialogs.back() = State::Waiting;
    Watch();
    if (!m_settings.pictureFolder.empty()) TakePicture(dialog);
    if (!m_settings.answer && m_settings.isPersonThere()) return;
    m_dialogs.back() = State::Answered;
    Watch();
    Answer(dialog, m_settings.answer.value_or(DialogAnswer::Ok));
}

void DialogAttendant::OnClosed() {
    m_dialogs.pop_back();
    Watch();
}

void DialogAttendant::Watch() {
    m_deadline.Disarm();
    if (m_dialogs.empty()) return;
    if (m_dialogs.back() == State::Opening) {
        m_deadline.Arm(L"a dialog has not painted within its time.");
    } else if (m_dialogs.back() == State::Answered) {
        m_deadline.Arm(L"a dialog has not ended within its time after its answer.");
    }
}

void DialogAttendant::TakePicture(HWND dialog) {
    const std::wstring path =
        m_settings.pictureFolder + L"\\" + PictureName(++m_pictureCount, CaptionOf(dialog));
    if (SaveWindowPicture(dialog, path)) {
        PrintLine(L"Picture of the dialog: " + path);
    } else {
        PrintLine(L"The picture of the dialog can't be saved: " + path);
        m_failed = true;
    }
}

}  // namespace drafthost
