#pragma once

#include <accmd.h>
#include <rxdlinkr.h>

/// The host's services, looked up in its system registry at each call and owned by the host. Null
/// when the host has no such object or one of another class; callers take them as given.
AcRxDynamicLinker* DynamicLinker();
AcEdCommandStack* CommandStack();

/// The host's class of document reactors; looked up at the first call that finds it, then kept.
AcRxClass* DocManagerReactorClass();
