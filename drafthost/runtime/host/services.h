#pragma once

#include "runtime/host/command_stack.h"
#include "runtime/host/dictionary.h"
#include "runtime/host/document_manager.h"
#include "runtime/host/dynamic_linker.h"

namespace drafthost {

/// The objects that modules find through the system registry. Made when the DLL is loaded, so that
/// static constructors of programs and modules find them; gone once the host was shut down.
struct Services {
    Services();
    Services(const Services&) = delete;
    Services& operator=(const Services&) = delete;

    Dictionary classes;
    Dictionary registry;
    CommandStack commands;
    DocumentManager documents;
    DynamicLinker linker;
};

/// Null once the host was shut down.
Services* HostServices();

/// From here on `HostServices`, `acrxSysRegistry` and `acDocManagerPtr` give null. The objects
/// themselves stay until the process ends: a module may have kept a pointer.
void RetireServices();

}  // namespace drafthost
