#pragma once

#include "app/deadline.h"
#include "runtime/framework/dialog_watch.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace drafthost {

/// How a dialog is ended without a person.
enum class DialogAnswer {
    Ok,     ///< as by its OK button
    Close,  ///< as by its close box
};

/// Attends to the modal dialogs of the modules while it lives: takes their pictures, answers them
/// when nobody else does, and ends the process with `DialogFailed` over one that never paints or
/// doesn't end when answered.
class DialogAttendant : public ModalDialogWatch {
  public:
    struct Settings {
        std::wstring pictureFolder;          ///< exists; empty: no pictures
        std::optional<DialogAnswer> answer;  ///< none: OK, unless a person is there
        std::function<bool()> isPersonThere;
        std::chrono::milliseconds deadline;
    };

    explicit DialogAttendant(const Settings& settings);
    DialogAttendant(const DialogAttendant&) = delete;
    DialogAttendant& operator=(const DialogAttendant&) = delete;
    ~DialogAttendant() override;

    /// Whether a picture couldn't be saved.
    bool HasFailed() const { return m_failed; }

    void OnOpening() override;
    void OnPainted(HWND dialog) override;
    void OnClosed() override;

  private:
    enum class State {
        Opening,   ///< has to paint before the deadline
        Waiting,   ///< for a person
        Answered,  ///< has to end before the deadline
    };

    void TakePicture(HWND dialog);
    /// Sets the deadline as the innermost dialog needs it.
    void Watch();

    const Settings m_settings;
    Deadline m_deadline;
    std::vector<State> m_dialogs;  ///< the innermost last
    int m_pictureCount = 0;
    bool m_failed = false;
    ModalDialogWatch* m_before;
};

}  // namespace drafthost
