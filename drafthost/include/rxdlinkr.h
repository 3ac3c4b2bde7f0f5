#pragma once

#include "rxclass.h"

/// Loads and unloads modules. Found in the system registry under "DynamicLinker".
class DRAFTHOST_API AcRxDynamicLinker : public AcRxObject {
    ACRX_DECLARE_MEMBERS(AcRxDynamicLinker)

    /// Loads the module file, as the host's own load command does. False when it was refused.
    virtual bool loadModule(const ACHAR* fileName, bool printit, bool asCmd = false) = 0;

    /// Unloads the module when it has declared itself unloadable. False otherwise.
    virtual bool unloadModule(const ACHAR* fileName, bool asCmd = false) = 0;

    /// Lets the module of this packet be unloaded later. `appId` is the packet of `kInitAppMsg`.
    virtual bool unlockApplication(void* appId) const = 0;

    /// The opposite of `unlockApplication`.
    virtual bool lockApplication(void* appId) const = 0;

    /// Declares the module of this packet fit for several documents.
    virtual bool registerAppMDIAware(void* appId) const = 0;
};
