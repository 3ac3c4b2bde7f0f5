#pragma once

#include "rxdlinkr.h"

namespace drafthost {

/// The linker that modules find in the system registry; the work is done by `ModuleTable`.
class DynamicLinker : public AcRxDynamicLinker {
  public:
    bool loadModule(const ACHAR* fileName, bool printit, bool asCmd) override;
    bool unloadModule(const ACHAR* fileName, bool asCmd) override;
    bool unlockApplication(void* appId) const override;
    bool lockApplication(void* appId) const override;
    bool registerAppMDIAware(void* appId) const override;
};

}  // namespace drafthost
