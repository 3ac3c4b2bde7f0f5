// A DLL that does nothing. It is linked with the module's imports: loading it costs what any DLL
// that needs them costs.

#include <windows.h>

BOOL WINAPI DllMain(HINSTANCE, DWORD, void*) {
    return TRUE;
}
