#include "config/application_instance.h"

#include "host/module_handles.h"

HINSTANCE g_applicationInstance = nullptr;

HINSTANCE GetApplicationInstance() {
    return g_applicationInstance;
}
