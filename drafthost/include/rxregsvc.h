#pragma once

#include "rxdict.h"

/// The host's system registry. Holds at least
///   "DynamicLinker"             the AcRxDynamicLinker
///   "ClassDictionary"           an AcRxDictionary of the class descriptors by name
///   "ACAD_REGISTERED_COMMANDS"  the AcEdCommandStack
/// Null once the host has taken its services down.
DRAFTHOST_API AcRxDictionary* acrxSysRegistry();
