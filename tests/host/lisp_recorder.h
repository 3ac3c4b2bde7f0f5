#pragma once

#include "support/import_hook.h"

#include <acedads.h>

/// Refuses every LISP function, for the life of this object. The call journal has each call in
/// order ("acedDefun GetKVTPath 0", "acedUndef GetKVTPath 0").
class LispRecorder {
  public:
    LispRecorder();

  private:
    ImportHook<decltype(&acedDefun)> m_defun;
    ImportHook<decltype(&acedUndef)> m_undef;
};
