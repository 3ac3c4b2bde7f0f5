#pragma once

#include "drafthost_api.h"

#include <windows.h>

namespace drafthost {

/// Is told about the modal dialogs of the process, on the thread that runs them. For whoever runs
/// the host without a person at it. Calls may nest as the dialogs do.
class DRAFTHOST_API ModalDialogWatch {
  public:
    virtual ~ModalDialogWatch();

    /// A modal dialog is about to be made.
    virtual void OnOpening() = 0;
    /// It is on the screen with everything painted and waits for input; at most once for each
    /// dialog, and not at all for one that ends before.
    virtual void OnPainted(HWND dialog) = 0;
    /// It is over, for whatever reason.
    virtual void OnClosed() = 0;
};

/// Sets the watch, null for none; gives the one before. Not owned.
DRAFTHOST_API ModalDialogWatch* SetModalDialogWatch(ModalDialogWatch* watch);

}  // namespace drafthost
