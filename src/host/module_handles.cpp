#include "host/module_handles.h"

HINSTANCE g_moduleInstance = nullptr;

ModuleExtension ModuleExtensionRecord;
