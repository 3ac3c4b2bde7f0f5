#pragma once

#include "host/class_table.h"

/// Has each row register its class and the host join them to their parents; an empty table leaves
/// the host alone.
void RegisterClasses(SlotRange<DbxClassEntry> table);

/// Removes every registered class of the table, each after the classes of the table that derive
/// from it. A row that isn't registered is passed over, and with it the way to what derives from
/// its class.
void RemoveClasses(SlotRange<DbxClassEntry> table);

/// Removes the class of `entry`, a row of `table`, after those that derive from it. Whether `entry`
/// is registered is the caller's question.
void UnloadClassEntry(SlotRange<DbxClassEntry> table, DbxClassEntry& entry);
