#pragma once

#include <windows.h>

/// What `GetApplicationInstance` gives in these tests, which run without the application object.
extern HINSTANCE g_applicationInstance;
