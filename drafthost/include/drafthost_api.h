#pragma once

// What the headers beside this one mark as exported by the runtime DLL.
#if defined(DRAFTHOST_BUILDS_RUNTIME)
#define DRAFTHOST_API __declspec(dllexport)
#else
#define DRAFTHOST_API __declspec(dllimport)
#endif
