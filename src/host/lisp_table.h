#pragma once

#include "host/slot_range.h"

#include <adesk.h>

/// A LISP function that the module offers.
struct AdsSymbolEntry {
    const wchar_t* name;  ///< null: the text of string resource `nameId`
    Adesk::Int32 (*function)();
    bool regFunc;          ///< the host may also call the function directly
    Adesk::UInt32 nameId;  ///< `noStringResource` when there is none
};

/// The module's LISP functions, from section ADSSYMBO of its image.
SlotRange<AdsSymbolEntry> LispTable();
