#include "host/entry_point.h"

#include "host/ckvtcadapp.h"

AcRx::AppRetCode acrxEntryPoint(unsigned message, void* packet) {
    return g_application.Dispatch(message, packet);
}
