#pragma once

#include "host/command_table.h"

/// Gives each row to the host's command stack, which is looked up for each. `instance` is where the
/// names of string resources are and the command's resource handle; a session command gets none.
/// Nothing tells whether the host took a command.
void RegisterCommands(SlotRange<ArxCommandEntry> table, HINSTANCE instance);

/// Takes each row off the command stack. Nothing tells whether it was there.
void RemoveCommands(SlotRange<ArxCommandEntry> table);
