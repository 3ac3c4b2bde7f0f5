#pragma once

#include "afxwin.h"

/// Binds the control object to the window of the id by subclassing, once: at the first pass in
/// either direction. Throws `CNotSupportedException*` when the dialog has no such control.
DRAFTHOST_API void DDX_Control(CDataExchange* exchange, int id, CWnd& control);
