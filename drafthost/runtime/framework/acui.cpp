#include "acui.h"

#include <windows.h>
// Needs windows.h ahead of it.
#include <commctrl.h>

void InitAcUiDLL() {
    INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_TAB_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&classes);
}
