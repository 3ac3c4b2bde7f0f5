#pragma once

#include "support/import_hook.h"

#include <windows.h>

#include <string>

/// Gives every module a text of its own for every string resource, for the life of this object.
class StringResources {
  public:
    StringResources();

    /// What `LoadStringW` gives then.
    static std::wstring Text(HINSTANCE instance, UINT id);

  private:
    ImportHook<decltype(&LoadStringW)> m_load;
};
