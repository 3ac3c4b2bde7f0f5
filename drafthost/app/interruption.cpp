#include "app/interruption.h"

#include "runtime/control.h"

namespace drafthost {

BOOL WINAPI OnControlEvent(DWORD event) {
    if (event != CTRL_C_EVENT) return FALSE;
    InterruptEvaluation();
    return TRUE;
}

}  // namespace drafthost
