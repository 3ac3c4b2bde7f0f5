#pragma once

#include "host/lisp_table.h"

#include <windows.h>

// A row's function code is its place among the table's rows, counted from 0: all three operations
// must see the same table. `instance` is where the names of string resources are.

/// Defines each row in the current document; a row that asks for it is registered for direct calls
/// besides. Nothing tells whether the host took a name.
void DefineLispFunctions(SlotRange<AdsSymbolEntry> table, HINSTANCE instance);

/// Takes each row's definition back in the current document.
void UndefineLispFunctions(SlotRange<AdsSymbolEntry> table, HINSTANCE instance);

/// Runs the function that LISP has called; does nothing when its code is no row's.
void InvokeLispFunction(SlotRange<AdsSymbolEntry> table);
