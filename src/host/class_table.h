#pragma once

#include "host/slot_range.h"

#include <rxclass.h>

/// A class of the module's own that the host is to know.
struct DbxClassEntry {
    AcRxClass* (*classDesc)();  ///< gives the class descriptor
    void (*classInit)();        ///< registers the class with the host
    bool registered;            ///< set after `classInit`, cleared after removal
};

/// The module's classes, from section DBXCUSTO of its image: none.
SlotRange<DbxClassEntry> ClassTable();
