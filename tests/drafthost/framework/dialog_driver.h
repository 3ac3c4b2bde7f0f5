#pragma once

#include "runtime/framework/dialog_watch.h"

#include <functional>
#include <vector>

/// Does what a person would: for its life, each modal dialog that stands painted is handed to the
/// next action in turn. A dialog beyond the last action is told to cancel, so that no test hangs.
class DialogDriver : public drafthost::ModalDialogWatch {
  public:
    using Action = std::function<void(HWND dialog)>;

    explicit DialogDriver(std::vector<Action> actions);
    DialogDriver(const DialogDriver&) = delete;
    DialogDriver& operator=(const DialogDriver&) = delete;
    ~DialogDriver() override;

    void OnOpening() override { ++m_opened; }
    void OnPainted(HWND dialog) override;
    void OnClosed() override { ++m_closed; }

    int m_opened = 0;
    int m_painted = 0;
    int m_closed = 0;

  private:
    std::vector<Action> m_actions;
    drafthost::ModalDialogWatch* m_before;
};

/// Actions.
void ClickOk(HWND dialog);
/// What a click on OK ends in, without the button being pushed and painted for it.
void ChooseOk(HWND dialog);
void ClickCancel(HWND dialog);
void ClickCloseBox(HWND dialog);
/// The key goes to the dialog's focused control, else to the dialog itself.
DialogDriver::Action PressKey(WPARAM key);
