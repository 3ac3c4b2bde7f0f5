#pragma once

#include "support/import_hook.h"

#include <rxclass.h>

/// Puts what is asked of the host's classes into the call journal, for the life of this object
/// ("build hierarchy", "delete KvtTestA"), and passes it on. One at a time.
class ClassRecorder {
  public:
    ClassRecorder();

  private:
    ImportHook<decltype(&acrxBuildClassHierarchy)> m_build;
    ImportHook<decltype(&deleteAcRxClass)> m_delete;
};
